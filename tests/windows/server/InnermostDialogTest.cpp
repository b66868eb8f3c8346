// A call while a dialog or a message stands over another dialog: the user works in the upper one, and the keyboard is
// to stay there.

#include <array>
#include <functional>
#include <vector>

#include "LoadedServer.h"

namespace pellora::windows::test {
namespace {

using ole::BStr;

constexpr UINT kUntilNextLook = 20;
constexpr ULONGLONG kPatience = 20'000;
constexpr const wchar_t* kDialog = L"Add new ticker";

struct Wanted {
  HWND apart;
  const wchar_t* text;
  HWND found;
};

bool Has(HWND window, const wchar_t* text) {
  wchar_t own[200] = L"";
  GetWindowTextW(window, own, 200);
  return wcscmp(own, text) == 0;
}

// Named static functions: the 32-bit compiler makes no callbacks of that calling convention from lambdas.
BOOL CALLBACK FindUsable(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Wanted*>(parameter);
  wchar_t name[20] = L"";
  GetClassNameW(window, name, 20);
  const bool usable = IsWindowVisible(window) && IsWindowEnabled(window) && wcscmp(name, L"#32770") == 0;
  if (!usable || window == search.apart || (search.text && !Has(window, search.text))) return TRUE;
  search.found = window;
  return FALSE;
}
BOOL CALLBACK FindChild(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Wanted*>(parameter);
  if (!IsWindowVisible(window) || !Has(window, search.text)) return TRUE;
  search.found = window;
  return FALSE;
}

// The dialog of this thread that can be used now, of that title unless it is null.
HWND UsableDialog(HWND apart, const wchar_t* title) {
  Wanted search{apart, title, nullptr};
  EnumThreadWindows(GetCurrentThreadId(), FindUsable, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool ClickButton(HWND dialog, const wchar_t* caption) {
  Wanted search{nullptr, caption, nullptr};
  EnumChildWindows(dialog, FindChild, reinterpret_cast<LPARAM>(&search));
  return search.found && PostMessageW(search.found, BM_CLICK, 0, 0);
}

// Plays steps on the dialogs' own thread while they are up. Each step is asked again until it says that it is done.
class Steps {
 public:
  using Step = std::function<bool()>;
  explicit Steps(std::vector<Step> steps) : m_steps(std::move(steps)) {
    s_current = this;
    m_timer = SetTimer(nullptr, 0, kUntilNextLook, Look);
  }
  ~Steps() {
    KillTimer(nullptr, m_timer);
    s_current = nullptr;
  }
  Steps(const Steps&) = delete;
  Steps& operator=(const Steps&) = delete;

  bool Done() const { return m_next == m_steps.size(); }

 private:
  static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
    auto& self = *s_current;
    if (GetTickCount64() < self.m_end && !self.Done()) {
      if (self.m_steps[self.m_next]()) ++self.m_next;
    } else if (const HWND left = UsableDialog(nullptr, nullptr)) {
      // Nobody else would close what a broken play leaves open.
      PostMessageW(left, WM_CLOSE, 0, 0);
    }
  }

  static inline Steps* s_current = nullptr;
  std::vector<Step> m_steps;
  std::size_t m_next = 0;
  ULONGLONG m_end = GetTickCount64() + kPatience;
  UINT_PTR m_timer = 0;
};

class InnermostDialog : public LoadedObject {
 protected:
  void AddNewSymbol(short type) {
    std::array<BStr, 7> held;
    std::array<BSTR, 7> t{};
    double strike = 0, multiplier = 0;
    short outcome = 0;
    object->AddNewSymbol(&t[0], &t[1], &t[2], &strike, &t[3], &multiplier, &t[4], &t[5], &t[6], &type, &outcome);
    for (std::size_t i = 0; i < t.size(); ++i) held[i].attach(t[i]);
  }

  // What happens to the upper window: a call while another window is before it, then Escape.
  std::vector<Steps::Step> UseUpper() {
    return {[this] { return (upper = UsableDialog(lower, nullptr)) != nullptr; },
            [this] {
              other = CreateWindowExW(0, L"STATIC", L"In front", WS_POPUP | WS_VISIBLE, 0, 0, 200, 200, nullptr,
                                      nullptr, nullptr, nullptr);
              SetForegroundWindow(other);
              wasBehind = GetForegroundWindow() == other;
              object->UnloadfrmMaster();
              cameForward = GetForegroundWindow() == upper;
              DestroyWindow(other);
              for (const DWORD flags : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) keybd_event(VK_ESCAPE, 0, flags, 0);
              return true;
            },
            [this] { return !IsWindow(upper) || !IsWindowVisible(upper); },
            [this] {
              const HWND left = UsableDialog(nullptr, kDialog);
              if (left) PostMessageW(left, WM_CLOSE, 0, 0);
              return left != nullptr;
            }};
  }
  void ExpectUpperUsed(const Steps& steps) {
    EXPECT_TRUE(steps.Done());
    EXPECT_TRUE(wasBehind);
    EXPECT_TRUE(cameForward);
  }
  // Opens the contract dialog, and by that button of it something over it.
  void OverTheDialog(const wchar_t* button) {
    auto all = UseUpper();
    all.insert(all.begin(), [this, button] {
      lower = UsableDialog(nullptr, kDialog);
      return lower && ClickButton(lower, button);
    });
    const Steps steps(all);
    AddNewSymbol(0);
    ExpectUpperUsed(steps);
  }

  HWND lower = nullptr, upper = nullptr, other = nullptr;
  bool wasBehind = false, cameForward = false;
};

TEST_F(InnermostDialog, AnEditorOverADialogComesForwardAndHearsEscape) { OverTheDialog(L"..."); }

// Without a symbol the dialog complains.
TEST_F(InnermostDialog, AMessageOverADialogComesForwardAndHearsEscape) { OverTheDialog(L"&Insert >>"); }

// A type that does not exist is reported while the dialog is filled, before it is up.
TEST_F(InnermostDialog, AnErrorDialogComesForwardAndHearsEscape) {
  const Steps steps(UseUpper());
  AddNewSymbol(6);
  ExpectUpperUsed(steps);
}

}  // namespace
}  // namespace pellora::windows::test
