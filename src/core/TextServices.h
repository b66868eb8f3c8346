#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pellora {

/// The platform's text conversions in the user's locale: one of the seams a platform fills in. Everything that
/// depends on language or region goes through here. Dates are days since 1899-12-30, local time.
class TextServices {
 public:
  virtual ~TextServices() = default;

  /// The text in upper case, in every script, by the platform's simple case mapping.
  virtual std::string Upper(std::string_view text) const = 0;

  /// The number a text stands for in the user's locale (signs, separators, exponents, currency as the platform
  /// accepts them), nothing when it is not a number. An out-of-range number raises 6 (overflow).
  virtual std::optional<double> ParseNumber(std::string_view text) const = 0;
  /// The shortest usual text of a number in the user's locale: "1.5", in German "1,5"; "100" for 100.0.
  virtual std::string NumberText(double value) const = 0;

  /// The date a text stands for in the user's locale, nothing when it is not a date.
  virtual std::optional<double> ParseDate(std::string_view text) const = 0;
  /// A date as the platform converts it to text: date, time, or both when both are there.
  virtual std::string DateText(double days) const = 0;

  /// The date part in the system's short date format, the time part in its long time format.
  virtual std::string ShortDate(double days) const = 0;
  virtual std::string LongTime(double days) const = 0;

  /// Bytes in the system's code page for plain text files, and for interfaces without Unicode; characters it does
  /// not have become "?".
  virtual std::string ToSystemCodePage(std::string_view text) const = 0;
  virtual std::string FromSystemCodePage(std::string_view bytes) const = 0;
};

/// The text services in force: the platform's after `InstallTextServices`, otherwise a portable English set (point
/// as separator, m/d/yyyy dates, h:mm:ss AM/PM times, UTF-8 as code page).
const TextServices& CurrentTextServices();

/// Puts a platform's services in force; the caller keeps them alive. Null puts the portable set back.
void InstallTextServices(const TextServices* services);

/// The portable English set itself, for platforms that replace only a part.
const TextServices& PortableTextServices();

}  // namespace pellora
