#pragma once

#include <string>
#include <string_view>

#include "excel/Range.h"

namespace pellora::excel {

/// A sheet of cells.
class Worksheet : public Object {
 public:
  using Object::Object;
  std::string Name() const;
  void Select() const;
  excel::Range Range(std::string_view address) const;
  excel::Range Cells() const;
};

}  // namespace pellora::excel
