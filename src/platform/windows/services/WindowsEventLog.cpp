#include "platform/windows/services/WindowsEventLog.h"

#include <string>

#include "platform/windows/Windows.h"
#include "platform/windows/services/WindowsTextServices.h"

namespace pellora::windows {
namespace {

// The largest text the event log takes in one piece.
constexpr std::size_t kLongestText = 31839;

// The deprecated call is meant: only the platform id counts, which every version reports truly.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
bool ReportsNt(DWORD recordSize) {
  OSVERSIONINFOEXA version{};
  version.dwOSVersionInfoSize = recordSize;
  return GetVersionExA(reinterpret_cast<OSVERSIONINFOA*>(&version)) && version.dwPlatformId == VER_PLATFORM_WIN32_NT;
}
#pragma GCC diagnostic pop

}  // namespace

bool WindowsEventLog::WriteError(std::string_view source, std::string_view text) {
  const HANDLE log = RegisterEventSourceA(nullptr, ToAnsi(source).c_str());
  if (!log) return false;
  const std::string bytes = ToAnsi(text).substr(0, kLongestText);
  const char* strings[] = {bytes.c_str()};
  const bool written = ReportEventA(log, EVENTLOG_ERROR_TYPE, 0, 1, nullptr, 1, 0, strings, nullptr);
  DeregisterEventSource(log);
  return written;
}

bool WindowsEventLog::Available() { return ReportsNt(sizeof(OSVERSIONINFOEXA)) || ReportsNt(sizeof(OSVERSIONINFOA)); }

}  // namespace pellora::windows
