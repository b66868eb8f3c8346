#include "core/TextServices.h"

#include <gtest/gtest.h>

#include "core/Calendar.h"
#include "core/Convert.h"
#include "core/Error.h"

namespace pellora {
namespace {

const TextServices& Portable() { return PortableTextServices(); }

class Shouting : public TextServices {
 public:
  std::string Upper(std::string_view text) const override { return std::string(text); }
  std::optional<double> ParseNumber(std::string_view) const override { return 42; }
  std::string NumberText(double) const override { return "a number!"; }
  std::optional<double> ParseDate(std::string_view) const override { return {}; }
  std::string DateText(double) const override { return "a date!"; }
  std::string ShortDate(double) const override { return {}; }
  std::string LongTime(double) const override { return {}; }
  std::string ToSystemCodePage(std::string_view) const override { return {}; }
  std::string FromSystemCodePage(std::string_view) const override { return {}; }
};

TEST(InstallTextServices, PutsAPlatformsServicesInForceUntilTakenBack) {
  const Shouting shouting;
  InstallTextServices(&shouting);
  EXPECT_EQ(ToText(1.5), "a number!");
  InstallTextServices(nullptr);
  EXPECT_EQ(ToText(1.5), "1.5");
}

TEST(NumberText, IsTheShortestUsualText) {
  EXPECT_EQ(Portable().NumberText(0), "0");
  EXPECT_EQ(Portable().NumberText(-0.0), "0");
  EXPECT_EQ(Portable().NumberText(100.0), "100");
  EXPECT_EQ(Portable().NumberText(-1.5), "-1.5");
  EXPECT_EQ(Portable().NumberText(0.1), "0.1");
  EXPECT_EQ(Portable().NumberText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(Portable().NumberText(123456789012345.0), "123456789012345");
}

TEST(NumberText, VeryLargeAndVerySmallNumbersHaveAnExponent) {
  EXPECT_EQ(Portable().NumberText(1e15), "1E+15");
  EXPECT_EQ(Portable().NumberText(1e-5), "1E-05");
  EXPECT_EQ(Portable().NumberText(999999999999999.9), "1E+15");
}

TEST(ParseNumber, ANumberThatIsTooLargeRaisesOverflow) {
  try {
    Portable().ParseNumber("1e400");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), errors::Overflow);
  }
}

TEST(ParseDate, ReadsMonthDayYear) {
  EXPECT_EQ(Portable().ParseDate("12/18/2007"), 39434);
  EXPECT_EQ(Portable().ParseDate(" 2/29/2008 "), DaysFromDate({2008, 2, 29}));
}

TEST(ParseDate, WhatIsNoDateAnswersNothing) {
  for (const char* text : {"", "2/30/2008", "13/1/2007", "257/1/2020", "1/257/2020", "1/2", "1/2/2007x", "18.12.2007"})
    EXPECT_FALSE(Portable().ParseDate(text)) << text;
}

TEST(DateText, HasTheDateTheTimeOrBoth) {
  EXPECT_EQ(Portable().DateText(39434), "12/18/2007");
  EXPECT_EQ(Portable().DateText(0.75), "6:00:00 PM");
  EXPECT_EQ(Portable().DateText(39434.75), "12/18/2007 6:00:00 PM");
  EXPECT_EQ(Portable().DateText(0), "12:00:00 AM");
  EXPECT_EQ(Portable().DateText(-0.25), "6:00:00 AM");
}

TEST(LongTime, CountsTwelveHours) {
  EXPECT_EQ(Portable().LongTime(0), "12:00:00 AM");
  EXPECT_EQ(Portable().LongTime(0.5), "12:00:00 PM");
  EXPECT_EQ(Portable().LongTime(DaysFromTime({9, 5, 7})), "9:05:07 AM");
}

TEST(ShortDate, HasNoLeadingZeros) { EXPECT_EQ(Portable().ShortDate(DaysFromDate({2008, 1, 2})), "1/2/2008"); }

}  // namespace
}  // namespace pellora
