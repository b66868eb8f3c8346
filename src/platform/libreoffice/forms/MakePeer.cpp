#include "forms/MakePeer.h"

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

bool IsListOnly(const pellora::Control& control) {
  return control.Kind() == ControlKind::ComboBox &&
         static_cast<const pellora::ComboBox&>(control).Style() != ComboStyle::DropDown;
}

}  // namespace

std::unique_ptr<UnoControlPeer> MakePeer(UnoFormPeer& form, pellora::Control& control) {
  // To the toolkit it is a list that drops down.
  if (IsListOnly(control)) return std::make_unique<ListPeer>(form, static_cast<pellora::ListControl&>(control));
  return MakePeerOf<UnoControlPeer, LabelPeer, TextBoxPeer, CheckBoxPeer, OptionButtonPeer, ComboBoxPeer, ListPeer,
                    CommandButtonPeer, FramePeer, PagesPeer, GridPeer, ContainerPeer>(form, control);
}

}  // namespace pellora::libreoffice
