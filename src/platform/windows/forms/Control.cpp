#include "platform/windows/forms/Control.h"

#include "core/Error.h"
#include "forms/Form.h"
#include "platform/windows/forms/Form.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows {
namespace {

TOOLINFOW ToolFor(HWND form, HWND window) {
  TOOLINFOW tool{};
  // The size of the first version, which every version of the common controls takes.
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = form;
  tool.uId = reinterpret_cast<UINT_PTR>(window);
  return tool;
}

}  // namespace

WindowsControlPeer::WindowsControlPeer(WindowsFormPeer& form, pellora::Control& control)
    : m_form(form), m_control(control) {}

WindowsControlPeer::~WindowsControlPeer() {
  m_form.Forget(*this);
  if (!m_window) return;
  TellName({});
  ::DestroyWindow(m_window);
}

void WindowsControlPeer::Changed(Aspect aspect) {
  const Silence silence(*this);
  switch (aspect) {
    case Aspect::Bounds: return Move();
    case Aspect::ToolTip: return UpdateToolTip();
    case Aspect::Enabled:
    case Aspect::Visible:
    case Aspect::Page:
      Update(aspect);
      m_form.RefreshStates(m_control);
      return;
    default:
      if (m_window) Update(aspect);
  }
}

void WindowsControlPeer::Focus() {
  const Silence silence(*this);
  if (m_window && m_form.IsShown()) ::SetFocus(m_window);
  // Focus reports are silenced too, so the form hears of it here.
  m_form.FocusMoved(m_control);
}

void WindowsControlPeer::Report(WORD code) {
  if (!m_silent) OnCommand(code);
}

LRESULT WindowsControlPeer::Report(const NMHDR& header) { return OnNotify(header); }

void WindowsControlPeer::FontChanged() {
  if (m_window) Send(WM_SETFONT, reinterpret_cast<WPARAM>(Font()), TRUE);
}

void WindowsControlPeer::ColoursChanged() {
  if (m_window) Send(WM_SYSCOLORCHANGE);
}

HFONT WindowsControlPeer::Font() const { return m_form.GetFonts().Get(TextStyle::Normal); }

void WindowsControlPeer::RefreshState() {
  if (!m_window) return;
  const auto enabled = m_control.EnabledByAll();
  const auto visible = m_control.ShownByAll();
  if ((::IsWindowEnabled(m_window) != FALSE) != enabled) ::EnableWindow(m_window, enabled);
  const auto shows = (::GetWindowLongPtrW(m_window, GWL_STYLE) & WS_VISIBLE) != 0;
  if (shows != visible) ::ShowWindow(m_window, visible ? SW_SHOWNA : SW_HIDE);
}

void WindowsControlPeer::Make(const wchar_t* windowClass, DWORD style, DWORD exStyle) {
  const Silence silence(*this);
  const auto caption = NativeCaption(m_control.Caption(), m_control.AccessKey());
  const auto shown = m_control.ShownByAll() ? WS_VISIBLE : 0u;
  const auto enabled = m_control.EnabledByAll() ? 0u : WS_DISABLED;
  const auto& place = m_control.Bounds();
  m_window = ::CreateWindowExW(exStyle, windowClass, caption.c_str(), WS_CHILD | shown | enabled | style, place.left,
                               place.top, place.Width(), place.Height(), m_form.Window(), m_form.NewId(),
                               m_form.Module(), nullptr);
  if (!m_window) throw Error(errors::OutOfMemory);
  m_inner = InnerWindow();
  FontChanged();
  UpdateToolTip();
  RefreshName();
}

void WindowsControlPeer::RefreshName() {
  if (!m_window) return;
  // A picture or three dots name nothing, a label may stand elsewhere than in front of its control, and a doubled
  // ampersand would be read doubled.
  auto name = m_control.AccessibleName();
  if (name == m_control.Caption()) name.clear();
  if (name == m_toldName) return;
  TellName(name);
  m_toldName = std::move(name);
}

void WindowsControlPeer::TellName(const std::string& name) {
  for (HWND window : {m_window, m_inner}) {
    if (!window) continue;
    if (name.empty())
      m_form.Names().Clear(window);
    else
      m_form.Names().Set(window, name);
  }
}

LRESULT WindowsControlPeer::Send(UINT message, WPARAM wide, LPARAM low) const {
  return ::SendMessageW(m_window, message, wide, low);
}

void WindowsControlPeer::SetWindowCaption() {
  ::SetWindowTextW(m_window, NativeCaption(m_control.Caption(), m_control.AccessKey()).c_str());
  m_form.RefreshNames();
  m_form.RequestLayout();
}

void WindowsControlPeer::FocusReported() { m_form.FocusMoved(m_control); }

void WindowsControlPeer::Move() {
  if (m_window) m_form.Place(m_window, m_control.Bounds());
}

void WindowsControlPeer::UpdateToolTip() {
  if (!m_window) return;
  const auto text = Wide(m_control.ToolTip());
  UpdateToolTip(m_window, text);
  if (m_inner) UpdateToolTip(m_inner, text);
}

void WindowsControlPeer::UpdateToolTip(HWND window, const std::wstring& text) {
  auto copy = text;
  auto tool = ToolFor(m_form.Window(), window);
  tool.lpszText = copy.data();
  const auto send = [&](UINT message) {
    return ::SendMessageW(m_form.Tips(), message, 0, reinterpret_cast<LPARAM>(&tool));
  };
  send(TTM_DELTOOLW);
  if (!text.empty()) send(TTM_ADDTOOLW);
}

}  // namespace pellora::windows
