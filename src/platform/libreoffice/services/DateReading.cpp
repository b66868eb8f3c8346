#include "platform/libreoffice/services/DateReading.h"

#include <array>
#include <charconv>

#include "core/Calendar.h"
#include "platform/libreoffice/services/TextReader.h"

namespace pellora::libreoffice {
namespace {

constexpr std::size_t kLongestNumber = 4;
/// Years of two digits up to this one are of this century.
constexpr int kLastShortYear = 29;

int Value(std::string_view digits) {
  int value = -1;
  if (digits.size() <= kLongestNumber) std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

int Year(std::string_view digits) {
  const int value = Value(digits);
  if (digits.size() > 2 || value < 0) return value;
  return value <= kLastShortYear ? 2000 + value : 1900 + value;
}

std::string_view TakeDateSeparator(TextReader& text, const LocaleFacts& facts) {
  for (const std::string_view separator :
       {std::string_view(facts.dateSeparator), std::string_view("/"), std::string_view("-")})
    if (text.Take(separator)) return separator;
  return {};
}

/// Three numbers with the same separator between them.
std::optional<std::array<std::string_view, 3>> ReadThreeNumbers(TextReader& text, const LocaleFacts& facts) {
  std::array<std::string_view, 3> numbers;
  numbers[0] = text.TakeDigits();
  text.TakeBlanks();
  const auto separator = TakeDateSeparator(text, facts);
  text.TakeBlanks();
  numbers[1] = text.TakeDigits();
  text.TakeBlanks();
  if (!text.Take(separator)) return std::nullopt;
  text.TakeBlanks();
  numbers[2] = text.TakeDigits();
  // In some countries the separator also ends the date.
  text.Take(separator);
  return numbers;
}

std::optional<double> ReadDay(TextReader& text, const LocaleFacts& facts) {
  const auto numbers = ReadThreeNumbers(text, facts);
  if (!numbers) return std::nullopt;
  const auto& [first, second, third] = *numbers;
  CalendarDate date{};
  if (first.size() > 2 || facts.dateOrder == DateOrder::YearMonthDay)
    date = {Year(first), Value(second), Value(third)};
  else if (facts.dateOrder == DateOrder::MonthDayYear)
    date = {Year(third), Value(first), Value(second)};
  else
    date = {Year(third), Value(second), Value(first)};
  return IsDate(date) ? std::optional(DaysFromDate(date)) : std::nullopt;
}

bool TakeTimeSeparator(TextReader& text, const LocaleFacts& facts) {
  return text.Take(":") || text.Take(facts.timeSeparator);
}

enum class Half { None, Morning, Afternoon };

Half TakeHalf(TextReader& text, const LocaleFacts& facts) {
  if (text.TakeNoCase(facts.am) || text.TakeNoCase("AM")) return Half::Morning;
  if (text.TakeNoCase(facts.pm) || text.TakeNoCase("PM")) return Half::Afternoon;
  return Half::None;
}

bool HourOfDay(Half half, int& hour) {
  if (half == Half::None) return hour >= 0 && hour <= 23;
  if (hour < 1 || hour > 12) return false;
  hour = hour % 12 + (half == Half::Afternoon ? 12 : 0);
  return true;
}

std::optional<double> ReadTime(TextReader& text, const LocaleFacts& facts) {
  const auto before = TakeHalf(text, facts);
  text.TakeBlanks();
  ClockTime time{Value(text.TakeDigits()), -1, 0};
  if (!TakeTimeSeparator(text, facts)) return std::nullopt;
  time.minute = Value(text.TakeDigits());
  if (TakeTimeSeparator(text, facts)) time.second = Value(text.TakeDigits());
  text.TakeBlanks();
  const auto half = before == Half::None ? TakeHalf(text, facts) : before;
  const auto isSixtieth = [](int number) { return number >= 0 && number <= 59; };
  if (!HourOfDay(half, time.hour) || !isSixtieth(time.minute) || !isSixtieth(time.second)) return std::nullopt;
  return DaysFromTime(time);
}

}  // namespace

std::optional<double> ReadDate(std::string_view text, const LocaleFacts& facts) {
  TextReader start(text);
  start.TakeBlanks();
  TextReader rest = start;
  std::optional<double> days = ReadDay(rest, facts);
  if (days) {
    const bool apart = rest.TakeBlank();
    rest.TakeBlanks();
    if (rest.AtEnd()) return days;
    if (!apart) return std::nullopt;
  } else {
    rest = start;
  }
  const auto time = ReadTime(rest, facts);
  rest.TakeBlanks();
  if (!time || !rest.AtEnd()) return std::nullopt;
  // The time of day counts forward before the first day too.
  const double day = days.value_or(0);
  return day < 0 ? day - *time : day + *time;
}

}  // namespace pellora::libreoffice
