#include "platform/libreoffice/forms/ListBox.h"

#include <com/sun/star/awt/VclWindowPeerAttribute.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>

#include "platform/libreoffice/forms/DropDown.h"
#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

sal_Int32 AttributesOf(const pellora::ListControl& list) {
  const auto dropsDown = list.Kind() == ControlKind::ComboBox;
  return awt::WindowAttribute::BORDER |
         (dropsDown ? awt::VclWindowPeerAttribute::DROPDOWN : awt::VclWindowPeerAttribute::VSCROLL);
}

}  // namespace

ListPeer::ListPeer(UnoFormPeer& form, pellora::ListControl& list) : PeerOf(form, list) {
  Make("listbox", AttributesOf(list));
  m_list = m_window.As<awt::XListBox>();
  if (list.Kind() == ControlKind::ComboBox) WhileThere([&] { m_list->setDropDownLineCount(kDropDownLines); });
  Changed(Aspect::Items);
  Changed(Aspect::ListIndex);
  WhileThere([&] { m_list->addItemListener(Listener()); });
}

UnoControlPeer::KeyUse ListPeer::Use(const awt::KeyEvent& key) {
  const auto dropsDown = Self().Kind() == ControlKind::ComboBox && IsForDroppedList(key);
  return dropsDown && IsDroppedDown(m_form.GetContext(), m_window) ? KeyUse::Native : KeyUse::Form;
}

void ListPeer::FollowItems() {
  m_items.Follow(
      Self().Items(), [&](int index) { m_list->removeItems(static_cast<sal_Int16>(index), 1); },
      [&](int index, const std::string& item) { m_list->addItem(Wide(item), static_cast<sal_Int16>(index)); });
}

void ListPeer::FollowChoice() {
  const auto shown = m_list->getSelectedItemPos();
  if (shown == Self().ListIndex()) return;
  if (Self().ListIndex() < 0)
    m_list->selectItemPos(shown, false);
  else
    m_list->selectItemPos(static_cast<sal_Int16>(Self().ListIndex()), true);
}

void ListPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Items) FollowItems();
  if (aspect == Aspect::Items || aspect == Aspect::ListIndex) FollowChoice();
}

void ListPeer::OnReport(Happening happening) {
  if (happening != Happening::Choice) return;
  const auto shown = m_list->getSelectedItemPos();
  if (shown >= 0 && shown < Self().ListCount()) Self().PeerListIndex(shown);
}

}  // namespace pellora::libreoffice
