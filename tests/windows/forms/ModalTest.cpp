#include <array>

#include "Hands.h"
#include "core/Error.h"
#include "platform/windows/forms/Owners.h"
#include "tests/forms/SampleForm.h"

namespace pellora::windows {
namespace {

using test::SampleForm;
using testing::Test;

class Modal : public WindowsFormTest {
 protected:
  static HWND HostWindow(const wchar_t* title, DWORD style = 0) {
    return ::CreateWindowExW(0, L"STATIC", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE | style, 0, 0, 300, 200, nullptr,
                             nullptr, ::GetModuleHandleW(nullptr), nullptr);
  }
};

// A function and no lambda: 32-bit g++ does not turn those into callbacks of the system.
BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
  wchar_t name[40];
  ::GetClassNameW(window, name, 40);
  // The input method's windows live as long as the thread.
  if (!wcsstr(name, L"IME")) ++*reinterpret_cast<int*>(count);
  return TRUE;
}

int WindowsOfThread() {
  int count = 0;
  ::EnumThreadWindows(::GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&count));
  return count;
}

/// The place of the next graphics object in the table of all of them: it stays where it is when as many are given back
/// as are made.
WORD NextGraphicsSlot() {
  const FontOwner font(::CreateFontW(10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma"));
  return LOWORD(reinterpret_cast<UINT_PTR>(font.get()));
}

TEST_F(Modal, ShowReturnsWhenAHandlerHidesTheForm) {
  SampleForm form(toolkit);
  const Player player([&](Hands& hands) {
    hands.WaitFor(form);
    hands.Click(form.butOk);
  });
  form.Show();
  EXPECT_EQ(form.events, std::vector<std::string>{"ok"});
}

TEST_F(Modal, LeavesNoWindowBehind) {
  const auto before = WindowsOfThread();
  SampleForm form(toolkit);
  const Player player([&](Hands& hands) {
    hands.WaitFor(form);
    hands.Click(form.butOk);
  });
  form.Show();
  EXPECT_EQ(WindowsOfThread(), before);
}

TEST_F(Modal, OtherWindowsAreDisabledMeanwhileAndEnabledAfterwards) {
  const WindowOwner host(HostWindow(L"Host"));
  SampleForm form(toolkit);
  std::atomic<bool> enabledMeanwhile = true;
  {
    const Player player([&](Hands& hands) {
      hands.WaitFor(form);
      enabledMeanwhile = ::IsWindowEnabled(host.get()) != FALSE;
      hands.Click(form.butOk);
    });
    form.Show();
  }
  EXPECT_FALSE(enabledMeanwhile);
  EXPECT_TRUE(::IsWindowEnabled(host.get()));
}

TEST_F(Modal, WindowsDisabledBeforeStayDisabled) {
  const WindowOwner host(HostWindow(L"Host", WS_DISABLED));
  SampleForm form(toolkit);
  const Player player([&](Hands& hands) {
    hands.WaitFor(form);
    hands.Click(form.butOk);
  });
  form.Show();
  EXPECT_FALSE(::IsWindowEnabled(host.get()));
}

TEST_F(Modal, TheHostIsActiveAgainAfterwards) {
  const WindowOwner host(HostWindow(L"Host"));
  ::SetActiveWindow(host.get());
  SampleForm form(toolkit);
  const Player player([&](Hands& hands) {
    hands.WaitFor(form);
    hands.Click(form.butOk);
  });
  form.Show();
  EXPECT_EQ(::GetActiveWindow(), host.get());
}

TEST_F(Modal, CloseBoxAsksTheFormAsTheUser) {
  SampleForm form(toolkit);
  const Player player([&](Hands& hands) { hands.Close(hands.WaitFor(form)); });
  form.Show();
  EXPECT_EQ(form.closeMode, kUnloadByUser);
}

TEST_F(Modal, TheFormHearsThatItHasComeUp) {
  SampleForm form(toolkit);
  const Player player([&](Hands& hands) {
    hands.WaitFor(form);
    hands.Click(form.butOk);
  });
  form.Show();
  EXPECT_EQ(form.activations, 1);
}

TEST_F(Modal, AFormOverAFormReturnsToIt) {
  SampleForm outer(toolkit, "Outer");
  SampleForm inner(toolkit, "Inner");
  outer.chk.Click = [&] { inner.Show(); };
  std::atomic<bool> outerEnabled = true;
  {
    const Player player([&](Hands& hands) {
      const auto window = hands.WaitFor(outer);
      hands.Click(outer.chk);
      hands.WaitFor(inner);
      outerEnabled = ::IsWindowEnabled(window) != FALSE;
      hands.Click(inner.butCancel);
      hands.WaitFor(outer);
      hands.Click(outer.butOk);
    });
    outer.Show();
  }
  EXPECT_FALSE(outerEnabled);
  EXPECT_EQ(inner.events, std::vector<std::string>{"cancel"});
  EXPECT_EQ(outer.events, std::vector<std::string>{"ok"});
}

TEST_F(Modal, AMessageDisablesTheFormItStandsOver) {
  SampleForm form(toolkit);
  form.chk.Click = [&] { form.ShowCritical("No!"); };
  std::atomic<bool> formEnabled = true;
  {
    const Player player([&](Hands& hands) {
      const auto window = hands.WaitFor(form);
      hands.Click(form.chk);
      const auto box = hands.WaitFor(L"Vantix");
      formEnabled = ::IsWindowEnabled(window) != FALSE;
      ::PostMessageW(box, WM_COMMAND, IDOK, 0);
      hands.WaitFor(form);
      hands.Click(form.butOk);
    });
    form.Show();
  }
  EXPECT_FALSE(formEnabled);
  EXPECT_EQ(form.events, std::vector<std::string>{"ok"});
}

TEST_F(Modal, AMessageAnswersItsButton) {
  constexpr std::array answers = {std::pair{IDABORT, MessageAnswer::Abort}, std::pair{IDRETRY, MessageAnswer::Retry},
                                  std::pair{IDIGNORE, MessageAnswer::Ignore}};
  for (const auto& [button, answer] : answers) {
    const Player player([id = button](Hands& hands) {
      ::PostMessageW(hands.WaitFor(L"Question"), WM_COMMAND, static_cast<WPARAM>(id), 0);
    });
    EXPECT_EQ(toolkit.ShowMessage({"Again?", "Question", MessageButtons::AbortRetryIgnore, true}), answer);
  }
}

TEST_F(Modal, TheOwnersEndEndsTheShowing) {
  WindowOwner host(HostWindow(L"Host"));
  ::SetActiveWindow(host.get());
  SampleForm form(toolkit);
  form.chk.Click = [&] { host.reset(); };
  const Player player([&](Hands& hands) {
    hands.WaitFor(form);
    hands.Click(form.chk);
  });
  form.Show();
  EXPECT_EQ(form.closeMode, kUnloadByUser);
  EXPECT_FALSE(form.Shown());
}

TEST_F(Modal, TheEndOfTheProgramIsPassedOn) {
  SampleForm form(toolkit);
  form.chk.Click = [] { ::PostQuitMessage(7); };
  const Player player([&](Hands& hands) {
    hands.WaitFor(form);
    hands.Click(form.chk);
  });
  form.Show();
  MSG message{};
  EXPECT_EQ(::GetMessageW(&message, nullptr, 0, 0), 0);
  EXPECT_EQ(message.wParam, 7u);
}

TEST_F(Modal, AHundredShowingsLeaveNothingBehind) {
  SampleForm form(toolkit);
  int rounds = 0;
  const auto showOnce = [&] {
    const Player player([&](Hands& hands) {
      hands.WaitFor(form);
      hands.Click(form.butOk);
    });
    form.Show();
    ++rounds;
  };
  // The first showings fill the platform's own caches.
  for (int i = 0; i < 3; ++i) showOnce();
  const auto windows = WindowsOfThread();
  const auto slot = NextGraphicsSlot();
  for (int i = 0; i < 100; ++i) showOnce();
  EXPECT_EQ(WindowsOfThread(), windows);
  EXPECT_LT(std::abs(NextGraphicsSlot() - slot), 50);
  EXPECT_EQ(rounds, 103);
}

}  // namespace
}  // namespace pellora::windows
