#pragma once

#include <com/sun/star/awt/XComboBox.hpp>
#include <com/sun/star/awt/XTextComponent.hpp>

#include "forms/ComboBox.h"
#include "forms/ListItems.h"
#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

/// An editable combo. It completes what is typed from its items: the rest is appended and selected, so typing on
/// replaces it and Delete drops it. Deleting never completes. The letters typed stay as they were typed.
class ComboBoxPeer : public PeerOf<pellora::ComboBox> {
 public:
  ComboBoxPeer(UnoFormPeer& form, pellora::ComboBox& combo);

  /// Notices whether a text or an item comes of a key, and keeps Enter, Escape and the arrows for a list that has
  /// dropped down.
  KeyUse Use(const awt::KeyEvent& key) override;
  void KeyReleased() override { m_input = Input::Other; }
  void TabbedTo() override;

 protected:
  void Update(Aspect aspect) override;
  void OnReport(Happening happening) override;

 private:
  enum class Input { Letter, Editing, Other };
  static Input InputOf(const awt::KeyEvent& key);
  void FollowItems();
  void FollowText();
  void Complete();
  void TextHasChanged();

  uno::Reference<awt::XComboBox> m_list;
  uno::Reference<awt::XTextComponent> m_text;
  ListItems m_items;
  Input m_input = Input::Other;
};

}  // namespace pellora::libreoffice
