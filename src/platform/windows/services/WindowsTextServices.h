#pragma once

#include "core/TextServices.h"

namespace pellora::windows {

/// Text conversions in the user's locale, by the automation library's own conversions, so that numbers and dates read
/// and print as in the host's macros.
class WindowsTextServices : public TextServices {
 public:
  /// The user's locale, or the one of an identifier as the system numbers them (0x0407: German).
  explicit WindowsTextServices(unsigned long locale = 0x0400) : m_locale(locale) {}

  std::string Upper(std::string_view text) const override;
  std::optional<double> ParseNumber(std::string_view text) const override;
  std::string NumberText(double value) const override;
  std::optional<double> ParseDate(std::string_view text) const override;
  std::string DateText(double days) const override;
  std::string ShortDate(double days) const override;
  std::string LongTime(double days) const override;
  std::string ToSystemCodePage(std::string_view text) const override;
  std::string FromSystemCodePage(std::string_view bytes) const override;

 private:
  unsigned long m_locale;
};

/// Bytes of the system's code page for calls without Unicode, and back. They are what those functions of
/// `WindowsTextServices` answer, for the services beside it. Characters the code page lacks become "?".
std::string ToAnsi(std::string_view text);
std::string FromAnsi(std::string_view bytes);

}  // namespace pellora::windows
