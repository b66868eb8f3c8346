#pragma once

// Stands where the desktop's services will be included from.
#if __has_include("platform/libreoffice/services/SettingsFile.h")
#include "platform/libreoffice/services/DesktopShell.h"
#include "platform/libreoffice/services/LocaleFacts.h"
#include "platform/libreoffice/services/LocaleTextServices.h"
#include "platform/libreoffice/services/PlainLogFiles.h"
#include "platform/libreoffice/services/SettingsFile.h"
#include "platform/libreoffice/services/SystemClock.h"
#include "platform/libreoffice/services/SystemLog.h"
#else
#include <functional>
#include <string>
#include <vector>

#include "core/TextServices.h"
#include "support/Platform.h"

namespace pellora::libreoffice {

enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

struct LocaleFacts {
  std::string language = "en-US";
  std::string decimalSeparator = ".";
  std::string groupSeparator = ",";
  std::vector<std::string> currencies = {"$"};
  DateOrder dateOrder = DateOrder::MonthDayYear;
  std::string dateSeparator = "/";
  std::string shortDatePattern = "M/D/YYYY";
  std::string timeSeparator = ":";
  std::string longTimePattern = "H:MM:SS AM/PM";
  std::string am = "AM";
  std::string pm = "PM";
};

class SettingsFile : public Registry {
 public:
  explicit SettingsFile(std::string) {}
  static std::string DefaultPath() { return {}; }
  std::int32_t SetValue(std::int32_t, std::string_view, std::string_view, const RegistryValue&) override { return 2; }
  std::optional<RegistryValue> QueryValue(std::int32_t, std::string_view, std::string_view) override { return {}; }
  std::int32_t EnumerateValues(std::int32_t, std::string_view, std::vector<std::string>&) override { return 2; }
  std::int32_t DeleteKey(std::int32_t, std::string_view) override { return 2; }
};

class DesktopShell : public ShellApi {
 public:
  explicit DesktopShell(std::function<bool(const std::string&)>) {}
  std::int32_t Execute(std::string_view, std::string_view, std::string_view, std::string_view) override { return 31; }
  bool RunAndWait(std::string_view, std::string_view, std::string_view) override { return false; }
  bool FileExists(std::string_view) override { return false; }
  std::vector<std::string> DocumentVerbs(std::string_view) override { return {}; }
  std::int32_t ShowProperties(std::string_view, std::intptr_t) override { return 31; }
};

class SystemClock : public Clock {
 public:
  double Now() override { return 0; }
};

class SystemLog : public EventLog {
 public:
  bool WriteError(std::string_view, std::string_view) override { return false; }
  bool Available() override { return false; }
};

class PlainLogFiles : public LogFiles {
 public:
  bool Append(std::string_view, std::string_view) override { return false; }
  bool Delete(std::string_view) override { return false; }
};

class LocaleTextServices : public TextServices {
 public:
  explicit LocaleTextServices(LocaleFacts) {}
  std::string Upper(std::string_view text) const override { return m_plain.Upper(text); }
  std::optional<double> ParseNumber(std::string_view text) const override { return m_plain.ParseNumber(text); }
  std::string NumberText(double value) const override { return m_plain.NumberText(value); }
  std::optional<double> ParseDate(std::string_view text) const override { return m_plain.ParseDate(text); }
  std::string DateText(double days) const override { return m_plain.DateText(days); }
  std::string ShortDate(double days) const override { return m_plain.ShortDate(days); }
  std::string LongTime(double days) const override { return m_plain.LongTime(days); }
  std::string ToSystemCodePage(std::string_view text) const override { return std::string(text); }
  std::string FromSystemCodePage(std::string_view bytes) const override { return std::string(bytes); }

 private:
  const TextServices& m_plain = PortableTextServices();
};

}  // namespace pellora::libreoffice
#endif
