#include "platform/libreoffice/forms/CheckBox.h"
#include "platform/libreoffice/forms/ComboBox.h"
#include "platform/libreoffice/forms/CommandButton.h"
#include "platform/libreoffice/forms/Frame.h"
#include "platform/libreoffice/forms/Grid.h"
#include "platform/libreoffice/forms/Label.h"
#include "platform/libreoffice/forms/ListBox.h"
#include "platform/libreoffice/forms/OptionButton.h"
#include "platform/libreoffice/forms/Pages.h"
#include "platform/libreoffice/forms/TextBox.h"

namespace pellora::libreoffice {
namespace {

template <class Peer, class Kind>
std::unique_ptr<UnoControlPeer> Make(UnoFormPeer& form, pellora::Control& control) {
  return std::make_unique<Peer>(form, static_cast<Kind&>(control));
}

std::unique_ptr<UnoControlPeer> MakeCombo(UnoFormPeer& form, pellora::Control& control) {
  const auto editable = static_cast<pellora::ComboBox&>(control).Style() == ComboStyle::DropDown;
  return editable ? Make<ComboBoxPeer, pellora::ComboBox>(form, control)
                  : Make<ListPeer, pellora::ListControl>(form, control);
}

}  // namespace

std::unique_ptr<UnoControlPeer> MakePeer(UnoFormPeer& form, pellora::Control& control) {
  switch (control.Kind()) {
    case ControlKind::Label: return Make<LabelPeer, pellora::Label>(form, control);
    case ControlKind::TextBox: return Make<TextBoxPeer, pellora::TextBox>(form, control);
    case ControlKind::CheckBox: return Make<CheckBoxPeer, pellora::CheckBox>(form, control);
    case ControlKind::OptionButton: return Make<OptionButtonPeer, pellora::OptionButton>(form, control);
    case ControlKind::ComboBox: return MakeCombo(form, control);
    case ControlKind::ListBox: return Make<ListPeer, pellora::ListControl>(form, control);
    case ControlKind::CommandButton: return Make<CommandButtonPeer, pellora::CommandButton>(form, control);
    case ControlKind::Frame: return Make<FramePeer, pellora::Frame>(form, control);
    case ControlKind::Pages: return Make<PagesPeer, pellora::Pages>(form, control);
    case ControlKind::Grid: return Make<GridPeer, pellora::Grid>(form, control);
    case ControlKind::Panel:
    case ControlKind::Page: break;
  }
  return std::make_unique<ContainerPeer>(form, control);
}

}  // namespace pellora::libreoffice
