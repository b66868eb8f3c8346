#pragma once

#include "forms/CheckBox.h"
#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

/// Shows the control's three states; a click asks the control, which decides what comes next.
class CheckBoxPeer : public PeerOf<pellora::CheckBox> {
 public:
  CheckBoxPeer(UnoFormPeer& form, pellora::CheckBox& box);

 protected:
  void Update(Aspect aspect) override;
  void OnReport(Happening happening) override;
  void SetCaption() override;
};

}  // namespace pellora::libreoffice
