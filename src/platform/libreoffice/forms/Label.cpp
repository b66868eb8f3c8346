#include "platform/libreoffice/forms/Label.h"

#include <com/sun/star/awt/XFixedText.hpp>
#include <com/sun/star/style/VerticalAlignment.hpp>

#include "platform/libreoffice/forms/Form.h"

namespace pellora::libreoffice {

LabelPeer::LabelPeer(UnoFormPeer& form, pellora::Label& label) : PeerOf(form, label) {
  Make("fixedtext");
  // Centred, so that its text stands level with the control beside it.
  m_window.Set("VerticalAlign", uno::Any(com::sun::star::style::VerticalAlignment_MIDDLE));
  SetCaption();
}

void LabelPeer::SetCaption() {
  const auto text = m_window.As<awt::XFixedText>();
  if (text.is()) text->setText(Caption());
}

void LabelPeer::Update(Aspect aspect) {
  if (aspect != Aspect::Text) return;
  SetCaption();
  m_form.RequestLayout();
}

}  // namespace pellora::libreoffice
