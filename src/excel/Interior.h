#pragma once

#include "excel/Door.h"

namespace pellora::excel {

/// The background of a range.
class Interior : public Object {
 public:
  using Object::Object;
  void ColorIndex(std::int32_t index) const;
};

}  // namespace pellora::excel
