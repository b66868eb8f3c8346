#pragma once

namespace pellora {

/// A day of the Gregorian calendar; months and days count from 1.
struct CalendarDate {
  int year, month, day;
};

/// A time of day, 24-hour clock.
struct ClockTime {
  int hour, minute, second;
};

/// Automation dates: days since 1899-12-30, the time of day as fraction.
bool IsDate(CalendarDate date);
double DaysFromDate(CalendarDate date);
double DaysFromTime(ClockTime time);
/// Of a negative date the fraction still counts forward, as automation has it.
CalendarDate DateFromDays(double days);
/// Rounded to the nearest second.
ClockTime TimeFromDays(double days);

}  // namespace pellora
