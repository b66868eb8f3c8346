#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "workbook/Document.h"

namespace pellora::workbook {

/// A rectangle of cells, both corners included, rows and columns from 1. Whole columns reach from the first row to
/// the last one, whole rows likewise; no cell is made for them.
struct Area {
  int top = 1, left = 1, bottom = 1, right = 1;
  bool operator==(const Area&) const = default;

  static Area Of(CellPlace place) { return {place.row, place.column, place.row, place.column}; }
  CellPlace First() const { return {top, left}; }
  int Rows() const { return bottom - top + 1; }
  int Columns() const { return right - left + 1; }
  std::int64_t Count() const { return std::int64_t{Rows()} * Columns(); }
  bool WholeColumns() const { return top == 1 && bottom == kMaxRows; }
  bool WholeRows() const { return left == 1 && right == kMaxColumns; }
  bool Contains(CellPlace place) const {
    return place.row >= top && place.row <= bottom && place.column >= left && place.column <= right;
  }
  /// True when it lies within the limits of a sheet.
  bool Valid() const { return top >= 1 && left >= 1 && bottom <= kMaxRows && right <= kMaxColumns; }
};

/// The common cells, nothing when there are none.
std::optional<Area> Common(const Area& left, const Area& right);
/// The smallest area that holds both.
Area Around(const Area& left, const Area& right);

/// Plain A1 notation without a sheet: "B3", "$B$3:D5", "A:C", "5:7", corners in any order, letters in any case.
/// Nothing for anything else or beyond a sheet's limits.
std::optional<Area> ParseArea(std::string_view text);
/// A single cell's notation, such as "B5" or "$B$5".
std::optional<CellPlace> ParseCell(std::string_view text);
/// Column letters, "A" to "XFD"; nothing for anything else.
std::optional<int> ParseColumn(std::string_view letters);

std::string ColumnLetters(int column);
/// The notation of an area: "$B$3:$D$5"; whole columns "$E:$E", whole rows and the whole sheet "$1:$5".
std::string AreaText(const Area& area, bool rowAbsolute = true, bool columnAbsolute = true);

/// Visits the touched cells of an area, row by row; rows without cells there cost nothing.
template <class Cells, class Visitor>
void ForEachCell(Cells& cells, const Area& area, Visitor visit) {
  auto at = cells.lower_bound(area.First());
  while (at != cells.end() && at->first.row <= area.bottom) {
    const CellPlace place = at->first;
    if (place.column < area.left)
      at = cells.lower_bound({place.row, area.left});
    else if (place.column > area.right)
      at = cells.lower_bound({place.row + 1, area.left});
    else
      visit(place, (at++)->second);
  }
}

}  // namespace pellora::workbook
