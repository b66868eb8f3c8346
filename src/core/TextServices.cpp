#include "core/TextServices.h"

#include <wchar.h>
#include <wctype.h>

#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <string>

#include "core/Calendar.h"
#include "core/Error.h"
#include "core/Text.h"

namespace pellora {
namespace {

// Where the system does not have the locale, the one in force at least raises what is in ASCII.
#ifdef _WIN32
char32_t UpperPoint(char32_t point) {
  // A locale object of its own: in the one that programs start with, letters beyond ASCII have no capitals.
  static const _locale_t locale = _create_locale(LC_CTYPE, "English_United States.1252");
  if (point >= 0x10000) return point;
  const auto unit = static_cast<wint_t>(point);
  return static_cast<char32_t>(locale ? _towupper_l(unit, locale) : towupper(unit));
}
#else
char32_t UpperPoint(char32_t point) {
  // A locale object of its own: the process's locale is the host's business.
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  const auto unit = static_cast<wint_t>(point);
  return static_cast<char32_t>(locale ? towupper_l(unit, locale) : towupper(unit));
}
#endif

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string TwoDigits(int value) { return (value < 10 ? "0" : "") + std::to_string(value); }

class Portable final : public TextServices {
 public:
  std::string Upper(std::string_view text) const override {
    const std::u16string units = ToUtf16(text);
    std::u16string upper;
    for (const char16_t unit : units) {
      const char32_t mapped = unit >= 0xD800 && unit < 0xE000 ? unit : UpperPoint(unit);
      upper += static_cast<char16_t>(mapped < 0x10000 ? mapped : unit);
    }
    return ToUtf8(upper);
  }

  std::optional<double> ParseNumber(std::string_view text) const override {
    std::string digits;
    text = Trim(text);
    // Group separators between digits are passed over, as the platforms do.
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool group = text[i] == ',' && i > 0 && !digits.empty() && digits.find('.') == std::string::npos;
      if (!group) digits += text[i];
    }
    std::string_view rest = digits;
    if (!rest.empty() && rest.front() == '+') rest.remove_prefix(1);
    const std::string_view unsignedRest = !rest.empty() && rest.front() == '-' ? rest.substr(1) : rest;
    const bool starts = !unsignedRest.empty() &&
                        ((unsignedRest.front() >= '0' && unsignedRest.front() <= '9') || unsignedRest.front() == '.');
    if (!starts || digits.substr(0, 2) == "+-") return std::nullopt;
    double value = 0;
    const auto [end, fault] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
    if (end != rest.data() + rest.size()) return std::nullopt;
    if (fault == std::errc::result_out_of_range) throw Error(errors::Overflow);
    return fault == std::errc{} ? std::optional(value) : std::nullopt;
  }

  std::string NumberText(double value) const override {
    if (value == 0) return "0";
    // Fifteen significant digits, exponent form for very large and very small values, as automation writes them.
    std::array<char, 64> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, 15);
    std::string text(buffer.data(), result.ptr);
    if (const auto e = text.find('e'); e != std::string::npos) text[e] = 'E';
    return text;
  }

  std::optional<double> ParseDate(std::string_view text) const override {
    std::array<int, 3> parts{};
    text = Trim(text);
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::size_t i = 0; i < parts.size(); ++i) {
      const auto [next, fault] = std::from_chars(at, end, parts[i]);
      if (fault != std::errc{} || next == at || parts[i] < 0) return std::nullopt;
      at = next;
      if (i < 2 && (at == end || *at++ != '/')) return std::nullopt;
    }
    if (at != end) return std::nullopt;
    const CalendarDate date{parts[2], parts[0], parts[1]};
    return IsDate(date) ? std::optional(DaysFromDate(date)) : std::nullopt;
  }

  std::string DateText(double days) const override {
    // Day 0 has no date text of its own: such a value is a time of day.
    const double day = std::trunc(days);
    if (day == 0) return LongTime(days);
    return days != day ? ShortDate(days) + " " + LongTime(days) : ShortDate(days);
  }

  std::string ShortDate(double days) const override {
    const CalendarDate date = DateFromDays(days);
    return std::to_string(date.month) + "/" + std::to_string(date.day) + "/" + std::to_string(date.year);
  }

  std::string LongTime(double days) const override {
    const ClockTime time = TimeFromDays(days);
    const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
    return std::to_string(hour) + ":" + TwoDigits(time.minute) + ":" + TwoDigits(time.second) +
           (time.hour < 12 ? " AM" : " PM");
  }

  std::string ToSystemCodePage(std::string_view text) const override { return std::string(text); }
  std::string FromSystemCodePage(std::string_view bytes) const override { return std::string(bytes); }
};

const TextServices*& Installed() {
  static const TextServices* services = nullptr;
  return services;
}

}  // namespace

const TextServices& PortableTextServices() {
  static const Portable portable;
  return portable;
}

const TextServices& CurrentTextServices() { return Installed() ? *Installed() : PortableTextServices(); }

void InstallTextServices(const TextServices* services) { Installed() = services; }

}  // namespace pellora
