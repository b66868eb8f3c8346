#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "forms/Form.h"
#include "platform/windows/forms/Control.h"
#include "platform/windows/forms/Dpi.h"
#include "platform/windows/forms/Form.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows::test {

/// Shows a form and looks at it from its own thread, from within its modal loop, as soon as it is up and painted;
/// closes it afterwards.
class OnDisplay {
 public:
  using Look = std::function<void(HWND)>;

  static void Show(Form& form, Look look) {
    OnDisplay display(form, std::move(look));
    form.Show();
  }

  OnDisplay(const OnDisplay&) = delete;
  OnDisplay& operator=(const OnDisplay&) = delete;

 private:
  OnDisplay(Form& form, Look look) : m_form(form), m_look(std::move(look)), m_before(std::exchange(s_current, this)) {
    m_timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &Tick);
  }
  ~OnDisplay() {
    ::KillTimer(nullptr, m_timer);
    s_current = m_before;
  }

  // A named static function: the 32-bit compiler makes no callback of that calling convention from a lambda.
  static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) noexcept {
    const DpiScope pixels;
    auto& self = *s_current;
    const auto* peer = static_cast<WindowsFormPeer*>(self.m_form.WindowPeer());
    if (!peer || !peer->IsShown()) return;
    if (::IsWindowEnabled(peer->Window()))
      self.LookOnce(peer->Window());
    else
      CloseUnexpected();
  }

  void LookOnce(HWND window) {
    if (std::exchange(m_looked, true)) return;
    ::UpdateWindow(window);
    m_look(window);
    ::PostMessageW(window, WM_CLOSE, 0, 0);
  }

  // Something over the form would wait for ever: the dialog of an error, or a message.
  static void CloseUnexpected() {
    const auto over = ::GetActiveWindow();
    ADD_FAILURE() << "an unexpected window: " << Narrow(TextOf(over));
    ::PostMessageW(over, WM_CLOSE, 0, 0);
  }

  static inline OnDisplay* s_current = nullptr;

  Form& m_form;
  Look m_look;
  OnDisplay* m_before;
  UINT_PTR m_timer = 0;
  bool m_looked = false;
};

inline HWND WindowOf(const Control& control) {
  const auto* peer = static_cast<const WindowsControlPeer*>(control.Peer());
  return peer ? peer->Window() : nullptr;
}

/// The controls that have a window of their own and show it now.
inline std::vector<Control*> ShownControls(const Form& form) {
  auto controls = form.Descendants();
  std::erase_if(controls, [](const Control* control) {
    const auto window = WindowOf(*control);
    return !window || !::IsWindowVisible(window);
  });
  return controls;
}

/// Handles what has been posted to the thread's windows, layouts for instance.
inline void HandlePosted() {
  MSG message{};
  while (::PeekMessageW(&message, nullptr, WM_APP, 0xBFFF, PM_REMOVE)) ::DispatchMessageW(&message);
}

}  // namespace pellora::windows::test
