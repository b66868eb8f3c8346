#include "forms/CommandButton.h"

namespace pellora {

CommandButton::CommandButton(Container& parent, std::string_view name, std::string_view caption)
    : Control(&parent, ControlKind::CommandButton, name) {
  Caption(caption);
}

void CommandButton::PeerClick() {
  if (Usable()) Raise(Click);
}

}  // namespace pellora
