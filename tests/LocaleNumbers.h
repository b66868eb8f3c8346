#pragma once

#include <optional>
#include <vector>

namespace pellora {

/// What a text is as a number in three languages; nothing when it is none. One table for every platform's text
/// services, so that a workbook's values read the same on all of them.
struct LocaleNumber {
  const char* text;
  std::optional<double> english, german, french;
};

inline std::vector<LocaleNumber> LocaleNumbers() {
  constexpr auto none = std::nullopt;
  return {
      {"0", 0, 0, 0},
      {"1", 1, 1, 1},
      {"00012", 12, 12, 12},
      {" 1 ", 1, 1, 1},
      {"\t1\t", 1, 1, 1},
      {"+1", 1, 1, 1},
      {"-100", -100, -100, -100},
      {"", none, none, none},
      {" ", none, none, none},
      {"-", none, none, none},
      {"--1", none, none, none},
      {"1x", none, none, none},
      {"x1", none, none, none},
      {"Dec07", none, none, none},
      {"inf", none, none, none},
      {"nan", none, none, none},
      {"0x10", none, none, none},
      {"1/2", none, none, none},
      {"12:30", none, none, none},
      {"1%", none, none, none},
      // Separators of decimals.
      {"0.5", 0.5, 5, none},
      {"0,5", 5, 0.5, 0.5},
      {".5", 0.5, none, none},
      {",5", none, 0.5, 0.5},
      {"-.5", -0.5, none, none},
      {"1.", 1, 1, none},
      {"1,", 1, 1, 1},
      {".", none, none, none},
      {",", none, none, none},
      {"1..2", none, 12, none},
      // Separators of groups, of any length and number.
      {"1,000", 1000, 1, 1},
      {"1.000", 1, 1000, none},
      {"1,000,000", 1000000, none, none},
      {"1.000.000", none, 1000000, none},
      {"1,,2", 12, none, none},
      {"1 000", none, none, 1000},
      {"1\xC2\xA0"
       "000,5",
       none, none, 1000.5},
      // Exponents.
      {"2e3", 2000, 2000, 2000},
      {"2E+3", 2000, 2000, 2000},
      {"2e-3", 0.002, 0.002, 0.002},
      {"1.5e3", 1500, 15000, none},
      {"1e", none, none, none},
      {"e3", none, none, none},
      {"1e-400", 0, 0, 0},
      {"0e400", 0, 0, 0},
      // Signs and parentheses.
      {"1-", -1, -1, -1},
      {"1 -", -1, -1, -1},
      {"- 1", -1, -1, -1},
      {"-1-", none, none, none},
      {"1e3-", -1000, -1000, -1000},
      {"(1)", -1, -1, -1},
      {"( 1 )", -1, -1, -1},
      {"(1", none, none, none},
      {"1)", none, none, none},
      {"()", none, none, none},
      // Currencies.
      {"$1", 1, none, none},
      {"1 $", 1, none, none},
      {"-$1", -1, none, none},
      {"$-1", -1, none, none},
      {"($1)", -1, none, none},
      {"$$1", none, none, none},
      {"$", none, none, none},
      {"\xE2\x82\xAC"
       "1",
       none, 1, 1},
      {"1 \xE2\x82\xAC", none, 1, 1},
      {"-1 \xE2\x82\xAC", none, -1, -1},
      // Other bases.
      {"&H1F", 31, 31, 31},
      {"&h10", 16, 16, 16},
      {"&O17", 15, 15, 15},
      {"&H80000000", -2147483648.0, -2147483648.0, -2147483648.0},
      {"&H", none, none, none},
      {"&17", none, none, none},
      {"&H1G", none, none, none},
      {"&O8", none, none, none},
  };
}

}  // namespace pellora
