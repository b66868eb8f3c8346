#include "forms/ListBox.h"

namespace pellora {

ListBox::ListBox(Container& parent, std::string_view name) : ListControl(&parent, ControlKind::ListBox, name) {}

}  // namespace pellora
