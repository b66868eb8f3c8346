#include "platform/windows/forms/Dpi.h"

#include <cstring>
#include <cwchar>

namespace pellora::windows {
namespace {

// DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2 and its first version, which the first systems with displays of different
// scales have alone, and Wine 8: the constants are missing where the header is set to older systems.
void* const kPerMonitorV2 = reinterpret_cast<void*>(static_cast<INT_PTR>(-4));
void* const kPerMonitor = reinterpret_cast<void*>(static_cast<INT_PTR>(-3));

// The awareness the host's thread had when the outermost scope began. Calls into the host are made far away from the
// code that opened that scope, so it cannot be handed along.
void* hostContext = nullptr;

/// A function of user32 that older systems lack, or null.
template <class Function>
Function Find(const char* name) {
  const auto found = ::GetProcAddress(::GetModuleHandleW(L"user32.dll"), name);
  Function function = nullptr;
  static_assert(sizeof(function) == sizeof(found));
  std::memcpy(&function, &found, sizeof(function));
  return function;
}

void* SetContext(void* context) {
  static const auto set = Find<void*(WINAPI*)(void*)>("SetThreadDpiAwarenessContext");
  return set && context ? set(context) : nullptr;
}

void* SetPerMonitor() {
  const auto previous = SetContext(kPerMonitorV2);
  return previous ? previous : SetContext(kPerMonitor);
}

int SystemDpi() {
  const auto screen = ::GetDC(nullptr);
  const auto dpi = ::GetDeviceCaps(screen, LOGPIXELSY);
  ::ReleaseDC(nullptr, screen);
  return dpi;
}

/// True when the system knows the font at that very scale.
bool MetricsForDpi(NONCLIENTMETRICSW& metrics, int dpi) {
  static const auto query = Find<BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT)>("SystemParametersInfoForDpi");
  return query && query(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0, static_cast<UINT>(dpi));
}

LOGFONTW FallbackFont(int dpi) {
  LOGFONTW font{};
  font.lfHeight = -::MulDiv(9, dpi, 72);
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = DEFAULT_CHARSET;
  std::wcscpy(font.lfFaceName, L"MS Shell Dlg");
  return font;
}

}  // namespace

DpiScope::DpiScope() : m_previous(SetPerMonitor()), m_outermost(m_previous && !hostContext) {
  if (m_outermost) hostContext = m_previous;
}

DpiScope::~DpiScope() {
  SetContext(m_previous);
  if (m_outermost) hostContext = nullptr;
}

HostDpiScope::HostDpiScope() : m_previous(SetContext(hostContext)) {}

HostDpiScope::~HostDpiScope() { SetContext(m_previous); }

int DpiOf(HWND window) {
  static const auto query = Find<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
  const auto dpi = query ? static_cast<int>(query(window)) : 0;
  return dpi > 0 ? dpi : SystemDpi();
}

RECT OuterRect(RECT client, HWND window, int dpi) {
  static const auto adjust = Find<BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
  const auto style = static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_STYLE));
  const auto exStyle = static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_EXSTYLE));
  if (adjust && adjust(&client, style, FALSE, exStyle, static_cast<UINT>(dpi))) return client;
  ::AdjustWindowRectEx(&client, style, FALSE, exStyle);
  return client;
}

LOGFONTW MessageFont(int dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  if (MetricsForDpi(metrics, dpi)) return metrics.lfMessageFont;
  metrics.cbSize = sizeof(metrics);
  if (!::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0)) return FallbackFont(dpi);
  metrics.lfMessageFont.lfHeight = ::MulDiv(metrics.lfMessageFont.lfHeight, dpi, SystemDpi());
  return metrics.lfMessageFont;
}

}  // namespace pellora::windows
