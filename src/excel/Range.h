#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "excel/Border.h"
#include "excel/Door.h"
#include "excel/Interior.h"

namespace pellora::excel {

/// Numbers of the spreadsheet's object model, by its own names.
inline constexpr std::int32_t xlCellTypeLastCell = 11;
inline constexpr std::int32_t xlByRows = 1;
inline constexpr std::int32_t xlByColumns = 2;
inline constexpr std::int32_t xlPrevious = 2;
inline constexpr std::int32_t xlFormulas = -4123;
inline constexpr std::int32_t xlPart = 2;

/// A cell, an area, a row, a column or several areas.
class Range : public Object {
 public:
  using Object::Object;

  /// The cell at a row and column of the range, both from 1; may lie outside it.
  Range Cells(std::int32_t row, std::int32_t column) const;
  /// All cells of the range, as an object to search in.
  Range Cells() const;
  Range Rows() const;
  Range Columns() const;
  Range EntireColumn() const;
  Range Resize(std::int32_t rows, std::int32_t columns) const;
  std::int32_t Row() const;
  std::int32_t Column() const;
  std::int32_t Count() const;

  /// Absolute A1 form without the sheet; relative with `absolute` false.
  std::string Address(bool absolute = true) const;

  Variant Value() const;
  void Value(const Variant& value) const;
  /// The values of all cells as a two-dimensional array from 1, of a single cell too.
  std::shared_ptr<VariantArray> ValueBlock() const;
  Variant FormulaLocal() const;
  void FormulaLocal(std::string_view formula) const;
  /// The formulas of all cells as a two-dimensional array from 1, of a single cell too.
  std::shared_ptr<VariantArray> FormulaLocalBlock() const;

  void ColumnWidth(double characters) const;
  excel::Interior Interior() const;
  Border Borders(std::int32_t index) const;
  void AutoFit() const;
  void Select() const;
  Range SpecialCells(std::int32_t type) const;
  /// The last cell that holds `what`, searched backwards from the first cell in the given order; nothing when none.
  Range FindPrevious(std::string_view what, std::int32_t searchOrder) const;
};

}  // namespace pellora::excel
