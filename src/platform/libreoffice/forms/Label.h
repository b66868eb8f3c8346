#pragma once

#include "forms/Label.h"
#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

class LabelPeer : public PeerOf<pellora::Label> {
 public:
  LabelPeer(UnoFormPeer& form, pellora::Label& label);

 protected:
  void Update(Aspect aspect) override;
  void SetCaption() override;
  TextStyle Style() const override { return Self().Style(); }
};

}  // namespace pellora::libreoffice
