#pragma once

#include <clocale>
#include <memory>
#include <type_traits>

#include "core/TextServices.h"
#include "platform/libreoffice/services/LocaleFacts.h"

namespace pellora::libreoffice {

/// Text conversions by the facts of a locale that are handed in. The process's own locale has no part in them, and is
/// left alone.
///
/// Numbers: blanks around; a sign before or after, or parentheses for a negative number; a currency before or after;
/// groups of digits of any length; a decimal separator; an exponent ("1e3"); "&H1F" and "&O17", of 32 bits. A number
/// too small is 0. Dates: three numbers in the locale's order, or the year first, a year of two digits between 1930
/// and 2029; a time "h:mm" or "h:mm:ss", with or without AM or PM; a date, a time, or both. A moment that no date of
/// the host has (before the year 100, after 9999) raises 5 (invalid call).
class LocaleTextServices : public TextServices {
 public:
  explicit LocaleTextServices(LocaleFacts facts);

  /// By the Unicode tables of the C library ("C.UTF-8"), one character for one, the same in every language.
  std::string Upper(std::string_view text) const override;
  std::optional<double> ParseNumber(std::string_view text) const override;
  std::string NumberText(double value) const override;
  std::optional<double> ParseDate(std::string_view text) const override;
  std::string DateText(double days) const override;
  std::string ShortDate(double days) const override;
  std::string LongTime(double days) const override;
  /// The code page is UTF-8. Bytes that are none become U+FFFD when they come in.
  std::string ToSystemCodePage(std::string_view text) const override;
  std::string FromSystemCodePage(std::string_view bytes) const override;

 private:
  struct FreeLocale {
    void operator()(locale_t locale) const { freelocale(locale); }
  };
  LocaleFacts m_facts;
  std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale> m_letters;
};

}  // namespace pellora::libreoffice
