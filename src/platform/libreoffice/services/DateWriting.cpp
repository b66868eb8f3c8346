#include "platform/libreoffice/services/DateWriting.h"

#include "core/Text.h"
#include "platform/libreoffice/services/TextReader.h"

namespace pellora::libreoffice {
namespace {

constexpr std::string_view kHalfOfDay = "AM/PM";

std::string Padded(int value, std::size_t digits) {
  std::string text = std::to_string(value);
  if (text.size() < digits) text.insert(0, digits - text.size(), '0');
  return text;
}

/// How often the pattern repeats the letter that it begins with.
std::size_t RunLength(std::string_view pattern) {
  std::size_t length = 1;
  while (length < pattern.size() && EqualAsciiNoCase(pattern.substr(length, 1), pattern.substr(0, 1))) ++length;
  return length;
}

/// The literal text that a pattern begins with, in quotes or after a backslash; otherwise its first character.
std::string_view TakeLiteral(std::string_view& pattern) {
  const char first = pattern.front();
  const auto end = first == '"' || first == '\'' ? pattern.find(first, 1) : std::string_view::npos;
  std::string_view literal = pattern.substr(0, 1);
  std::size_t used = 1;
  if (end != std::string_view::npos) {
    literal = pattern.substr(1, end - 1);
    used = end + 1;
  } else if (first == '\\' && pattern.size() > 1) {
    literal = pattern.substr(1, 1);
    used = 2;
  }
  pattern.remove_prefix(used);
  return literal;
}

/// `field` answers the text for the run of letters that a pattern begins with, and may say how long the run is; "" when
/// the letter stands for nothing.
template <class Field>
std::string Write(std::string_view pattern, Field&& field) {
  std::string text;
  while (!pattern.empty()) {
    std::size_t length = RunLength(pattern);
    if (const std::string part = field(pattern, length); !part.empty()) {
      text += part;
      pattern.remove_prefix(length);
    } else {
      text += TakeLiteral(pattern);
    }
  }
  return text;
}

std::string YearText(int year, std::size_t length) { return length <= 2 ? Padded(year % 100, 2) : Padded(year, 4); }

}  // namespace

std::string WriteDate(CalendarDate date, std::string_view pattern) {
  return Write(pattern, [&](std::string_view rest, std::size_t& length) -> std::string {
    switch (rest.front()) {
      case 'D':
      case 'd': return Padded(date.day, length < 2 ? 1 : 2);
      case 'M':
      case 'm': return Padded(date.month, length < 2 ? 1 : 2);
      case 'Y':
      case 'y': return YearText(date.year, length);
      default: return {};
    }
  });
}

std::string WriteTime(ClockTime time, std::string_view pattern, std::string_view am, std::string_view pm) {
  bool twelve = false;
  for (auto rest = pattern; !rest.empty(); TakeLiteral(rest)) twelve |= TextReader(rest).TakeNoCase(kHalfOfDay);
  const int hour = !twelve ? time.hour : time.hour % 12 == 0 ? 12 : time.hour % 12;
  return Write(pattern, [&](std::string_view rest, std::size_t& length) -> std::string {
    if (TextReader(rest).TakeNoCase(kHalfOfDay)) {
      length = kHalfOfDay.size();
      return std::string(time.hour < 12 ? am : pm);
    }
    switch (rest.front()) {
      case 'H':
      case 'h': return Padded(hour, length < 2 ? 1 : 2);
      case 'M':
      case 'm': return Padded(time.minute, length < 2 ? 1 : 2);
      case 'S':
      case 's': return Padded(time.second, length < 2 ? 1 : 2);
      default: return {};
    }
  });
}

}  // namespace pellora::libreoffice
