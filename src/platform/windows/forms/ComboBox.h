#pragma once

#include "forms/ComboBox.h"
#include "forms/ListItems.h"
#include "platform/windows/forms/Control.h"

namespace pellora::windows {

/// An editable combo completes what is typed from its items: the rest is appended and selected, so typing on
/// replaces it and Delete drops it. Deleting never completes.
class ComboBoxPeer : public PeerOf<pellora::ComboBox> {
 public:
  ComboBoxPeer(WindowsFormPeer& form, pellora::ComboBox& combo);

  /// Notices whether a character is typed, and keeps Enter, Escape and the arrows for a list that has dropped down.
  KeyUse Use(const MSG& message) override;
  void TabbedTo() override;
  void Placed() override;
  void FontChanged() override;

 protected:
  void Update(Aspect aspect) override;
  void OnCommand(WORD code) override;
  HWND InnerWindow() const override;

 private:
  bool Editable() const { return Self().Style() == ComboStyle::DropDown; }
  void FollowItems();
  void FollowChoice();
  void FitHeight();
  int MissingHeight() const;
  void DropSelectionWithoutFocus();
  void DropSelection();
  void Complete();
  void ListClosed();

  ListItems m_items;
  bool m_typing = false;
};

}  // namespace pellora::windows
