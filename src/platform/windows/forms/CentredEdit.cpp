#include "platform/windows/forms/CentredEdit.h"

// After the platform's header, which it builds on.
#include <commctrl.h>

namespace pellora::windows {
namespace {

constexpr UINT_PTR kCentring = 1;

int LineHeightOf(HWND edit) {
  const auto dc = ::GetDC(edit);
  const auto before = ::SelectObject(dc, reinterpret_cast<HFONT>(::SendMessageW(edit, WM_GETFONT, 0, 0)));
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(dc, &metrics);
  ::SelectObject(dc, before);
  ::ReleaseDC(edit, dc);
  return static_cast<int>(metrics.tmHeight);
}

void Centre(HWND edit, RECT& client) {
  const auto spare = static_cast<int>(client.bottom - client.top) - LineHeightOf(edit);
  if (spare <= 0) return;
  client.top += spare / 2;
  client.bottom -= spare - spare / 2;
}

HBRUSH BrushOf(HWND edit, HDC dc) {
  const auto changeable = ::IsWindowEnabled(edit) && !(::GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY);
  return reinterpret_cast<HBRUSH>(::SendMessageW(::GetParent(edit), changeable ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC,
                                                 reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(edit)));
}

void PaintAroundText(HWND edit) {
  RECT window{}, client{};
  ::GetWindowRect(edit, &window);
  ::GetClientRect(edit, &client);
  ::MapWindowPoints(edit, nullptr, reinterpret_cast<POINT*>(&client), 2);
  ::OffsetRect(&client, static_cast<int>(-window.left), static_cast<int>(-window.top));
  ::OffsetRect(&window, static_cast<int>(-window.left), static_cast<int>(-window.top));
  // An edit in a combo has no edge of its own.
  if (::GetWindowLongPtrW(edit, GWL_EXSTYLE) & WS_EX_CLIENTEDGE)
    ::InflateRect(&window, -::GetSystemMetrics(SM_CXEDGE), -::GetSystemMetrics(SM_CYEDGE));
  const auto dc = ::GetWindowDC(edit);
  ::ExcludeClipRect(dc, static_cast<int>(client.left), static_cast<int>(client.top), static_cast<int>(client.right),
                    static_cast<int>(client.bottom));
  ::FillRect(dc, &window, BrushOf(edit, dc));
  ::ReleaseDC(edit, dc);
}

void FrameChanged(HWND edit) {
  ::SetWindowPos(edit, nullptr, 0, 0, 0, 0, SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CALLBACK Centring(HWND edit, UINT message, WPARAM wide, LPARAM low, UINT_PTR, DWORD_PTR) noexcept {
  if (message == WM_NCDESTROY) ::RemoveWindowSubclass(edit, &Centring, kCentring);
  const auto answer = ::DefSubclassProc(edit, message, wide, low);
  switch (message) {
    // Both shapes of this message begin with the rectangle.
    case WM_NCCALCSIZE: Centre(edit, *reinterpret_cast<RECT*>(low)); break;
    case WM_NCPAINT: PaintAroundText(edit); break;
    case WM_SETFONT: FrameChanged(edit); break;
    case WM_ENABLE: ::RedrawWindow(edit, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE); break;
    // The mouse finds the text as high as the edit looks.
    case WM_NCHITTEST: return answer == HTNOWHERE || answer == HTBORDER ? HTCLIENT : answer;
    default: break;
  }
  return answer;
}

}  // namespace

void CentreTextOf(HWND edit) {
  ::SetWindowSubclass(edit, &Centring, kCentring, 0);
  FrameChanged(edit);
}

}  // namespace pellora::windows
