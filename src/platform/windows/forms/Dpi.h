#pragma once

#include "platform/windows/Windows.h"

namespace pellora::windows {

/// While one lives, windows that the thread makes and places that it asks for are in real pixels of each display
/// (per-monitor awareness, version 2 where the system has it), whatever the host has chosen. Does nothing on systems
/// without that.
class DpiScope {
 public:
  DpiScope();
  ~DpiScope();
  DpiScope(const DpiScope&) = delete;
  DpiScope& operator=(const DpiScope&) = delete;

 private:
  void* m_previous;
  bool m_outermost;
};

/// Gives the host its own awareness back, for a call into the host from within a `DpiScope`. Outside one it does
/// nothing.
class HostDpiScope {
 public:
  HostDpiScope();
  ~HostDpiScope();
  HostDpiScope(const HostDpiScope&) = delete;
  HostDpiScope& operator=(const HostDpiScope&) = delete;

 private:
  void* m_previous;
};

/// Dots per inch of the display that shows a window, or of the system where displays do not differ.
int DpiOf(HWND window);

/// The outer rectangle of a window whose client area is `client`.
RECT OuterRect(RECT client, HWND window, int dpi);

/// The font of messages and dialogs, at a scale.
LOGFONTW MessageFont(int dpi);

}  // namespace pellora::windows
