#include "platform/windows/forms/CheckBox.h"
#include "platform/windows/forms/ComboBox.h"
#include "platform/windows/forms/CommandButton.h"
#include "platform/windows/forms/Frame.h"
#include "platform/windows/forms/Grid.h"
#include "platform/windows/forms/Label.h"
#include "platform/windows/forms/ListBox.h"
#include "platform/windows/forms/OptionButton.h"
#include "platform/windows/forms/Pages.h"
#include "platform/windows/forms/TextBox.h"

namespace pellora::windows {
namespace {

template <class Peer, class Kind>
std::unique_ptr<WindowsControlPeer> Make(WindowsFormPeer& form, pellora::Control& control) {
  return std::make_unique<Peer>(form, static_cast<Kind&>(control));
}

}  // namespace

std::unique_ptr<WindowsControlPeer> MakePeer(WindowsFormPeer& form, pellora::Control& control) {
  switch (control.Kind()) {
    case ControlKind::Label: return Make<LabelPeer, pellora::Label>(form, control);
    case ControlKind::TextBox: return Make<TextBoxPeer, pellora::TextBox>(form, control);
    case ControlKind::CheckBox: return Make<CheckBoxPeer, pellora::CheckBox>(form, control);
    case ControlKind::OptionButton: return Make<OptionButtonPeer, pellora::OptionButton>(form, control);
    case ControlKind::ComboBox: return Make<ComboBoxPeer, pellora::ComboBox>(form, control);
    case ControlKind::ListBox: return Make<ListBoxPeer, pellora::ListBox>(form, control);
    case ControlKind::CommandButton: return Make<CommandButtonPeer, pellora::CommandButton>(form, control);
    case ControlKind::Frame: return Make<FramePeer, pellora::Frame>(form, control);
    case ControlKind::Pages: return Make<PagesPeer, pellora::Pages>(form, control);
    case ControlKind::Grid: return Make<GridPeer, pellora::Grid>(form, control);
    case ControlKind::Panel:
    case ControlKind::Page: break;
  }
  return std::make_unique<ContainerPeer>(form, control);
}

}  // namespace pellora::windows
