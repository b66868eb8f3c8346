#include "core/Calendar.h"

#include <gtest/gtest.h>

#include <string>

namespace pellora {
namespace {

std::string Text(CalendarDate date) {
  return std::to_string(date.year) + "-" + std::to_string(date.month) + "-" + std::to_string(date.day);
}

std::string Text(ClockTime time) {
  return std::to_string(time.hour) + ":" + std::to_string(time.minute) + ":" + std::to_string(time.second);
}

TEST(DaysFromDate, CountsFromTheEndOf1899) {
  EXPECT_EQ(DaysFromDate({1899, 12, 30}), 0);
  EXPECT_EQ(DaysFromDate({1900, 1, 1}), 2);
  EXPECT_EQ(DaysFromDate({2007, 12, 18}), 39434);
  EXPECT_EQ(DaysFromDate({1899, 12, 29}), -1);
}

TEST(DateFromDays, InvertsDaysFromDate) {
  for (const CalendarDate date :
       {CalendarDate{1600, 2, 29}, CalendarDate{1899, 12, 29}, CalendarDate{2008, 2, 29}, CalendarDate{9999, 12, 31}})
    EXPECT_EQ(Text(DateFromDays(DaysFromDate(date))), Text(date));
}

TEST(DateFromDays, OfANegativeDateTheFractionStillCountsForward) {
  EXPECT_EQ(Text(DateFromDays(-1.75)), "1899-12-29");
  EXPECT_EQ(Text(TimeFromDays(-1.75)), "18:0:0");
}

TEST(TimeFromDays, RoundsToTheNearestSecondAndCarriesMidnightOver) {
  EXPECT_EQ(Text(TimeFromDays(39434.395833333336)), "9:30:0");
  EXPECT_EQ(Text(TimeFromDays(39434.9999999)), "0:0:0");
  EXPECT_EQ(Text(DateFromDays(39434.9999999)), "2007-12-19");
}

TEST(DaysFromTime, IsTheFractionOfADay) { EXPECT_EQ(DaysFromTime({18, 0, 0}), 0.75); }

TEST(IsDate, KnowsTheLengthsOfMonthsAndLeapYears) {
  EXPECT_TRUE(IsDate({2008, 2, 29}));
  EXPECT_FALSE(IsDate({2007, 2, 29}));
  EXPECT_FALSE(IsDate({2007, 4, 31}));
  EXPECT_FALSE(IsDate({2007, 0, 1}));
  EXPECT_FALSE(IsDate({2007, 13, 1}));
  EXPECT_FALSE(IsDate({99, 1, 1}));
}

TEST(IsDate, NumbersThatDoNotFitAByteAreNoMonthsAndDays) {
  EXPECT_FALSE(IsDate({2020, 257, 1}));
  EXPECT_FALSE(IsDate({2020, 1, 257}));
}

}  // namespace
}  // namespace pellora
