#include <algorithm>

#include "forms/Placing.h"
#include "platform/windows/forms/Dpi.h"
#include "platform/windows/forms/Form.h"
#include "platform/windows/forms/Modal.h"

namespace pellora::windows {
namespace {

RECT ToNative(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }
Rect FromNative(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}
LONG WidthOf(const RECT& rect) { return rect.right - rect.left; }
LONG HeightOf(const RECT& rect) { return rect.bottom - rect.top; }

MONITORINFO MonitorOf(HMONITOR monitor) {
  MONITORINFO info{};
  info.cbSize = sizeof(info);
  ::GetMonitorInfoW(monitor, &info);
  return info;
}

Rect WorkAreaNear(const Rect& rect) {
  const auto native = ToNative(rect);
  return FromNative(MonitorOf(::MonitorFromRect(&native, MONITOR_DEFAULTTONEAREST)).rcWork);
}

/// Placements count from the corner of the primary display's work area, windows from that of the display.
Point WorkspaceOrigin() {
  const auto primary = MonitorOf(::MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY));
  return {static_cast<int>(primary.rcWork.left - primary.rcMonitor.left),
          static_cast<int>(primary.rcWork.top - primary.rcMonitor.top)};
}

}  // namespace

Size WindowsFormPeer::LeastClient() const { return pellora::LeastClient(m_form, *m_fonts); }

Size WindowsFormPeer::OuterOf(Size client) const {
  const auto outer = OuterRect({0, 0, client.width, client.height}, Window(), DpiOf(Window()));
  return {static_cast<int>(WidthOf(outer)), static_cast<int>(HeightOf(outer))};
}

Rect WindowsFormPeer::OuterPlace() const {
  RECT outer{};
  ::GetWindowRect(Window(), &outer);
  return FromNative(outer);
}

void WindowsFormPeer::LayOut() {
  if (!m_form.Layout()) return;
  RECT client{};
  ::GetClientRect(Window(), &client);
  m_moves = ::BeginDeferWindowPos(static_cast<int>(m_peers.size()));
  PlaceLayout(*m_form.Layout(), {static_cast<int>(client.right), static_cast<int>(client.bottom)}, *m_fonts);
  if (const auto moves = std::exchange(m_moves, nullptr)) ::EndDeferWindowPos(moves);
  for (auto* peer : std::vector(m_peers)) peer->Placed();
  // Group boxes leave traces of their old borders behind.
  ::InvalidateRect(Window(), nullptr, TRUE);
}

void WindowsFormPeer::Place(HWND child, const Rect& bounds) {
  constexpr UINT flags = SWP_NOZORDER | SWP_NOACTIVATE;
  if (m_moves)
    m_moves =
        ::DeferWindowPos(m_moves, child, nullptr, bounds.left, bounds.top, bounds.Width(), bounds.Height(), flags);
  else
    ::SetWindowPos(child, nullptr, bounds.left, bounds.top, bounds.Width(), bounds.Height(), flags);
}

void WindowsFormPeer::PlaceByDefault() {
  const auto owner = ::GetWindow(Window(), GW_OWNER);
  RECT over{};
  const auto overOwner = owner && ::IsWindowVisible(owner) && !::IsIconic(owner) && ::GetWindowRect(owner, &over);
  const auto work = overOwner ? WorkAreaNear(FromNative(over))
                              : FromNative(MonitorOf(::MonitorFromWindow(Window(), MONITOR_DEFAULTTOPRIMARY)).rcWork);
  const auto frame = OuterOf({});
  const auto outer = OuterOf(FirstClient(m_form, *m_fonts, {work.Width() - frame.width, work.Height() - frame.height}));
  const auto place = MovedInside(Centred(outer, overOwner ? FromNative(over) : work), work);
  ::SetWindowPos(Window(), nullptr, place.left, place.top, outer.width, outer.height, SWP_NOZORDER | SWP_NOACTIVATE);
  LayOut();
}

void WindowsFormPeer::FitToContent() {
  // Texts may have grown since the form was placed.
  if (!m_placed && !IsShown()) return PlaceByDefault();
  const auto least = OuterOf(LeastClient());
  const auto now = OuterPlace();
  const auto grows = m_form.BorderStyle() == BorderStyle::Sizable;
  const Size wanted{grows ? std::max(least.width, now.Width()) : least.width,
                    grows ? std::max(least.height, now.Height()) : least.height};
  Rect outer{now.left, now.top, now.left + wanted.width, now.top + wanted.height};
  if (wanted.width > now.Width() || wanted.height > now.Height()) outer = MovedInside(outer, WorkAreaNear(outer));
  if (outer != now)
    ::SetWindowPos(Window(), nullptr, outer.left, outer.top, wanted.width, wanted.height,
                   SWP_NOZORDER | SWP_NOACTIVATE);
  LayOut();
}

Rect WindowsFormPeer::Reachable(const Rect& outer) const {
  const auto grip = m_fonts->Scale(kGripDip);
  const RECT caption{outer.left, outer.top, outer.right, outer.top + grip};
  if (const auto monitor = ::MonitorFromRect(&caption, MONITOR_DEFAULTTONULL)) {
    RECT shared{};
    const auto work = MonitorOf(monitor).rcWork;
    if (::IntersectRect(&shared, &caption, &work) && WidthOf(shared) >= grip && caption.top >= work.top) return outer;
  }
  return MovedInside(outer, WorkAreaNear(outer));
}

std::optional<Placement> WindowsFormPeer::GetPlacement() {
  const DpiScope pixels;
  WINDOWPLACEMENT native{};
  native.length = sizeof(native);
  if (!m_window || !::GetWindowPlacement(Window(), &native)) return std::nullopt;
  const auto command = IsShown() ? static_cast<int>(native.showCmd) : m_showCommand;
  return Placement{command,
                   {static_cast<int>(native.ptMinPosition.x), static_cast<int>(native.ptMinPosition.y)},
                   {static_cast<int>(native.ptMaxPosition.x), static_cast<int>(native.ptMaxPosition.y)},
                   FromNative(native.rcNormalPosition)};
}

bool WindowsFormPeer::SetPlacement(const Placement& placement) {
  const DpiScope pixels;
  if (!m_window) return false;
  auto normal = placement.normal;
  const auto least = OuterOf(LeastClient());
  // A place remembered at a smaller scale: the buttons at the end would be off the display.
  const auto grows = normal.Width() < least.width || normal.Height() < least.height;
  normal.right = std::max(normal.right, normal.left + least.width);
  normal.bottom = std::max(normal.bottom, normal.top + least.height);
  const auto origin = WorkspaceOrigin();
  normal = Moved(normal, origin.x, origin.y);
  normal = grows ? MovedInside(normal, WorkAreaNear(normal)) : Reachable(normal);

  m_showCommand = placement.showCommand;
  m_placed = true;
  WINDOWPLACEMENT native{};
  native.length = sizeof(native);
  native.showCmd = IsShown() ? ShowCommand() : SW_HIDE;
  native.ptMinPosition = {placement.minimised.x, placement.minimised.y};
  native.ptMaxPosition = {placement.maximised.x, placement.maximised.y};
  native.rcNormalPosition = ToNative(Moved(normal, -origin.x, -origin.y));
  return ::SetWindowPlacement(Window(), &native) != FALSE;
}

UINT WindowsFormPeer::ShowCommand() const {
  // A modal dialog that came up minimised or hidden would leave the host disabled with nothing to be seen.
  const auto sizable = m_form.BorderStyle() == BorderStyle::Sizable;
  const auto maximised = m_showCommand == SW_SHOWMAXIMIZED || m_form.WindowState() == WindowState::Maximized;
  return sizable && maximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
}

void WindowsFormPeer::RememberState() {
  // A hidden window has no state of its own any more.
  WINDOWPLACEMENT native{};
  native.length = sizeof(native);
  if (!::GetWindowPlacement(Window(), &native)) return;
  const auto minimised = native.showCmd == SW_SHOWMINIMIZED;
  const auto maximised = minimised ? (native.flags & WPF_RESTORETOMAXIMIZED) != 0 : native.showCmd == SW_SHOWMAXIMIZED;
  m_showCommand = maximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
  m_form.WindowState(maximised ? WindowState::Maximized : WindowState::Normal);
}

Rect WindowsFormPeer::Desktop() {
  const DpiScope pixels;
  RECT desktop{};
  ::GetWindowRect(::GetDesktopWindow(), &desktop);
  return FromNative(desktop);
}

Size WindowsFormPeer::OuterSize() {
  const DpiScope pixels;
  if (!m_window) return {};
  const auto outer = OuterPlace();
  return {outer.Width(), outer.Height()};
}

void WindowsFormPeer::OnMinMaxInfo(MINMAXINFO& info) const {
  const auto least = OuterOf(LeastClient());
  info.ptMinTrackSize = {least.width, least.height};
}

void WindowsFormPeer::OnDpiChanged(int dpi, const RECT& suggested) {
  if (m_surroundings.forcedDpi) return;
  // Painted once at the end, not after each of many changes.
  const auto shown = IsShown();
  if (shown) ::SendMessageW(Window(), WM_SETREDRAW, FALSE, 0);
  SetFonts(dpi);
  const auto least = OuterOf(LeastClient());
  const auto fixed = m_form.BorderStyle() != BorderStyle::Sizable;
  const auto width = fixed ? least.width : std::max<int>(least.width, WidthOf(suggested));
  const auto height = fixed ? least.height : std::max<int>(least.height, HeightOf(suggested));
  ::SetWindowPos(Window(), nullptr, suggested.left, suggested.top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  LayOut();
  if (!shown) return;
  ::SendMessageW(Window(), WM_SETREDRAW, TRUE, 0);
  ::RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

}  // namespace pellora::windows
