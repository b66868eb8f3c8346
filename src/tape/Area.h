#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pellora {

/// Limits of a sheet.
inline constexpr int kSheetRows = 1048576;
inline constexpr int kSheetColumns = 16384;

/// A rectangle of cells; rows and columns count from 1, all four are inside.
struct Area {
  int top = 1;
  int left = 1;
  int bottom = 1;
  int right = 1;
  bool operator==(const Area&) const = default;
};

/// Reads a plain address: a cell, two corners in any order, whole columns ("$E:$E") or whole rows ("3:5"), with or
/// without dollar signs, without a sheet. Nothing for anything else, also when it is well-formed but off the sheet.
std::optional<Area> ParseArea(std::string_view address);

/// Reads plain addresses joined by commas.
std::optional<std::vector<Area>> ParseAreas(std::string_view addresses);

/// The cells that both have.
std::optional<Area> Intersection(const Area& left, const Area& right);

/// The area as the spreadsheet writes it: one cell as "$B$3", a full width as rows, a full height as columns.
std::string AbsoluteAddress(const Area& area);
/// The same without dollar signs.
std::string RelativeAddress(const Area& area);

}  // namespace pellora
