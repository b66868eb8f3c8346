#include "platform/windows/forms/Label.h"

#include "platform/windows/forms/Form.h"

namespace pellora::windows {

LabelPeer::LabelPeer(WindowsFormPeer& form, pellora::Label& label) : PeerOf(form, label) {
  // Centred, so that its text stands level with the control beside it.
  Make(WC_STATICW, SS_LEFT | SS_CENTERIMAGE);
}

void LabelPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Text) SetWindowCaption();
}

HFONT LabelPeer::Font() const { return m_form.GetFonts().Get(Self().Style()); }

}  // namespace pellora::windows
