#include "platform/windows/forms/Form.h"

#include <algorithm>

#include "core/Error.h"
#include "platform/windows/forms/CommandButton.h"
#include "platform/windows/forms/Dpi.h"
#include "platform/windows/forms/Modal.h"
#include "platform/windows/forms/Pages.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows {
namespace {

constexpr UINT kLayOutAgain = WM_APP + 1;

/// An empty dialog: the structure is followed by empty names of a menu and a class, and an empty title.
struct EmptyDialog {
  DLGTEMPLATE dialog;
  WORD menu = 0;
  WORD windowClass = 0;
  WORD title = 0;
};

EmptyDialog DialogFor(const pellora::Form& form) {
  const auto sizable = form.BorderStyle() == BorderStyle::Sizable;
  EmptyDialog made{};
  made.dialog.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | (sizable ? WS_THICKFRAME | WS_MAXIMIZEBOX : 0u);
  // Without the frame style a sizable dialog shows the generic program's icon.
  made.dialog.dwExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
  return made;
}

}  // namespace

WindowsFormPeer::WindowsFormPeer(pellora::Form& form, const Surroundings& surroundings)
    : m_form(form), m_surroundings(surroundings) {
  MakeWindow();
  SetFonts(DisplayDpi());
  MakeTips();
  try {
    MakePeers();
  } catch (...) {
    // Peers made so far refer to this one.
    for (auto* control : form.Descendants()) control->AttachPeer(nullptr);
    throw;
  }
  PlaceByDefault();
}

WindowsFormPeer::~WindowsFormPeer() {
  if (m_window) ::SetWindowLongPtrW(m_window.get(), DWLP_USER, 0);
}

void WindowsFormPeer::MakeWindow() {
  const auto dialog = DialogFor(m_form);
  const auto window = ::CreateDialogIndirectParamW(m_surroundings.module, &dialog.dialog, WindowToBeOver(), &DialogProc,
                                                   reinterpret_cast<LPARAM>(this));
  if (!window) throw Error(errors::OutOfMemory);
  m_window.attach(window);
  CaptionChanged();
}

void WindowsFormPeer::MakeTips() {
  m_tips = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0, 0, 0, Window(),
                             nullptr, m_surroundings.module, nullptr);
  FollowTipsFont();
}

void WindowsFormPeer::FollowTipsFont() {
  // Tips take the font of the scale at which the program was started.
  if (m_tips) ::SendMessageW(m_tips, WM_SETFONT, reinterpret_cast<WPARAM>(m_fonts->Get(TextStyle::Normal)), FALSE);
}

void WindowsFormPeer::MakePeers() {
  for (auto* control : m_form.Descendants()) {
    auto peer = MakePeer(*this, *control);
    m_peers.push_back(peer.get());
    control->AttachPeer(std::move(peer));
  }
}

int WindowsFormPeer::DisplayDpi() const {
  return m_surroundings.forcedDpi ? m_surroundings.forcedDpi : DpiOf(Window());
}

void WindowsFormPeer::SetFonts(int dpi) {
  auto before = std::move(m_fonts);
  m_fonts.emplace(dpi);
  for (auto* peer : m_peers) peer->FontChanged();
  FollowTipsFont();
}

void WindowsFormPeer::Lost() {
  m_window.detach();
  m_tips = nullptr;
  for (auto* peer : m_peers) peer->Lost();
  EndModal();
}

void WindowsFormPeer::Forget(WindowsControlPeer& peer) {
  std::erase(m_peers, &peer);
  if (m_shownDefault == &peer) m_shownDefault = nullptr;
}

HMENU WindowsFormPeer::NewId() { return reinterpret_cast<HMENU>(static_cast<INT_PTR>(++m_lastId)); }

bool WindowsFormPeer::IsShown() const { return m_window && ::IsWindowVisible(Window()); }

void WindowsFormPeer::CaptionChanged() {
  if (m_window) ::SetWindowTextW(Window(), Wide(DisplayText(m_form.Caption())).c_str());
}

void WindowsFormPeer::RequestLayout() {
  if (m_layoutAsked || !IsShown()) return;
  m_layoutAsked = ::PostMessageW(Window(), kLayOutAgain, 0, 0) != FALSE;
}

void WindowsFormPeer::RefreshNames() {
  for (auto* peer : m_peers) peer->RefreshName();
}

void WindowsFormPeer::RefreshStates(pellora::Control& changed) {
  const auto* focused = PeerAt(::GetFocus());
  for (auto* peer : std::vector(m_peers))
    if (peer->GetControl().IsWithin(changed)) peer->RefreshState();
  // The platform leaves the keyboard with no window at all when it takes it from one.
  if (focused && !focused->GetControl().TakesFocus()) FocusActive();
}

INT_PTR CALLBACK WindowsFormPeer::DialogProc(HWND window, UINT message, WPARAM wide, LPARAM low) noexcept try {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrW(window, DWLP_USER, low);
    return FALSE;
  }
  auto* peer = reinterpret_cast<WindowsFormPeer*>(::GetWindowLongPtrW(window, DWLP_USER));
  return peer && peer->Window() == window ? peer->OnMessage(message, wide, low) : FALSE;
} catch (...) {
  // Nothing may pass through the platform's frames; the form stays as it is.
  return FALSE;
}

INT_PTR WindowsFormPeer::OnMessage(UINT message, WPARAM wide, LPARAM low) {
  switch (message) {
    case WM_COMMAND:
      if (auto* peer = low ? PeerAt(reinterpret_cast<HWND>(low)) : nullptr) peer->Report(HIWORD(wide));
      return TRUE;
    case WM_NOTIFY: return OnNotify(*reinterpret_cast<const NMHDR*>(low));
    case WM_CLOSE:
      // One in the background can be asked too, by the taskbar for instance.
      if (::IsWindowEnabled(Window())) m_form.PeerClose();
      return TRUE;
    case WM_ACTIVATE: OnActivate(LOWORD(wide) != WA_INACTIVE); return TRUE;
    case WM_SETFOCUS: FocusActive(); return TRUE;
    case WM_SIZE:
      if (wide != SIZE_MINIMIZED) LayOut();
      return TRUE;
    case kLayOutAgain:
      m_layoutAsked = false;
      FitToContent();
      return TRUE;
    case WM_GETMINMAXINFO: OnMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(low)); return TRUE;
    case WM_CTLCOLORSTATIC: return OnBackground(reinterpret_cast<HDC>(wide), PeerAt(reinterpret_cast<HWND>(low)));
    case WM_DPICHANGED: OnDpiChanged(HIWORD(wide), *reinterpret_cast<const RECT*>(low)); return TRUE;
    case WM_SYSCOLORCHANGE: OnColoursChanged(); return TRUE;
    case WM_DESTROY: Lost(); return FALSE;
    default: return FALSE;
  }
}

INT_PTR WindowsFormPeer::OnNotify(const NMHDR& header) {
  auto* peer = PeerAt(header.hwndFrom);
  if (!peer) return FALSE;
  ::SetWindowLongPtrW(Window(), DWLP_MSGRESULT, peer->Report(header));
  return TRUE;
}

INT_PTR WindowsFormPeer::OnBackground(HDC surface, const WindowsControlPeer* peer) const {
  const auto isText = peer && peer->GetControl().Kind() == ControlKind::TextBox;
  const auto brush = peer && !isText ? BackgroundOnTabs(peer->GetControl()) : nullptr;
  if (brush) ::SetBkMode(surface, TRANSPARENT);
  return reinterpret_cast<INT_PTR>(brush);
}

void WindowsFormPeer::OnColoursChanged() {
  // The system tells windows of the top only.
  for (auto* peer : m_peers) peer->ColoursChanged();
  ::RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void WindowsFormPeer::OnActivate(bool active) {
  if (!active || !IsShown()) return;
  m_activated = true;
  FocusActive();
  m_form.PeerActivate();
}

WindowsControlPeer* WindowsFormPeer::PeerAt(HWND window) const {
  // The edit inside a combo box or the header of a list stands for the control around it.
  while (window && window != Window() && ::GetParent(window) != Window()) window = ::GetParent(window);
  if (!window) return nullptr;
  const auto found = std::find_if(m_peers.begin(), m_peers.end(), [&](auto* peer) { return peer->Window() == window; });
  return found == m_peers.end() ? nullptr : *found;
}

}  // namespace pellora::windows
