#pragma once

#include <string>
#include <vector>

namespace pellora::libreoffice {

enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

/// What text conversions have to know of a language and region, as plain data; by default American English. Texts are
/// UTF-8. Whoever fills it in may leave texts empty where the locale has none.
struct LocaleFacts {
  /// Says which locale the facts are of ("de-DE"); no conversion depends on it.
  std::string language = "en-US";

  /// "" counts as ".".
  std::string decimalSeparator = ".";
  /// Between groups of digits, "" for none. Of a blank every blank is accepted, of an apostrophe either one.
  std::string groupSeparator = ",";
  /// What may stand once before or after a number: signs as "€" and abbreviations as "EUR".
  std::vector<std::string> currencies = {"$"};

  /// How three numbers are read as a date; one that begins with three or four digits begins with the year anywhere.
  DateOrder dateOrder = DateOrder::MonthDayYear;
  /// Accepted between a date's numbers beside "/" and "-".
  std::string dateSeparator = "/";
  /// D or DD, M or MM, YY or YYYY (also in small letters), everything else as it is; in quotes, or after a backslash,
  /// letters too.
  std::string shortDatePattern = "M/D/YYYY";

  /// Accepted between a time's numbers beside ":".
  std::string timeSeparator = ":";
  /// H or HH, M or MM, S or SS (also in small letters), and AM/PM, with which hours count to twelve.
  std::string longTimePattern = "H:MM:SS AM/PM";
  /// Before and after noon. "" count as "AM" and "PM", which are understood anyway.
  std::string am = "AM";
  std::string pm = "PM";
};

}  // namespace pellora::libreoffice
