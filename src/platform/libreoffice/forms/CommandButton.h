#pragma once

#include "forms/CommandButton.h"
#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

/// Shows a caption, or an arrow drawn at the form's scale in the colour of button texts.
class CommandButtonPeer : public PeerOf<pellora::CommandButton> {
 public:
  CommandButtonPeer(UnoFormPeer& form, pellora::CommandButton& button);

  /// Draws the heavier border of the button that Enter presses.
  void ShowAsDefault(bool isDefault);

 protected:
  void Update(Aspect aspect) override;
  void OnReport(Happening happening) override;
  void SetCaption() override;

 private:
  void SetPicture();
};

}  // namespace pellora::libreoffice
