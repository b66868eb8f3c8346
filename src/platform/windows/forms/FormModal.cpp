#include "platform/windows/forms/Dpi.h"
#include "platform/windows/forms/Form.h"
#include "platform/windows/forms/Modal.h"

namespace pellora::windows {

void WindowsFormPeer::ShowModal() {
  const DpiScope pixels;
  const ManifestScope looks(m_surroundings.manifest);
  m_ended = false;
  if (m_window) {
    const auto owner = WindowToBeOver();
    ::SetWindowLongPtrW(Window(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
    FitToContent();
    OthersDisabled others(Window());
    Raise();
    Run();
    // First the others, then the form: the activation would leave the host otherwise.
    others.Enable();
    Leave(owner);
  }
  if (!m_window) m_form.PeerClose();
}

void WindowsFormPeer::EndModal() {
  m_ended = true;
  // Wakes the loop, should it be waiting already.
  if (m_window) ::PostMessageW(Window(), WM_NULL, 0, 0);
}

void WindowsFormPeer::Raise() {
  m_activated = false;
  ::ShowWindow(Window(), static_cast<int>(ShowCommand()));
  if (m_window && std::exchange(m_toFront, false)) ::SetForegroundWindow(Window());
  // Without the foreground a window is not always told that it has come up.
  if (m_window && !m_activated) OnActivate(true);
  if (m_window) ::UpdateWindow(Window());
}

// The host's timers and its hooks run in here too, for which the system does not change the awareness, as it does for
// procedures of windows, the form's included. What the form makes of keys runs in its own.
int WindowsFormPeer::NextMessage(MSG& message) {
  const HostDpiScope hostDpi;
  return ::GetMessageW(&message, nullptr, 0, 0);
}

void WindowsFormPeer::Dispatch(const MSG& message) {
  const HostDpiScope hostDpi;
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
}

void WindowsFormPeer::Run() {
  MSG message{};
  while (!m_ended) {
    const auto got = NextMessage(message);
    // The end of the program is for the loops around this one too.
    if (got == 0) ::PostQuitMessage(static_cast<int>(message.wParam));
    if (got <= 0) return;
    if (!Translate(message)) Dispatch(message);
  }
}

void WindowsFormPeer::Leave(HWND owner) {
  if (!m_window) return;
  const auto wasActive = ::GetActiveWindow() == Window();
  if (wasActive && ::IsWindow(owner)) ::SetActiveWindow(owner);
  RememberState();
  ::ShowWindow(Window(), SW_HIDE);
}

void WindowsFormPeer::BringToFront() {
  m_toFront = !IsShown();
  if (IsShown()) ::SetForegroundWindow(WindowInUse(Window()));
}

}  // namespace pellora::windows
