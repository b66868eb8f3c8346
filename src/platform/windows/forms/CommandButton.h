#pragma once

#include "forms/CommandButton.h"
#include "platform/windows/forms/Control.h"
#include "platform/windows/forms/Owners.h"

namespace pellora::windows {

/// Shows a caption, or an arrow drawn at the form's scale in the colour of button texts.
class CommandButtonPeer : public PeerOf<pellora::CommandButton> {
 public:
  CommandButtonPeer(WindowsFormPeer& form, pellora::CommandButton& button);

  void FontChanged() override;
  void ColoursChanged() override;
  /// Draws the heavier border of the button that Enter presses.
  void ShowAsDefault(bool isDefault);

 protected:
  void Update(Aspect aspect) override;
  void OnCommand(WORD code) override;

 private:
  void DrawPicture();

  IconOwner m_picture;
};

}  // namespace pellora::windows
