#include "platform/libreoffice/services/LocaleTextServices.h"

#include <wctype.h>

#include <algorithm>
#include <utility>

#include "core/Calendar.h"
#include "core/Error.h"
#include "core/Text.h"
#include "platform/libreoffice/services/DateReading.h"
#include "platform/libreoffice/services/DateWriting.h"
#include "platform/libreoffice/services/NumberReading.h"

namespace pellora::libreoffice {
namespace {

/// The first day of the year 100, and the day after the last of 9999.
constexpr double kFirstDay = -657434;
constexpr double kEndOfDays = 2958466;

void CheckMoment(double days) {
  // Written so that what is no number fails too.
  if (!(days > kFirstDay - 1 && days < kEndOfDays)) throw Error(errors::InvalidCall);
}

void AppendPoint(std::u16string& units, char32_t point) {
  if (point < 0x10000) {
    units += static_cast<char16_t>(point);
  } else {
    units += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
    units += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
  }
}

bool IsLeadUnit(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }

locale_t UnicodeLetters() {
  // Every system has one of these; the first comes with the C library itself since 2021.
  for (const char* name : {"C.UTF-8", "C.utf8", "en_US.UTF-8"})
    if (const locale_t locale = newlocale(LC_CTYPE_MASK, name, nullptr)) return locale;
  return newlocale(LC_CTYPE_MASK, "C", nullptr);
}

}  // namespace

LocaleTextServices::LocaleTextServices(LocaleFacts facts) : m_facts(std::move(facts)), m_letters(UnicodeLetters()) {
  if (m_facts.decimalSeparator.empty()) m_facts.decimalSeparator = ".";
  if (m_facts.am.empty()) m_facts.am = "AM";
  if (m_facts.pm.empty()) m_facts.pm = "PM";
  // The longest first, as one may begin with another.
  std::sort(m_facts.currencies.begin(), m_facts.currencies.end(),
            [](const auto& left, const auto& right) { return left.size() > right.size(); });
}

std::string LocaleTextServices::Upper(std::string_view text) const {
  const std::u16string units = ToUtf16(text);
  std::u16string upper;
  upper.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t point = units[i];
    // What `ToUtf16` answers is well formed: after a lead unit comes its other half.
    if (IsLeadUnit(units[i]) && i + 1 < units.size()) {
      point = 0x10000 + ((point - 0xD800) << 10) + (units[i + 1] - 0xDC00u);
      ++i;
    }
    AppendPoint(upper, static_cast<char32_t>(towupper_l(static_cast<wint_t>(point), m_letters.get())));
  }
  return ToUtf8(upper);
}

std::optional<double> LocaleTextServices::ParseNumber(std::string_view text) const { return ReadNumber(text, m_facts); }

std::string LocaleTextServices::NumberText(double value) const {
  return Replace(PortableTextServices().NumberText(value), ".", m_facts.decimalSeparator);
}

std::optional<double> LocaleTextServices::ParseDate(std::string_view text) const { return ReadDate(text, m_facts); }

std::string LocaleTextServices::DateText(double days) const {
  CheckMoment(days);
  const CalendarDate date = DateFromDays(days);
  const ClockTime time = TimeFromDays(days);
  // Day 0 has no date text of its own: such a value is a time of day.
  if (DaysFromDate(date) == 0) return LongTime(days);
  const bool midnight = time.hour == 0 && time.minute == 0 && time.second == 0;
  return midnight ? ShortDate(days) : ShortDate(days) + " " + LongTime(days);
}

std::string LocaleTextServices::ShortDate(double days) const {
  CheckMoment(days);
  return WriteDate(DateFromDays(days), m_facts.shortDatePattern);
}

std::string LocaleTextServices::LongTime(double days) const {
  CheckMoment(days);
  return WriteTime(TimeFromDays(days), m_facts.longTimePattern, m_facts.am, m_facts.pm);
}

std::string LocaleTextServices::ToSystemCodePage(std::string_view text) const { return std::string(text); }

std::string LocaleTextServices::FromSystemCodePage(std::string_view bytes) const { return ToUtf8(ToUtf16(bytes)); }

}  // namespace pellora::libreoffice
