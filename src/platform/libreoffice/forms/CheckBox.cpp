#include "platform/libreoffice/forms/CheckBox.h"

#include <com/sun/star/awt/XCheckBox.hpp>
#include <com/sun/star/style/VerticalAlignment.hpp>

#include "platform/libreoffice/forms/Form.h"

namespace pellora::libreoffice {

CheckBoxPeer::CheckBoxPeer(UnoFormPeer& form, pellora::CheckBox& box) : PeerOf(form, box) {
  Make("checkbox");
  m_window.Set("VerticalAlign", uno::Any(com::sun::star::style::VerticalAlignment_MIDDLE));
  SetCaption();
  Changed(Aspect::Value);
  WhileThere([&] { m_window.As<awt::XCheckBox>()->addItemListener(Listener()); });
}

void CheckBoxPeer::SetCaption() {
  const auto box = m_window.As<awt::XCheckBox>();
  if (box.is()) box->setLabel(Caption());
}

void CheckBoxPeer::Update(Aspect aspect) {
  const auto box = m_window.As<awt::XCheckBox>();
  if (aspect == Aspect::Text) {
    SetCaption();
    m_form.RequestLayout();
  }
  if (aspect != Aspect::Value || !box.is()) return;
  // A click would go through all three states otherwise.
  box->enableTriState(Self().Value() == 2);
  box->setState(Self().Value());
}

void CheckBoxPeer::OnReport(Happening happening) {
  if (happening != Happening::Choice) return;
  Self().PeerClick();
  // The window has gone on to a state of its own.
  if (m_window) Changed(Aspect::Value);
}

}  // namespace pellora::libreoffice
