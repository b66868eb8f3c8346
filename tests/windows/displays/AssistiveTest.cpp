#include <cwctype>
#include <map>

#include "Dialogs.h"
#include "ToldNames.h"

namespace pellora::windows::test {
namespace {

/// The letter that a native text underlines, as a capital; 0 for none. Two ampersands show one.
wchar_t UnderlinedIn(const std::wstring& text) {
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] != L'&') continue;
    if (text[i + 1] != L'&') return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(text[i + 1])));
    ++i;
  }
  return 0;
}

/// Statics and buttons of all kinds underline; edits and combos show an ampersand as it is.
bool Underlines(HWND window) {
  wchar_t name[20] = L"";
  ::GetClassNameW(window, name, 20);
  return ::lstrcmpiW(name, WC_STATICW) == 0 || ::lstrcmpiW(name, WC_BUTTONW) == 0;
}

std::string RepeatedKeys(const Form& form) {
  std::string repeated;
  std::map<wchar_t, std::string> taken;
  for (const auto* control : ShownControls(form)) {
    const auto window = WindowOf(*control);
    const auto key = Underlines(window) ? UnderlinedIn(TextOf(window)) : L'\0';
    if (key && !taken.emplace(key, control->Name()).second)
      repeated += control->Name() + " repeats the key of " + taken[key] + "\n";
  }
  return repeated;
}

std::string OtherKeysThanTheForms(const Form& form) {
  std::string others;
  for (const auto* control : ShownControls(form)) {
    const auto window = WindowOf(*control);
    const auto wanted = std::towupper(static_cast<unsigned char>(control->AccessKey()));
    const auto shown = Underlines(window) ? UnderlinedIn(TextOf(window)) : L'\0';
    if (shown != wanted) others += control->Name() + ": " + Narrow(TextOf(window)) + "\n";
  }
  return others;
}

class AccessKeysOnDisplay : public EachDialog {};

TEST_P(AccessKeysOnDisplay, AreThoseOfTheFormEachUnderlinedOnce) {
  Show([](Form& form, HWND) {
    EXPECT_EQ(RepeatedKeys(form) + OtherKeysThanTheForms(form), "");
    int keys = 0;
    for (const auto* control : ShownControls(form)) keys += UnderlinedIn(TextOf(WindowOf(*control))) != 0;
    EXPECT_GE(keys, 4) << "nothing was compared";
  });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, AccessKeysOnDisplay, testing::ValuesIn(AllDialogs()), DialogName);

class NamesOnDisplay : public EachDialog {
 protected:
  /// What the system calls controls otherwise than the form does, or not at all.
  std::string Faults(const Form& form) const {
    std::string faults;
    for (const auto* control : ShownControls(form)) {
      const auto name = Narrow(told.Of(WindowOf(*control)));
      if (control->TakesFocus() && (name.empty() || name != control->AccessibleName()))
        faults += control->Name() + " is \"" + name + "\", not \"" + control->AccessibleName() + "\"\n";
    }
    return faults;
  }
  /// The same for the window that has the keyboard, which may be one inside the control's own.
  std::string FaultsAtKeyboard(const Form& form) const {
    std::string faults;
    for (const auto* control : ShownControls(form)) {
      if (!control->TakesFocus() || !control->Enabled()) continue;
      ::SetFocus(WindowOf(*control));
      const auto name = Narrow(told.Of(::GetFocus()));
      if (name != control->AccessibleName()) faults += control->Name() + " is \"" + name + "\" at the keyboard\n";
    }
    return faults;
  }
  ToldNames told;
};

TEST_P(NamesOnDisplay, AreWhatTheFormCallsItsControls) {
  Show([this](Form& form, HWND) { EXPECT_EQ(Faults(form), ""); });
}

TEST_P(NamesOnDisplay, AreThoseOfTheWindowWithTheKeyboardToo) {
  Show([this](Form& form, HWND) { EXPECT_EQ(FaultsAtKeyboard(form), ""); });
}

TEST_P(NamesOnDisplay, AreTakenBackWithTheWindows) {
  ShowOnce([](Form&, HWND) {});
  EXPECT_EQ(told.Count(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, NamesOnDisplay, testing::ValuesIn(AllDialogs()), DialogName);

}  // namespace
}  // namespace pellora::windows::test
