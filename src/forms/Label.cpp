#include "forms/Label.h"

namespace pellora {

Label::Label(Container& parent, std::string_view name, std::string_view caption)
    : Control(&parent, ControlKind::Label, name) {
  Caption(caption);
}

}  // namespace pellora
