#pragma once

#include "forms/Control.h"

namespace pellora {

/// A titled border around controls.
class Frame : public Container {
 public:
  Frame(Container& parent, std::string_view name, std::string_view caption);
};

/// A container without a look of its own.
class Panel : public Container {
 public:
  Panel(Container& parent, std::string_view name);
};

}  // namespace pellora
