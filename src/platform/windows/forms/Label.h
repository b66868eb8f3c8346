#pragma once

#include "forms/Label.h"
#include "platform/windows/forms/Control.h"

namespace pellora::windows {

class LabelPeer : public PeerOf<pellora::Label> {
 public:
  LabelPeer(WindowsFormPeer& form, pellora::Label& label);

 protected:
  void Update(Aspect aspect) override;
  HFONT Font() const override;
};

}  // namespace pellora::windows
