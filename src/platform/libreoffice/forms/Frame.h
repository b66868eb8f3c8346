#pragma once

#include "forms/Frame.h"
#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

/// The border and title only; what stands in the frame are its siblings on the form's window.
class FramePeer : public PeerOf<pellora::Frame> {
 public:
  FramePeer(UnoFormPeer& form, pellora::Frame& frame);

 protected:
  void Update(Aspect aspect) override;
  void SetCaption() override;
};

/// A container without a window: passes its states on to the controls in it.
class ContainerPeer : public UnoControlPeer {
 public:
  ContainerPeer(UnoFormPeer& form, pellora::Container& container) : UnoControlPeer(form, container) {}
};

}  // namespace pellora::libreoffice
