#include "platform/libreoffice/forms/ComboBox.h"

#include <algorithm>
#include <com/sun/star/awt/Key.hpp>
#include <com/sun/star/awt/KeyModifier.hpp>
#include <com/sun/star/awt/VclWindowPeerAttribute.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>

#include "core/Text.h"
#include "platform/libreoffice/forms/DropDown.h"
#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

/// What of the first item that begins with a text, letter case apart, stands behind that beginning; empty when none
/// does.
rtl::OUString RestOfItem(const std::vector<std::string>& items, const rtl::OUString& text) {
  const auto begin = Narrow(text);
  for (const auto& item : items) {
    const auto wide = Wide(item);
    if (wide.getLength() >= text.getLength() && EqualNoCase(Narrow(wide.copy(0, text.getLength())), begin))
      return wide.copy(text.getLength());
  }
  return {};
}

int IndexOf(const std::vector<std::string>& items, const std::string& text) {
  const auto found = std::find(items.begin(), items.end(), text);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

}  // namespace

ComboBoxPeer::ComboBoxPeer(UnoFormPeer& form, pellora::ComboBox& combo) : PeerOf(form, combo) {
  Make("combobox", awt::WindowAttribute::BORDER | awt::VclWindowPeerAttribute::DROPDOWN);
  m_window.Set("Autocomplete", uno::Any(false));
  m_list = m_window.As<awt::XComboBox>();
  m_text = m_window.As<awt::XTextComponent>();
  WhileThere([&] { m_list->setDropDownLineCount(kDropDownLines); });
  Changed(Aspect::Items);
  WhileThere([&] {
    m_text->addTextListener(Listener());
    m_list->addItemListener(Listener());
  });
}

ComboBoxPeer::Input ComboBoxPeer::InputOf(const awt::KeyEvent& key) {
  const auto command = (key.Modifiers & (awt::KeyModifier::MOD1 | awt::KeyModifier::MOD2)) != 0;
  if (command || key.KeyCode == awt::Key::BACKSPACE || key.KeyCode == awt::Key::DELETE ||
      key.KeyCode == awt::Key::INSERT)
    return Input::Editing;
  return key.KeyChar >= u' ' && key.KeyChar != 0x7F ? Input::Letter : Input::Other;
}

UnoControlPeer::KeyUse ComboBoxPeer::Use(const awt::KeyEvent& key) {
  m_input = InputOf(key);
  return IsForDroppedList(key) && IsDroppedDown(m_form.GetContext(), m_window) ? KeyUse::Native : KeyUse::Form;
}

void ComboBoxPeer::TabbedTo() {
  WhileThere([&] { m_text->setSelection({0, m_text->getText().getLength()}); });
}

void ComboBoxPeer::FollowItems() {
  m_items.Follow(
      Self().Items(), [&](int index) { m_list->removeItems(static_cast<sal_Int16>(index), 1); },
      [&](int index, const std::string& item) { m_list->addItem(Wide(item), static_cast<sal_Int16>(index)); });
}

void ComboBoxPeer::FollowText() {
  const auto text = Wide(Self().Text());
  if (m_text->getText() != text) m_text->setText(text);
}

void ComboBoxPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Items) FollowItems();
  if (aspect == Aspect::Items || aspect == Aspect::ListIndex || aspect == Aspect::Text) FollowText();
}

void ComboBoxPeer::Complete() {
  const auto typed = m_text->getText();
  const auto caret = m_text->getSelection();
  if (typed.isEmpty() || caret.Min != caret.Max || caret.Max != typed.getLength()) return;
  const auto rest = RestOfItem(Self().Items(), typed);
  if (rest.isEmpty()) return;
  const Silence silence(*this);
  m_text->setText(typed + rest);
  // The caret is at the second end, so that typing goes on where it was.
  m_text->setSelection({typed.getLength() + rest.getLength(), typed.getLength()});
}

void ComboBoxPeer::TextHasChanged() {
  const auto text = Narrow(m_text->getText());
  // Choosing from the list changes the text too, before anything else tells of it.
  const auto chosen = m_input == Input::Other ? IndexOf(Self().Items(), text) : -1;
  if (chosen >= 0) return Self().PeerListIndex(chosen);
  if (m_input == Input::Letter) Complete();
  Self().PeerText(Narrow(m_text->getText()));
}

void ComboBoxPeer::OnReport(Happening happening) {
  if (happening == Happening::Text || happening == Happening::Choice) TextHasChanged();
}

}  // namespace pellora::libreoffice
