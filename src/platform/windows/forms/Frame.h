#pragma once

#include "forms/Frame.h"
#include "platform/windows/forms/Control.h"

namespace pellora::windows {

/// The border and title only; what stands in the frame are its siblings on the form's window.
class FramePeer : public PeerOf<pellora::Frame> {
 public:
  FramePeer(WindowsFormPeer& form, pellora::Frame& frame);

 protected:
  void Update(Aspect aspect) override;
};

/// A container without a window: passes its states on to the controls in it.
class ContainerPeer : public WindowsControlPeer {
 public:
  ContainerPeer(WindowsFormPeer& form, pellora::Container& container) : WindowsControlPeer(form, container) {}
};

}  // namespace pellora::windows
