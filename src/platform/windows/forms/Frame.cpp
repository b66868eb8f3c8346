#include "platform/windows/forms/Frame.h"

namespace pellora::windows {

FramePeer::FramePeer(WindowsFormPeer& form, pellora::Frame& frame) : PeerOf(form, frame) {
  Make(WC_BUTTONW, BS_GROUPBOX | WS_GROUP);
}

void FramePeer::Update(Aspect aspect) {
  if (aspect == Aspect::Text) SetWindowCaption();
}

}  // namespace pellora::windows
