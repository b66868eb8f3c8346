#pragma once

#include "forms/CheckBox.h"
#include "platform/windows/forms/Control.h"

namespace pellora::windows {

/// Shows the control's three states; a click asks the control, which decides what comes next.
class CheckBoxPeer : public PeerOf<pellora::CheckBox> {
 public:
  CheckBoxPeer(WindowsFormPeer& form, pellora::CheckBox& box);

 protected:
  void Update(Aspect aspect) override;
  void OnCommand(WORD code) override;
};

}  // namespace pellora::windows
