#include <algorithm>

#include "forms/TextBox.h"
#include "platform/windows/forms/Dpi.h"
#include "platform/windows/forms/Form.h"
#include "platform/windows/forms/Modal.h"

namespace pellora::windows {
namespace {

/// What a form with lists or long texts gets when it is shown for the first time, in hundredths of its least size.
constexpr int kComfort = 125;
/// How much of a caption must be on a display for the user to get hold of it.
constexpr int kGripDip = 32;

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

RECT WorkAreaNear(const RECT& rect) { return MonitorOf(::MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST)).rcWork; }

/// Placements count from the corner of the primary display's work area, windows from that of the display.
POINT WorkspaceOrigin() {
  const auto primary = MonitorOf(::MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY));
  return {primary.rcWork.left - primary.rcMonitor.left, primary.rcWork.top - primary.rcMonitor.top};
}

/// Moves a rectangle inside another; one that is too large keeps its left and top edges inside.
RECT MovedInside(RECT rect, const RECT& area) {
  const auto left = std::max(area.left, std::min(rect.left, area.right - WidthOf(rect)));
  const auto top = std::max(area.top, std::min(rect.top, area.bottom - HeightOf(rect)));
  ::OffsetRect(&rect, static_cast<int>(left - rect.left), static_cast<int>(top - rect.top));
  return rect;
}

RECT Centred(Size size, const RECT& over) {
  const auto left = over.left + (WidthOf(over) - size.width) / 2;
  const auto top = over.top + (HeightOf(over) - size.height) / 2;
  return {left, top, left + size.width, top + size.height};
}

}  // namespace

Size WindowsFormPeer::LeastClient() const {
  auto least = m_form.Layout() ? MeasureLayout(*m_form.Layout(), *m_fonts) : Size{};
  const auto margins = 2 * m_fonts->Scale(kFormMargin);
  return {least.width + margins, least.height + margins};
}

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

bool WindowsFormPeer::GainsByRoom() const {
  const auto gains = [](const pellora::Control* control) {
    switch (control->Kind()) {
      case ControlKind::Grid:
      case ControlKind::ListBox: return true;
      case ControlKind::TextBox: return static_cast<const pellora::TextBox*>(control)->MultiLine();
      default: return false;
    }
  };
  const auto controls = m_form.Descendants();
  return m_form.BorderStyle() == BorderStyle::Sizable && std::any_of(controls.begin(), controls.end(), gains);
}

void WindowsFormPeer::PlaceByDefault() {
  auto client = LeastClient();
  const auto owner = ::GetWindow(Window(), GW_OWNER);
  RECT over{};
  const auto overOwner = owner && ::IsWindowVisible(owner) && !::IsIconic(owner) && ::GetWindowRect(owner, &over);
  const auto work =
      overOwner ? WorkAreaNear(over) : MonitorOf(::MonitorFromWindow(Window(), MONITOR_DEFAULTTOPRIMARY)).rcWork;
  if (!overOwner) over = work;
  auto outer = OuterOf(client);
  if (GainsByRoom()) {
    const auto larger = OuterOf({client.width * kComfort / 100, client.height * kComfort / 100});
    outer.width = std::max(outer.width, std::min(larger.width, static_cast<int>(WidthOf(work))));
    outer.height = std::max(outer.height, std::min(larger.height, static_cast<int>(HeightOf(work))));
  }
  const auto place = MovedInside(Centred(outer, over), work);
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
  RECT outer{now.left, now.top, now.left + wanted.width, now.top + wanted.height};
  if (wanted.width > now.Width() || wanted.height > now.Height()) outer = MovedInside(outer, WorkAreaNear(outer));
  if (FromNative(outer) != now)
    ::SetWindowPos(Window(), nullptr, static_cast<int>(outer.left), static_cast<int>(outer.top), wanted.width,
                   wanted.height, SWP_NOZORDER | SWP_NOACTIVATE);
  LayOut();
}

RECT WindowsFormPeer::Reachable(RECT outer) const {
  const auto grip = static_cast<LONG>(m_fonts->Scale(kGripDip));
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
  auto normal = ToNative(placement.normal);
  const auto least = OuterOf(LeastClient());
  // A place remembered at a smaller scale: the buttons at the end would be off the display.
  const auto grows = WidthOf(normal) < least.width || HeightOf(normal) < least.height;
  normal.right = std::max<LONG>(normal.right, normal.left + least.width);
  normal.bottom = std::max<LONG>(normal.bottom, normal.top + least.height);
  const auto origin = WorkspaceOrigin();
  ::OffsetRect(&normal, origin.x, origin.y);
  normal = grows ? MovedInside(normal, WorkAreaNear(normal)) : Reachable(normal);
  ::OffsetRect(&normal, -origin.x, -origin.y);

  m_showCommand = placement.showCommand;
  m_placed = true;
  WINDOWPLACEMENT native{};
  native.length = sizeof(native);
  native.showCmd = IsShown() ? ShowCommand() : SW_HIDE;
  native.ptMinPosition = {placement.minimised.x, placement.minimised.y};
  native.ptMaxPosition = {placement.maximised.x, placement.maximised.y};
  native.rcNormalPosition = normal;
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
