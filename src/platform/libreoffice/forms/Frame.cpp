#include "platform/libreoffice/forms/Frame.h"

#include "platform/libreoffice/forms/Form.h"

namespace pellora::libreoffice {

FramePeer::FramePeer(UnoFormPeer& form, pellora::Frame& frame) : PeerOf(form, frame) {
  Make("groupbox");
  SetCaption();
}

void FramePeer::SetCaption() { m_window.Set("Label", uno::Any(Caption())); }

void FramePeer::Update(Aspect aspect) {
  if (aspect != Aspect::Text) return;
  SetCaption();
  m_form.RequestLayout();
}

}  // namespace pellora::libreoffice
