#pragma once

#include <map>
#include <memory>
#include <string>
#include <variant>

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
    form = std::make_unique<frmAddTicker>(platform.toolkit);
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

  std::unique_ptr<frmAddTicker> form;
};

inline void Cancel(UserAtForm& hands) { hands.Click("ButCancel"); }

}  // namespace pellora::tests
