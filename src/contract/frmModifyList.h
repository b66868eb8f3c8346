#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "forms/CommandButton.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/ListBox.h"
#include "forms/TextBox.h"
#include "support/CFormRestore.h"
#include "support/Routine.h"

namespace pellora {

class CAppSettings;

/// The dialog that edits one choice list: entries are added, deleted and moved. Its caller sets the caption and hands
/// in the list text (entries joined by "|") and the store in which the form's placement is kept, and after "1" (Save)
/// in `Tag` takes the list text back; "2" is Cancel, empty closed otherwise. The caller unloads it, which saves the
/// placement.
///
/// It works without a mouse: Enter adds what is typed (and saves when nothing is), Delete deletes the selected entry,
/// Ctrl or Alt with the arrows moves it.
class frmModifyList : public Form, private Routines {
 public:
  explicit frmModifyList(Toolkit& toolkit);

  /// The list text. A new one is shown when the form is activated next; activating it again adds nothing.
  std::string InpList() const;
  void InpList(std::string_view listText);
  const std::shared_ptr<CAppSettings>& frmAppSettings() const { return m_appSettings; }
  void frmAppSettings(std::shared_ptr<CAppSettings> settings) { m_appSettings = std::move(settings); }

  /// The controls, in tab order.
  Label lblInput{*this, "lblInput", "New entry"};
  TextBox txtInput{*this, "txtInput"};
  CommandButton ButAdd{*this, "ButAdd", "Add"};
  Label lblParametr{*this, "lblParametr", "Entries"};
  ListBox lstParametr{*this, "lstParametr"};
  CommandButton ButDelete{*this, "ButDelete", "Delete"};
  CommandButton ButUp{*this, "ButUp", "Up"};
  CommandButton ButDown{*this, "ButDown", "Down"};
  CommandButton ButSave{*this, "ButSave", "Save"};
  CommandButton ButCancel{*this, "ButCancel", "Cancel"};

 protected:
  void OnLoad() override { Form_Load(); }
  void OnActivate() override { Form_Activate(); }
  void OnUnload() override { Form_Unload(); }

 private:
  void Form_Load();
  void Form_Activate();
  void Form_Unload();
  /// Adds what is typed, unless the list has it in any letter case; then that entry is selected. A "|" cannot be part
  /// of an entry: it separates several, which are added one after the other, so a list text can be pasted whole.
  void ButAdd_Click();
  void ButDelete_Click();
  void ButUp_Click();
  void ButDown_Click();
  void ButSave_Click();
  void ButCancel_Click();

  bool InputKey(const KeyPress& press);
  bool ListKey(const KeyPress& press);
  bool AddEntry(std::string_view entry);

  std::string m_inpList;
  bool m_filled = false;
  std::shared_ptr<CAppSettings> m_appSettings;
  std::unique_ptr<CFormRestore> m_formRestore;
};

}  // namespace pellora
