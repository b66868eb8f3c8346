#include "platform/windows/services/WindowsTextServices.h"

#include "core/Error.h"
#include "platform/windows/ole/Failure.h"
#include "platform/windows/ole/Owners.h"

namespace pellora::windows {
namespace {

using ole::BStr;
using ole::Narrow;
using ole::Wide;

int Length(std::size_t size) { return static_cast<int>(size); }

SYSTEMTIME SystemTimeOf(double days) {
  SYSTEMTIME time{};
  if (!VariantTimeToSystemTime(days, &time)) throw Error(errors::InvalidCall);
  return time;
}

using Format = int (*)(const SYSTEMTIME& time, wchar_t* text, int size);

int FormatDate(const SYSTEMTIME& time, wchar_t* text, int size) {
  return GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, size);
}

int FormatTime(const SYSTEMTIME& time, wchar_t* text, int size) {
  return GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, text, size);
}

std::string Formatted(double days, Format format) {
  const SYSTEMTIME time = SystemTimeOf(days);
  const int size = format(time, nullptr, 0);
  if (size <= 0) throw Error(errors::InvalidCall);
  std::wstring text(static_cast<std::size_t>(size), L'\0');
  format(time, text.data(), size);
  text.resize(text.size() - 1);
  return Narrow(text);
}

}  // namespace

std::string ToAnsi(std::string_view text) {
  const std::wstring wide = Wide(text);
  if (wide.empty()) return {};
  const DWORD flags = GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
  const char* const substitute = flags ? "?" : nullptr;
  const int size =
      WideCharToMultiByte(CP_ACP, flags, wide.data(), Length(wide.size()), nullptr, 0, substitute, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, flags, wide.data(), Length(wide.size()), bytes.data(), size, substitute, nullptr);
  return bytes;
}

std::string FromAnsi(std::string_view bytes) {
  if (bytes.empty()) return {};
  const int size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), Length(bytes.size()), nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), Length(bytes.size()), wide.data(), size);
  return Narrow(wide);
}

std::string WindowsTextServices::Upper(std::string_view text) const {
  std::wstring wide = Wide(text);
  // Upper case by the simple mapping keeps the length, so it is done in place.
  if (!wide.empty()) CharUpperBuffW(wide.data(), static_cast<DWORD>(wide.size()));
  return Narrow(wide);
}

std::optional<double> WindowsTextServices::ParseNumber(std::string_view text) const {
  double value = 0;
  std::wstring wide = Wide(text);
  const HRESULT code = VarR8FromStr(wide.data(), m_locale, 0, &value);
  if (code == DISP_E_OVERFLOW) throw Error(errors::Overflow);
  return SUCCEEDED(code) ? std::optional(value) : std::nullopt;
}

std::string WindowsTextServices::NumberText(double value) const {
  BStr text;
  ole::Check(VarBstrFromR8(value, m_locale, 0, text.put()));
  return text.Text();
}

std::optional<double> WindowsTextServices::ParseDate(std::string_view text) const {
  DATE days = 0;
  std::wstring wide = Wide(text);
  const HRESULT code = VarDateFromStr(wide.data(), m_locale, 0, &days);
  return SUCCEEDED(code) ? std::optional<double>(days) : std::nullopt;
}

std::string WindowsTextServices::DateText(double days) const {
  BStr text;
  ole::Check(VarBstrFromDate(days, m_locale, 0, text.put()));
  return text.Text();
}

std::string WindowsTextServices::ShortDate(double days) const { return Formatted(days, FormatDate); }
std::string WindowsTextServices::LongTime(double days) const { return Formatted(days, FormatTime); }

std::string WindowsTextServices::ToSystemCodePage(std::string_view text) const { return ToAnsi(text); }
std::string WindowsTextServices::FromSystemCodePage(std::string_view bytes) const { return FromAnsi(bytes); }

}  // namespace pellora::windows
