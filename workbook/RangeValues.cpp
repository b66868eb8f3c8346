#include <algorithm>

#include "workbook/RangeObject.h"
#include "workbook/Shift.h"
#include "workbook/Showing.h"
#include "workbook/Typing.h"

namespace pellora::workbook {
namespace {

// The answer for the first area: a plain value for one cell, otherwise a block from 1 with `of` each touched cell;
// cells never touched stay as `untouched`.
template <class Of>
Variant Block(const RangeObject& range, const Variant& untouched, Of of) {
  const Area& area = range.first();
  const auto& sheet = range.sheet();
  if (area.Count() == 1) {
    const Cell* cell = sheet->Find(area.First());
    return cell ? of(area.First(), *cell) : untouched;
  }
  if (area.Count() > kMostCellsRead) throw Error(errors::OutOfMemory);
  const auto rows = static_cast<std::size_t>(area.Rows()), columns = static_cast<std::size_t>(area.Columns());
  auto block = std::make_shared<VariantArray>(rows, columns);
  if (!untouched.IsEmpty())
    for (std::size_t i = 0; i < rows * columns; ++i) block->At(i / columns, i % columns) = untouched;
  ForEachCell(std::as_const(sheet->cells), area, [&](CellPlace place, const Cell& cell) {
    block->At(static_cast<std::size_t>(place.row - area.top), static_cast<std::size_t>(place.column - area.left)) =
        of(place, cell);
  });
  return block;
}

// A cell that holds nothing and looks like any other is not kept.
void DropIfPlain(Sheet& sheet, CellPlace place) {
  const auto hit = sheet.cells.find(place);
  if (hit == sheet.cells.end()) return;
  const Cell& cell = hit->second;
  if (cell.value.IsEmpty() && cell.formula.empty() && cell.format == CellFormat()) sheet.cells.erase(hit);
}

void ClearArea(Sheet& sheet, const Area& area) {
  std::vector<CellPlace> plain;
  ForEachCell(sheet.cells, area, [&](CellPlace place, Cell& cell) {
    cell.value = {};
    cell.formula.clear();
    plain.push_back(place);
  });
  for (const CellPlace place : plain) DropIfPlain(sheet, place);
}

template <class Put>
void ForEachPlace(const Area& area, Put put) {
  if (area.Count() > kMostCellsMade) Refuse("The embedded workbook does not fill that many cells at once");
  for (int row = area.top; row <= area.bottom; ++row)
    for (int column = area.left; column <= area.right; ++column) put(CellPlace{row, column});
}

// The element for a cell: an array of one row or one column is repeated along the other way, and past its end
// cells get #N/A.
Variant Element(const VariantArray& block, int row, int column) {
  const auto r = block.Rows() == 1 ? 0 : static_cast<std::size_t>(row);
  const auto c = block.Columns() == 1 ? 0 : static_cast<std::size_t>(column);
  return r < block.Rows() && c < block.Columns() ? block.At(r, c) : Variant::CellError(kNotAvailable);
}

bool ClearsCells(const Variant& value) {
  return value.IsEmpty() || value.Is(Variant::Type::Null) ||
         (value.Is(Variant::Type::String) && value.String().empty());
}

// What a cell so far from the first one gets: a formula's relative references move along.
Variant ValueFor(const Variant& value, int row, int column) {
  if (value.Is(Variant::Type::Array)) return Element(value.Array(), row, column);
  const bool formula = value.Is(Variant::Type::String) && value.String().starts_with('=');
  return formula && (row != 0 || column != 0) ? Variant(ShiftFormula(value.String(), row, column)) : value;
}

void PutArea(Sheet& sheet, const Area& area, const Variant& value) {
  if (ClearsCells(value)) return ClearArea(sheet, area);
  ForEachPlace(area, [&](CellPlace place) {
    PutInto(sheet.At(place), ValueFor(value, place.row - area.top, place.column - area.left));
    DropIfPlain(sheet, place);
  });
}

}  // namespace

Variant ValuesOf(const RangeObject& range) {
  return Block(range, {}, [&](CellPlace place, const Cell& cell) {
    return cell.formula.empty() ? cell.value : Shown(range.state().document, range.sheet(), place);
  });
}

Variant FormulasOf(const RangeObject& range) {
  return Block(range, "", [](CellPlace, const Cell& cell) -> Variant {
    return cell.formula.empty() ? DisplayText(cell.value) : cell.formula;
  });
}

Variant TextOf(const RangeObject& range) {
  const CellPlace place = range.first().First();
  const std::string text = DisplayText(Shown(range.state().document, range.sheet(), place));
  if (range.areas().size() == 1 && range.first().Count() == 1) return text;
  return Variant::Null();
}

void PutValues(RangeObject& range, const Variant& value) {
  const bool object = value.Is(Variant::Type::Object) && value.Object();
  const Variant plain = object ? ValuesOf(*AsRange(value)) : value;
  for (const Area& area : range.areas()) PutArea(*range.sheet(), area, plain);
}

}  // namespace pellora::workbook
