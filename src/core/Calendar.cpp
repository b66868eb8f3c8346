#include "core/Calendar.h"

#include <chrono>
#include <cmath>

namespace pellora {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kEpoch = sys_days(std::chrono::year{1899} / 12 / 30);
constexpr int kSecondsPerDay = 24 * 60 * 60;

year_month_day ToChrono(CalendarDate date) {
  return std::chrono::year{date.year} / std::chrono::month(static_cast<unsigned>(date.month)) /
         std::chrono::day(static_cast<unsigned>(date.day));
}

// Whole days and seconds of the day, rounded, a full day of seconds carried over.
struct Split {
  long days;
  long seconds;
};

Split SplitDays(double value) {
  double days = std::trunc(value);
  auto seconds = std::lround(std::fabs(value - days) * kSecondsPerDay);
  if (seconds == kSecondsPerDay) {
    seconds = 0;
    days += 1;
  }
  return {static_cast<long>(days), seconds};
}

}  // namespace

bool IsDate(CalendarDate date) {
  // The calendar's types keep months and days in a byte, so the ranges are tested before.
  return date.year >= 100 && date.year <= 9999 && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
         date.day <= 31 && ToChrono(date).ok();
}

double DaysFromDate(CalendarDate date) { return static_cast<double>((sys_days(ToChrono(date)) - kEpoch).count()); }

double DaysFromTime(ClockTime time) {
  return static_cast<double>((time.hour * 60 + time.minute) * 60 + time.second) / kSecondsPerDay;
}

CalendarDate DateFromDays(double days) {
  const year_month_day date(kEpoch + std::chrono::days(SplitDays(days).days));
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

ClockTime TimeFromDays(double days) {
  const long seconds = SplitDays(days).seconds;
  return {static_cast<int>(seconds / 3600), static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60)};
}

}  // namespace pellora
