#include "platform/libreoffice/services/LocaleTextServices.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "core/Calendar.h"
#include "core/Error.h"
#include "tests/LocaleNumbers.h"

namespace pellora::libreoffice {
namespace {

constexpr char kNarrowBlank[] = "\xE2\x80\xAF";

LocaleFacts English() { return {}; }

LocaleFacts German() {
  return {"de-DE",    ",", ".", {"\xE2\x82\xAC", "EUR"}, DateOrder::DayMonthYear, ".", "DD.MM.YYYY", ":",
          "HH:MM:SS", "",  ""};
}

LocaleFacts French() {
  return {"fr-FR", ",", kNarrowBlank, {"\xE2\x82\xAC"}, DateOrder::DayMonthYear, "/", "DD/MM/YYYY", ":", "HH:MM:SS",
          "",      ""};
}

LocaleFacts Swiss() {
  LocaleFacts facts = German();
  facts.decimalSeparator = ".";
  facts.groupSeparator = "\xE2\x80\x99";
  facts.currencies = {"Fr", "Fr.", "CHF"};
  return facts;
}

LocaleFacts Swedish() {
  LocaleFacts facts = German();
  facts.dateOrder = DateOrder::YearMonthDay;
  facts.dateSeparator = "-";
  facts.shortDatePattern = "YYYY-MM-DD";
  return facts;
}

std::int32_t NumberOfFailure(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

TEST(LocaleNumbers, AreReadAsInTheTableOfAllPlatforms) {
  const LocaleTextServices english(English()), german(German()), french(French());
  for (const auto& row : LocaleNumbers()) {
    EXPECT_EQ(english.ParseNumber(row.text), row.english) << row.text;
    EXPECT_EQ(german.ParseNumber(row.text), row.german) << row.text;
    EXPECT_EQ(french.ParseNumber(row.text), row.french) << row.text;
  }
}

TEST(LocaleNumbers, ThatThePortableSetReadsAreReadAlike) {
  const LocaleTextServices english(English());
  int read = 0;
  for (const auto& row : LocaleNumbers()) {
    // The portable set takes numbers that are too small for too large ones.
    if (row.text == std::string_view("1e-400")) continue;
    const auto portable = PortableTextServices().ParseNumber(row.text);
    if (!portable) continue;
    EXPECT_EQ(english.ParseNumber(row.text), portable) << row.text;
    ++read;
  }
  EXPECT_GT(read, 20);
}

TEST(LocaleNumbers, HaveNoGroupsAfterTheSeparatorOfDecimals) {
  const LocaleTextServices english(English()), german(German());
  EXPECT_EQ(english.ParseNumber("1,000.5"), 1000.5);
  EXPECT_EQ(german.ParseNumber("1.000,5"), 1000.5);
  EXPECT_EQ(english.ParseNumber("1.000,5"), std::nullopt);
  EXPECT_EQ(german.ParseNumber("1,000.5"), std::nullopt);
}

TEST(LocaleNumbers, InSwitzerlandHaveEitherApostropheAndTheLongestCurrency) {
  const LocaleTextServices swiss(Swiss());
  EXPECT_EQ(swiss.ParseNumber("1'000.5"), 1000.5);
  EXPECT_EQ(swiss.ParseNumber("1\xE2\x80\x99"
                              "000"),
            1000);
  EXPECT_EQ(swiss.ParseNumber("fr. 5"), 5);
  EXPECT_EQ(swiss.ParseNumber("5 CHF"), 5);
}

TEST(LocaleNumbers, ACurrencyMayBeginWithTheExponentsLetter) {
  LocaleFacts facts;
  facts.currencies = {"E"};
  EXPECT_EQ(LocaleTextServices(facts).ParseNumber("5E"), 5);
  EXPECT_EQ(LocaleTextServices(facts).ParseNumber("5E2"), 500);
}

TEST(LocaleNumbers, WithoutAGroupSeparatorHaveNone) {
  LocaleFacts facts;
  facts.groupSeparator = "";
  facts.decimalSeparator = "";
  EXPECT_EQ(LocaleTextServices(facts).ParseNumber("1,000"), std::nullopt);
  EXPECT_EQ(LocaleTextServices(facts).ParseNumber("1.5"), 1.5);
  EXPECT_EQ(LocaleTextServices(facts).NumberText(1.5), "1.5");
}

TEST(LocaleNumbers, TooLargeAreAnOverflow) {
  const LocaleTextServices services(English());
  const std::string digits(400, '9');
  for (const std::string& text : {std::string("1e400"), std::string("-1e400"), std::string("1e99999999999999999999"),
                                  digits, std::string("&HFFFFFFFFF")})
    EXPECT_EQ(NumberOfFailure([&] { services.ParseNumber(text); }), errors::Overflow) << text;
}

TEST(LocaleNumbers, AreReadToTheLastBit) {
  const LocaleTextServices services(English());
  EXPECT_EQ(services.ParseNumber("1.7976931348623157e308"), std::numeric_limits<double>::max());
  EXPECT_EQ(services.ParseNumber("0.30000000000000004"), 0.1 + 0.2);
  EXPECT_EQ(services.ParseNumber("5e-324"), std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(services.ParseNumber("0." + std::string(400, '0') + "1e401"), 1);
}

TEST(LocaleNumbers, AreWrittenWithTheSeparatorOfDecimalsOnly) {
  EXPECT_EQ(LocaleTextServices(English()).NumberText(1234567.25), "1234567.25");
  EXPECT_EQ(LocaleTextServices(German()).NumberText(1234567.25), "1234567,25");
  EXPECT_EQ(LocaleTextServices(German()).NumberText(-0.5), "-0,5");
  EXPECT_EQ(LocaleTextServices(French()).NumberText(1e-5), "1E-05");
}

TEST(LocaleDates, AreWrittenByThePatterns) {
  const double moment = 39434 + DaysFromTime({18, 5, 9});
  EXPECT_EQ(LocaleTextServices(English()).DateText(moment), "12/18/2007 6:05:09 PM");
  EXPECT_EQ(LocaleTextServices(German()).DateText(moment), "18.12.2007 18:05:09");
  EXPECT_EQ(LocaleTextServices(French()).DateText(moment), "18/12/2007 18:05:09");
  EXPECT_EQ(LocaleTextServices(Swedish()).DateText(moment), "2007-12-18 18:05:09");
}

TEST(LocaleDates, AreWrittenAsByThePortableSetInEnglish) {
  const LocaleTextServices english(English());
  for (const double days : {0.0, 0.5, 0.75, -0.25, 1.5, -1.25, 39434.0, 39434.3, 2958465.0}) {
    EXPECT_EQ(english.DateText(days), PortableTextServices().DateText(days)) << days;
    EXPECT_EQ(english.ShortDate(days), PortableTextServices().ShortDate(days)) << days;
    EXPECT_EQ(english.LongTime(days), PortableTextServices().LongTime(days)) << days;
  }
}

TEST(LocaleDates, AHairBeforeMidnightIsTheNextDayWithoutATime) {
  EXPECT_EQ(LocaleTextServices(English()).DateText(39433.9999999), "12/18/2007");
}

TEST(LocaleDates, PatternsHaveLiteralsAndShortYears) {
  LocaleFacts facts;
  facts.shortDatePattern = "d 'de' mm\\m yy\"y\"'";
  facts.longTimePattern = "am/pm hh.mm.ss";
  facts.am = "\xE4\xB8\x8A\xE5\x8D\x88";
  const LocaleTextServices services(facts);
  EXPECT_EQ(services.ShortDate(DaysFromDate({2007, 3, 5})), "5 de 03m 07y'");
  EXPECT_EQ(services.LongTime(0), "\xE4\xB8\x8A\xE5\x8D\x88 12.00.00");
  EXPECT_EQ(services.LongTime(0.5), "PM 12.00.00");
}

TEST(LocaleDates, OutsideTheCalendarAreRefused) {
  const LocaleTextServices services(English());
  for (const double days : {1e300, -1e300, 2958466.0, -657436.0, std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(NumberOfFailure([&] { services.DateText(days); }), errors::InvalidCall) << days;
    EXPECT_EQ(NumberOfFailure([&] { services.ShortDate(days); }), errors::InvalidCall) << days;
    EXPECT_EQ(NumberOfFailure([&] { services.LongTime(days); }), errors::InvalidCall) << days;
  }
}

struct DateRow {
  const char* text;
  std::optional<double> english, german, swedish;
};

TEST(LocaleDates, AreReadInTheLocalesOrder) {
  constexpr auto none = std::nullopt;
  const DateRow rows[] = {
      {"12/18/2007", 39434, none, none},
      {"18/12/2007", none, 39434, none},
      {"18.12.2007", none, 39434, none},
      {"18.12.07", none, 39434, none},
      {" 18. 12. 2007. ", none, 39434, none},
      {"2007-12-18", 39434, 39434, 39434},
      {"2007/12/18", 39434, 39434, 39434},
      {"07-12-18", DaysFromDate({2018, 7, 12}), DaysFromDate({2018, 12, 7}), 39434},
      {"12 - 18 - 2007", 39434, none, none},
      {"1/2/29", 47120, 47150, none},
      {"1/2/30", DaysFromDate({1930, 1, 2}), DaysFromDate({1930, 2, 1}), none},
      {"2/29/2008", DaysFromDate({2008, 2, 29}), none, none},
      {"2/30/2008", none, none, none},
      {"257/1/2020", none, none, none},
      {"1/2", none, none, none},
      {"1/2-2007", none, none, none},
      {"1/2/2007x", none, none, none},
      {"1/2/10000", none, none, none},
      {"", none, none, none},
      {"no date", none, none, none},
      {"100", none, none, none},
      {"6:00 PM", 0.75, 0.75, 0.75},
      {"pm 6:00", 0.75, 0.75, 0.75},
      {"18:00", 0.75, 0.75, 0.75},
      {"12:00:00 AM", 0, 0, 0},
      {"13:00 PM", none, none, none},
      {"24:00", none, none, none},
      {"12:60", none, none, none},
      {"1:2:3:4", none, none, none},
      {"12/18/2007 6:00:00 PM", 39434.75, none, none},
      {"18.12.2007 18:00", none, 39434.75, none},
      {"2007-12-1818:00", none, none, none},
  };
  const LocaleTextServices english(English()), german(German()), swedish(Swedish());
  for (const auto& row : rows) {
    EXPECT_EQ(english.ParseDate(row.text), row.english) << row.text;
    EXPECT_EQ(german.ParseDate(row.text), row.german) << row.text;
    EXPECT_EQ(swedish.ParseDate(row.text), row.swedish) << row.text;
  }
}

TEST(LocaleDates, ComeBackThroughTheirTexts) {
  for (const LocaleFacts& facts : {English(), German(), French(), Swedish()}) {
    const LocaleTextServices services(facts);
    for (const double days : {0.0, 0.75, 1.5, -1.25, 39434.0, 39434.75, -657434.0, 2958465.0})
      EXPECT_EQ(services.ParseDate(services.DateText(days)), days) << facts.language << " " << days;
  }
}

TEST(LocaleLetters, AreRaisedInEveryScript) {
  const LocaleTextServices services(English());
  // Latin, Greek with its final letter, Cyrillic, Armenian; beyond the first plane Deseret.
  EXPECT_EQ(services.Upper("az\xC3\xA4\xCE\xB1\xCF\x82\xD0\xB6\xD5\xA1\xF0\x90\x90\xA8"),
            "AZ\xC3\x84\xCE\x91\xCE\xA3\xD0\x96\xD4\xB1\xF0\x90\x90\x80");
}

TEST(LocaleLetters, WithoutCapitalsStayAsTheyAre) {
  const LocaleTextServices services(English());
  for (const char* text : {"", "1!", "\xC3\x9F", "\xE6\x97\xA5", "\xF0\x9F\x93\x88"})
    EXPECT_EQ(services.Upper(text), text);
  EXPECT_EQ(services.Upper("a\xFF"), "A\xEF\xBF\xBD");
}

TEST(LocaleCodePage, IsUtf8) {
  const LocaleTextServices services(German());
  EXPECT_EQ(services.ToSystemCodePage("B\xC3\xB6rse \xE6\x97\xA5"), "B\xC3\xB6rse \xE6\x97\xA5");
  EXPECT_EQ(services.FromSystemCodePage("B\xC3\xB6rse"), "B\xC3\xB6rse");
  EXPECT_EQ(services.FromSystemCodePage("B\xF6rse"), "B\xEF\xBF\xBDrse");
}

}  // namespace
}  // namespace pellora::libreoffice
