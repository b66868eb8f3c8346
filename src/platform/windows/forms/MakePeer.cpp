#include "forms/MakePeer.h"

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

std::unique_ptr<WindowsControlPeer> MakePeer(WindowsFormPeer& form, pellora::Control& control) {
  return MakePeerOf<WindowsControlPeer, LabelPeer, TextBoxPeer, CheckBoxPeer, OptionButtonPeer, ComboBoxPeer,
                    ListBoxPeer, CommandButtonPeer, FramePeer, PagesPeer, GridPeer, ContainerPeer>(form, control);
}

}  // namespace pellora::windows
