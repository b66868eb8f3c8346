#pragma once

#include "forms/ListControl.h"

namespace pellora {

/// A list on view.
class ListBox : public ListControl {
 public:
  ListBox(Container& parent, std::string_view name);
};

}  // namespace pellora
