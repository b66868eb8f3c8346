#pragma once

#include <cstdint>
#include <string_view>

#include "excel/Workbook.h"

namespace pellora::excel {

/// The running spreadsheet program, as the workbook's macro hands it in.
class Application : public Object {
 public:
  using Object::Object;

  /// True when the object answers the members that the library uses of an application. What it is does not matter.
  static bool Accepts(const DispatchPtr& object);

  /// By workbook name or address; an address without a sheet is on the active sheet.
  excel::Range Range(std::string_view address) const;
  /// The common cells; nothing, or a failure, when there are none.
  excel::Range Intersect(const excel::Range& left, const excel::Range& right) const;
  /// A column of the active sheet, from 1.
  excel::Range Columns(std::int32_t column) const;
  Worksheet ActiveSheet() const;
  Workbook ActiveWorkbook() const;
  Worksheet Worksheets(std::string_view name) const;
  bool ScreenUpdating() const;
  void ScreenUpdating(bool on) const;
};

}  // namespace pellora::excel
