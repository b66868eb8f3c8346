#include "forms/Frame.h"

namespace pellora {

Frame::Frame(Container& parent, std::string_view name, std::string_view caption)
    : Container(&parent, ControlKind::Frame, name) {
  Caption(caption);
}

Panel::Panel(Container& parent, std::string_view name) : Container(&parent, ControlKind::Panel, name) {}

}  // namespace pellora
