#include <algorithm>
#include <array>

#include "forms/TextBox.h"
#include "platform/windows/forms/CommandButton.h"
#include "platform/windows/forms/Dpi.h"
#include "platform/windows/forms/Form.h"

namespace pellora::windows {
namespace {

struct KnownKey {
  WPARAM native;
  Key key;
};

constexpr std::array kKnownKeys = {KnownKey{VK_RETURN, Key::Enter}, KnownKey{VK_ESCAPE, Key::Escape},
                                   KnownKey{VK_DELETE, Key::Delete}, KnownKey{VK_UP, Key::Up},
                                   KnownKey{VK_DOWN, Key::Down}};

/// What a message of a key says of Alt.
constexpr LPARAM kAltDown = LPARAM{1} << 29;

bool IsDown(int key) { return ::GetKeyState(key) < 0; }

KeyPress PressOf(const MSG& message) {
  const auto found = std::find_if(kKnownKeys.begin(), kKnownKeys.end(),
                                  [&](const KnownKey& known) { return known.native == message.wParam; });
  const auto alt = IsDown(VK_MENU) || (message.lParam & kAltDown) != 0;
  return {found == kKnownKeys.end() ? Key::Other : found->key, IsDown(VK_CONTROL), IsDown(VK_SHIFT), alt};
}

/// True for the repeated messages of a key that is held down.
bool IsRepeat(const MSG& message) { return (message.lParam & (LPARAM{1} << 30)) != 0; }

bool TakesLineBreaks(const WindowsControlPeer* peer) { return peer && pellora::TakesLineBreaks(&peer->GetControl()); }

/// What a dialog of the platform does too: the host may watch for its keys there.
bool HostFilters(MSG message) {
  const HostDpiScope hostDpi;
  return ::CallMsgFilterW(&message, MSGF_DIALOGBOX) != FALSE;
}

}  // namespace

bool WindowsFormPeer::Translate(const MSG& message) {
  if (!m_window || (message.hwnd != Window() && !::IsChild(Window(), message.hwnd))) return false;
  if (HostFilters(message)) return true;
  auto* peer = PeerAt(message.hwnd);
  const auto use = peer ? peer->Use(message) : WindowsControlPeer::KeyUse::Form;
  if (use != WindowsControlPeer::KeyUse::Form) return use == WindowsControlPeer::KeyUse::Done;
  switch (message.message) {
    case WM_KEYDOWN: return TranslateKey(message, peer);
    case WM_SYSKEYDOWN: return TranslateAltKey(message);
    case WM_SYSCHAR: return TranslateAccessKey(message);
    default: return false;
  }
}

void WindowsFormPeer::ShowCues(WORD cues) {
  ::SendMessageW(Window(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, cues), 0);
}

bool WindowsFormPeer::TranslateKey(const MSG& message, WindowsControlPeer* peer) {
  if (message.wParam == VK_TAB) return !IsDown(VK_CONTROL) && MoveByTab(IsDown(VK_SHIFT));
  const auto press = PressOf(message);
  if (press.key == Key::Other) return false;
  const auto closes = press.key == Key::Enter || press.key == Key::Escape;
  // A key still held from the dialog before must not press this one's button.
  if (closes && IsRepeat(message) && !TakesLineBreaks(peer)) return true;
  if (m_form.PeerKey(press)) return true;
  if (press.key == Key::Escape && !m_form.CancelButton()) m_form.PeerClose();
  return closes && !(press.key == Key::Enter && TakesLineBreaks(peer));
}

bool WindowsFormPeer::TranslateAltKey(const MSG& message) {
  if (message.wParam == VK_MENU) ShowCues(UISF_HIDEACCEL);
  const auto press = PressOf(message);
  if ((press.key != Key::Up && press.key != Key::Down) || !m_form.PeerKey(press)) return false;
  // The platform must hear of it: it would take Alt, once it is let go, for pressed alone, and open the window's menu.
  if (m_window) ::DefWindowProcW(Window(), message.message, message.wParam, message.lParam);
  return true;
}

bool WindowsFormPeer::TranslateAccessKey(const MSG& message) {
  const auto letter = message.wParam;
  return letter > L' ' && letter < 0x7F && m_form.PeerAccessKey(static_cast<char>(letter));
}

bool WindowsFormPeer::MoveByTab(bool backwards) {
  ShowCues(UISF_HIDEFOCUS);
  auto* next = m_form.NextTabStop(backwards);
  if (!next) return true;
  next->SetFocus();
  if (auto* peer = static_cast<WindowsControlPeer*>(next->Peer())) peer->TabbedTo();
  return true;
}

void WindowsFormPeer::FocusActive() {
  auto* active = m_form.ActiveControl();
  if (!m_window || !active || !active->Peer()) return;
  active->Peer()->Focus();
}

void WindowsFormPeer::FocusMoved(pellora::Control& control) {
  m_form.ActiveControl(&control);
  ShowDefault(&control);
}

void WindowsFormPeer::ShowDefault(pellora::Control* focused) {
  auto* button = m_form.EnterButton(focused);
  auto* peer = button ? static_cast<CommandButtonPeer*>(button->Peer()) : nullptr;
  if (peer == m_shownDefault) return;
  if (m_shownDefault) m_shownDefault->ShowAsDefault(false);
  m_shownDefault = peer;
  if (peer) peer->ShowAsDefault(true);
}

}  // namespace pellora::windows
