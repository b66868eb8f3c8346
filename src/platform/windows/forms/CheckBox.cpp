#include "platform/windows/forms/CheckBox.h"

namespace pellora::windows {

CheckBoxPeer::CheckBoxPeer(WindowsFormPeer& form, pellora::CheckBox& box) : PeerOf(form, box) {
  Make(WC_BUTTONW, BS_3STATE | BS_NOTIFY | WS_TABSTOP);
  Changed(Aspect::Value);
}

void CheckBoxPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Text) SetWindowCaption();
  // 0, 1 and 2 are the platform's unchecked, checked and indeterminate.
  if (aspect == Aspect::Value) Send(BM_SETCHECK, static_cast<WPARAM>(Self().Value()));
}

void CheckBoxPeer::OnCommand(WORD code) {
  if (code == BN_CLICKED) Self().PeerClick();
  if (code == BN_SETFOCUS) FocusReported();
}

}  // namespace pellora::windows
