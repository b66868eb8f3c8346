#pragma once

#include "forms/TextBox.h"
#include "platform/windows/forms/Control.h"

namespace pellora::windows {

class TextBoxPeer : public PeerOf<pellora::TextBox> {
 public:
  TextBoxPeer(WindowsFormPeer& form, pellora::TextBox& box);

  /// Control+A selects all, in boxes of several lines too.
  KeyUse Use(const MSG& message) override;
  void TabbedTo() override;

 protected:
  void Update(Aspect aspect) override;
  void OnCommand(WORD code) override;
};

}  // namespace pellora::windows
