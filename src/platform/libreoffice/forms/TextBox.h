#pragma once

#include <com/sun/star/awt/XTextComponent.hpp>

#include "forms/TextBox.h"
#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

/// The toolkit's lines end in a line feed, the control's in CR LF.
class TextBoxPeer : public PeerOf<pellora::TextBox> {
 public:
  TextBoxPeer(UnoFormPeer& form, pellora::TextBox& box);

  void TabbedTo() override;

 protected:
  void Update(Aspect aspect) override;
  void OnReport(Happening happening) override;

 private:
  void SelectAll();

  uno::Reference<awt::XTextComponent> m_text;
};

}  // namespace pellora::libreoffice
