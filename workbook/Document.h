#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Variant.h"

namespace pellora::workbook {

/// Limits of a sheet.
inline constexpr int kMaxRows = 1048576;
inline constexpr int kMaxColumns = 16384;

/// A cell's place, both from 1.
struct CellPlace {
  int row = 1;
  int column = 1;
  auto operator<=>(const CellPlace&) const = default;
};

/// No line or no colour, and the colour that the system has, as the object model numbers them.
inline constexpr std::int32_t kNone = -4142, kAutomatic = -4105;

/// One border line of a cell as the object model numbers it.
struct BorderLine {
  int style = kNone;
  int weight = 2;
  int colorIndex = kAutomatic;
  bool operator==(const BorderLine&) const = default;
};

/// A cell's look, as far as it is modelled. Borders in the order diagonal down (5), diagonal up (6), left (7), top (8),
/// bottom (9), right (10). `interior` may be `kNone`.
struct CellFormat {
  BorderLine borders[6];
  int interior = kNone;
  /// The style of the file the cell came from, whose other properties (fonts, number formats) are kept; -1 for none.
  int fileStyle = -1;
  bool operator==(const CellFormat&) const = default;
};

struct Cell {
  /// What the cell holds; of a formula, its last known result.
  Variant value;
  /// With the leading "="; empty for a constant.
  std::string formula;
  CellFormat format;
};

/// One sheet: cells by place, column widths in characters.
struct Sheet {
  std::string name;
  std::map<CellPlace, Cell> cells;
  std::map<int, double> columnWidths;

  /// The cell to write to, made when it is not there.
  Cell& At(CellPlace place) { return cells[place]; }
  /// The cell, or null when it was never touched.
  const Cell* Find(CellPlace place) const;
};

/// The width of a column that nobody has set, in characters.
inline constexpr double kStandardColumnWidth = 8.43;

/// The content of a workbook: sheets in order, names, the active sheet. Plain data; the meaning of addresses and
/// formulas is in the object model (Host).
class Document {
 public:
  std::vector<std::shared_ptr<Sheet>> sheets;
  /// Workbook names with what they refer to, for instance "TWS_Symbol" -> "TWS_Quotes!$A:$A". Case apart.
  std::vector<std::pair<std::string, std::string>> names;
  std::size_t active = 0;

  /// Appends an empty sheet.
  Sheet& AddSheet(std::string_view name);
  /// The sheet of that name, letter case apart, or null.
  Sheet* FindSheet(std::string_view name);
  /// Adds a workbook name or gives an existing one a new meaning.
  void AddName(std::string_view name, std::string_view refersTo);
  /// What a workbook name refers to, or null.
  const std::string* FindName(std::string_view name) const;

  /// Short ways for tests: `address` is a plain cell address such as "B5"; the sheet must exist.
  /// Sets a value as is (no reading as if typed); a text beginning with "=" is a formula.
  void Set(std::string_view sheet, std::string_view address, const Variant& value);
  /// The cell's value, following link formulas; empty for a cell never touched.
  Variant Value(std::string_view sheet, std::string_view address);
  /// The formula, "" for none.
  std::string Formula(std::string_view sheet, std::string_view address);
  /// The format; the default one for a cell never touched.
  CellFormat Format(std::string_view sheet, std::string_view address);
  /// The column's width in characters by a letter such as "B", 8.43 unless set.
  double ColumnWidth(std::string_view sheet, std::string_view column);

  /// What the file held that is not modelled, kept for saving.
  struct FileParts;
  std::shared_ptr<FileParts> fileParts;
};

}  // namespace pellora::workbook
