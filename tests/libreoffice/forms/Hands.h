#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <com/sun/star/awt/Rectangle.hpp>
#include <functional>
#include <string>
#include <thread>

#include "forms/Form.h"
#include "platform/libreoffice/forms/UnoToolkit.h"

namespace pellora::libreoffice {

/// Runs something on the office program's main thread, where forms live, and waits for it.
void OnMainThread(const std::function<void()>& action);

/// Has the toolkit do, on the main thread, what it has put off until now.
void WithEventsPast();

/// Runs a program of the system and waits for it; its output.
std::string RunProgram(const std::string& command);

/// A user in a thread of their own, who strikes real keys and moves the real mouse of the display.
class Hands {
 public:
  explicit Hands(Form& form) : m_form(form) {}

  Form& form() const { return m_form; }
  /// Asks something on the main thread until it is true; false when it does not become true for so long that a
  /// busy machine cannot be the reason.
  bool Until(const std::function<bool()>& condition) const;
  /// True once the form has come up with a control that has the keyboard.
  bool FormIsUp() const { return IsUp(m_form); }
  bool IsUp(Form& form) const;
  bool HasFocus(const Control& control) const;

  /// Keys by their names, as `xdotool` has them: "Return", "alt+o", "shift+Tab".
  void Press(const std::string& keys) const;
  void Type(const std::string& text) const;
  /// Clicks into a control, by default in its middle; a place counts from its upper left corner.
  void Click(const Control& control) const;
  void Click(const Control& control, Point place) const;
  void MoveTo(const Control& control, Point place) const;

  /// Where a control is on the screen, by the display's own account of the window.
  com::sun::star::awt::Rectangle PlaceOf(const Control& control) const;
  /// Has the window manager ask the window of that title to close, as its close box does; the form's by default.
  void CloseWindow() const { CloseWindow(m_form.Caption()); }
  void CloseWindow(const std::string& title) const;
  /// True once the window of that title has the keyboard, by the display's own account.
  bool WindowHasKeyboard(const std::string& title) const;
  /// The window of that title, by the display's number for it; empty when it does not come up.
  std::string WindowTitled(const std::string& title) const;

 private:
  /// Where the inside of the form's window is, once nothing moves it any more.
  Point SettledCorner() const;

  Form& m_form;
};

/// Plays a part in another thread for as long as it lives; meanwhile the main thread goes on with its events.
class Player {
 public:
  Player(Form& form, std::function<void(Hands&)> part);
  ~Player();

 private:
  std::atomic<bool> m_done = false;
  std::thread m_thread;
};

/// Each test has its own toolkit.
class OfficeFormTest : public testing::Test {
 protected:
  OfficeFormTest();

  /// Shows the form to a user who plays `part`. A form that is still shown afterwards is hidden, and that is a failure.
  void Show(Form& form, std::function<void(Hands&)> part);

  UnoToolkit toolkit;
};

}  // namespace pellora::libreoffice
