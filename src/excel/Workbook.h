#pragma once

#include <string_view>

#include "excel/Worksheet.h"

namespace pellora::excel {

/// An open file.
class Workbook : public Object {
 public:
  using Object::Object;
  Worksheet Worksheets(std::string_view name) const;
  void Activate() const;
};

}  // namespace pellora::excel
