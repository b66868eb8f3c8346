#pragma once

#include <memory>

#include "platform/windows/Windows.h"
#include "platform/windows/ole/AutomationObject.h"
#include "platform/windows/services/WindowsClock.h"
#include "platform/windows/services/WindowsEventLog.h"
#include "platform/windows/services/WindowsLogFiles.h"
#include "platform/windows/services/WindowsRegistry.h"
#include "platform/windows/services/WindowsShell.h"
#include "platform/windows/services/WindowsTextServices.h"
#include "support/Platform.h"

namespace pellora::windows {

/// All seams on Windows, in one place, installed as the current platform for as long as it lives: the native windows,
/// the services, the conversions, and what stands around calls into the host.
class WindowsPlatform {
 public:
  /// `module` carries the version resource and, as resource 2, the manifest of the common controls.
  explicit WindowsPlatform(HINSTANCE module);
  ~WindowsPlatform();
  WindowsPlatform(const WindowsPlatform&) = delete;
  WindowsPlatform& operator=(const WindowsPlatform&) = delete;

 private:
  std::unique_ptr<Toolkit> m_toolkit;
  std::unique_ptr<ole::CallHook> m_callHook;
  WindowsRegistry m_registry;
  WindowsShell m_shell;
  WindowsClock m_clock;
  WindowsEventLog m_eventLog;
  WindowsLogFiles m_logFiles;
  WindowsTextServices m_textServices;
  Platform m_platform;
};

}  // namespace pellora::windows
