#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include "forms/ComboBox.h"
#include "forms/Form.h"
#include "platform/windows/forms/Control.h"
#include "platform/windows/forms/WindowsToolkit.h"

namespace pellora::windows {

/// True as soon as `condition` is; false when it is not within ten seconds.
template <class Condition>
bool Until(Condition condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    // The testing thread works meanwhile: what looks all the time takes a processor from it.
    ::Sleep(1);
  }
  return true;
}

/// A user in a thread of their own, who posts what keys and mouse would post to the windows of the testing thread.
class Hands {
 public:
  explicit Hands(DWORD thread) : m_thread(thread) {}

  /// The form's window, once it is up and enabled. Null when that does not happen.
  HWND WaitFor(const Form& form) {
    Until([&] { return Usable(Find(form)); });
    return Find(form);
  }
  /// A visible window of the thread by its title, once it is up.
  HWND WaitFor(const wchar_t* title) {
    HWND found = nullptr;
    Until([&] { return (found = Find(title)) != nullptr; });
    return found;
  }

  static HWND Of(const Control& control) { return static_cast<WindowsControlPeer*>(control.Peer())->Window(); }
  static void Click(const Control& control) { ::PostMessageW(Of(control), BM_CLICK, 0, 0); }
  static void Close(HWND window) { ::PostMessageW(window, WM_CLOSE, 0, 0); }

  /// A key to the window with the focus.
  void Press(WPARAM key) { ::PostMessageW(Focus(), WM_KEYDOWN, key, 1); }
  void Type(wchar_t letter) { ::PostMessageW(Focus(), WM_CHAR, static_cast<WPARAM>(letter), 1); }

  /// Shift and a key, struck on the keyboard: what is held down is no part of a posted key.
  static void PressWithShift(BYTE key) {
    for (const BYTE down : {BYTE{VK_SHIFT}, key}) ::keybd_event(down, 0, 0, 0);
    for (const BYTE up : {key, BYTE{VK_SHIFT}}) ::keybd_event(up, 0, KEYEVENTF_KEYUP, 0);
  }
  /// Alt and a key, or Alt and a letter, as they come to the window with the focus.
  void PressAlt(WPARAM key) { ::PostMessageW(Focus(), WM_SYSKEYDOWN, key, kAltDown | 1); }
  void TypeAlt(char letter) { ::PostMessageW(Focus(), WM_SYSCHAR, static_cast<WPARAM>(letter), kAltDown | 1); }

  HWND Focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    return ::GetGUIThreadInfo(m_thread, &info) ? info.hwndFocus : nullptr;
  }
  /// Whether the control has the focus; of a combo it is its edit that has it.
  bool Has(const Control& control) const {
    const auto focus = Focus();
    return focus == Of(control) || (dynamic_cast<const ComboBox*>(&control) && ::GetParent(focus) == Of(control));
  }

 private:
  static constexpr LPARAM kAltDown = LPARAM{1} << 29;
  static bool Usable(HWND window) { return window && ::IsWindowVisible(window) && ::IsWindowEnabled(window); }
  HWND Find(const Form& form) { return Find(std::wstring(form.Caption().begin(), form.Caption().end()).c_str()); }
  HWND Find(const wchar_t* title) {
    struct Search {
      const wchar_t* title;
      HWND found;
    } search{title, nullptr};
    ::EnumThreadWindows(m_thread, &Compare<Search>, reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  template <class Search>
  static BOOL CALLBACK Compare(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    wchar_t title[200];
    ::InternalGetWindowText(window, title, 200);
    if (!::IsWindowVisible(window) || wcscmp(title, search.title) != 0) return TRUE;
    search.found = window;
    return FALSE;
  }

  DWORD m_thread;
};

/// Plays a part in another thread for as long as it lives.
class Player {
 public:
  explicit Player(std::function<void(Hands&)> part)
      : m_thread([part, thread = ::GetCurrentThreadId()] {
          Hands hands(thread);
          part(hands);
        }) {}
  ~Player() { m_thread.join(); }

 private:
  std::thread m_thread;
};

/// Each test has its own toolkit. The forms are shown at 96 dpi.
class WindowsFormTest : public testing::Test {
 protected:
  WindowsFormTest() { toolkit.ForceDpi(96); }
  WindowsToolkit toolkit{::GetModuleHandleW(nullptr), 2};
};

}  // namespace pellora::windows
