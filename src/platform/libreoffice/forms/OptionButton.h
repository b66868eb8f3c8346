#pragma once

#include "forms/OptionButton.h"
#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

/// The control excludes the others of its container; the toolkit's own groups, which go by the order of windows, are
/// switched off.
class OptionButtonPeer : public PeerOf<pellora::OptionButton> {
 public:
  OptionButtonPeer(UnoFormPeer& form, pellora::OptionButton& option);

  /// The arrow keys move and select.
  bool Act(const awt::KeyEvent& key) override;

 protected:
  void Update(Aspect aspect) override;
  void OnReport(Happening happening) override;
  void SetCaption() override;
};

}  // namespace pellora::libreoffice
