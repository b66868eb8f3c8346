#pragma once

#include "forms/OptionButton.h"
#include "platform/windows/forms/Control.h"

namespace pellora::windows {

/// Shows the control's state; the arrow keys move within the control's group and select, whatever other windows
/// stand between.
class OptionButtonPeer : public PeerOf<pellora::OptionButton> {
 public:
  OptionButtonPeer(WindowsFormPeer& form, pellora::OptionButton& option);

  KeyUse Use(const MSG& message) override;

 protected:
  void Update(Aspect aspect) override;
  void OnCommand(WORD code) override;
};

}  // namespace pellora::windows
