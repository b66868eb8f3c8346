#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "contract/SecurityTypes.h"
#include "contract/frmAddTicker.h"
#include "tests/DialogChecks.h"
#include "tests/DialogTest.h"

namespace pellora::tests {

using headless::UserAtForm;
using Names = std::vector<std::string>;
using Settings = std::map<std::string, std::string>;

/// A test of the contract dialog: every `Show` is a new form over the same store, as with every request.
class ContractDialog : public DialogTest {
 protected:
  using Part = std::function<void(UserAtForm&)>;

  /// Shows the dialog for the type of that index to a user who plays `part`; `then` names the dialogs and messages
  /// that come out of it.
  void Show(
      int index, Part part, const std::function<void()>& then = [] {}) {
    form = std::make_unique<frmAddTicker>(*toolkit);
    form->frmAppSettings(mGlobal::AppSettings);
    form->ComTypeListIndex(static_cast<std::int16_t>(index));
    user().ExpectForm("frmAddTicker", std::move(part));
    then();
    form->Show();
  }

  void ExpectEditor(Part part) { user().ExpectForm("frmModifyList", std::move(part)); }

  /// The values stored in a section, by name; a value that is no text reads "(not a text)".
  Settings Stored(const std::string& section) const {
    const std::string path = "Software\\CORVANE\\Vantix\\" + section + "\\";
    Settings found;
    for (const auto& [name, value] : platform.registry.Dump()) {
      if (!name.starts_with(path)) continue;
      const auto* text = std::get_if<std::string>(&value);
      found[name.substr(path.size())] = text ? *text : "(not a text)";
    }
    return found;
  }
  Settings StoredChoices() const { return Stored("Settings\\frmSettings"); }

  void Store(const std::string& key, const std::string& text) {
    Variant setting = text;
    mGlobal::AppSettings->SaveSetting("Settings\\frmSettings", key, setting);
  }

  /// What the dialog is made with; a test may put its own before it.
  Toolkit* toolkit = &platform.toolkit;
  std::unique_ptr<frmAddTicker> form;
};

/// A test of what the dialog's lists and boxes hold.
class ChoiceLists : public ContractDialog {
 protected:
  /// What every list (items, then the choice) and box shows in a new opening.
  Settings Shown() {
    Settings shown;
    Show(0, [&](UserAtForm& hands) {
      for (const auto* control : form->Descendants()) {
        if (control == &form->ComType) continue;
        if (const auto* combo = dynamic_cast<const ComboBox*>(control))
          shown[combo->Name()] = form->ComboBoxToStr(*combo) + " / " + combo->Text();
        else if (const auto* box = dynamic_cast<const TextBox*>(control))
          shown[box->Name()] = box->Text();
      }
      Cancel(hands);
    });
    return shown;
  }
  std::string ShownIn(const std::string& control) { return Shown().at(control); }

  /// Enters an instrument with these texts in its type's lists and boxes.
  void InsertAt(int index, const std::vector<std::pair<std::string, std::string>>& texts) {
    Show(index, [&](UserAtForm& hands) {
      for (const auto& [name, text] : texts) hands.Type(name, text);
      hands.Click("ButInsert");
    });
    ASSERT_EQ(form->Tag(), "1");
  }
};

/// The names of the six currency lists.
inline constexpr std::array kCurrencyLists = {"ComSTKCurency", "ComOPTCurency", "ComFUTCurency",
                                              "ComIndCurency", "ComFOPCurency", "ComCASHCurency"};

}  // namespace pellora::tests
