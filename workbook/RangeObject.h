#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "workbook/Object.h"
#include "workbook/Reference.h"

namespace pellora::workbook {

/// What a range counts and hands out as its items: cells, or whole lines of the range (`Rows`, `Columns`).
enum class RangeUnit { Cells, Rows, Columns };

/// A cell, an area, rows, columns or several areas of one sheet. Makes no cells by itself, whatever its size.
class RangeObject final : public ObjectOf<RangeObject> {
 public:
  static constexpr std::string_view kName = "Range";
  static std::span<const Member<RangeObject>> Members();

  RangeObject(StatePtr state, Reference reference, RangeUnit unit = RangeUnit::Cells)
      : ObjectOf(std::move(state)), m_reference(std::move(reference)), m_unit(unit) {}

  /// Raises 424 when its workbook is no longer open.
  const std::shared_ptr<Sheet>& sheet() const;
  const std::vector<Area>& areas() const { return m_reference.areas; }
  const Area& first() const { return m_reference.areas.front(); }
  RangeUnit unit() const { return m_unit; }

  /// A range of one area on the same sheet; raises 1004 when it does not lie on the sheet.
  Variant On(const Area& area, RangeUnit unit = RangeUnit::Cells) const;
  Variant On(std::vector<Area> areas, RangeUnit unit = RangeUnit::Cells) const;

 private:
  Reference m_reference;
  RangeUnit m_unit;
};

Variant WrapRange(const StatePtr& state, Reference reference, RangeUnit unit = RangeUnit::Cells);

/// `Range` with one argument (text or range) or two (the corners), for an application or a sheet. With `only`, what
/// lies on another sheet is refused, as sheets do. Raises 1004 for what is no reference.
Variant RangeFrom(const StatePtr& state, const std::shared_ptr<Sheet>& base, const Arguments& arguments, bool only);

/// `Cells`, `Rows` and `Columns` of an area, with their optional indexes.
Variant CellsOf(const RangeObject& range, const Arguments& arguments);
Variant LinesOf(const RangeObject& range, RangeUnit unit, const Arguments& arguments);

/// The whole of a sheet as a range.
std::shared_ptr<RangeObject> WholeSheet(const StatePtr& state, const std::shared_ptr<Sheet>& sheet);

/// The area that holds everything on a sheet, content or look; "A1" when there is nothing.
Area UsedArea(const Sheet& sheet);

/// The range behind an argument; raises 13 for anything else.
std::shared_ptr<RangeObject> AsRange(const Variant& value);

/// `Intersect` and `Union` of the ranges in `arguments`.
Variant IntersectRanges(const Arguments& arguments);
Variant UniteRanges(const Arguments& arguments);

/// Topics of their own: values and formulas, search, look.
Variant ValuesOf(const RangeObject& range);
Variant FormulasOf(const RangeObject& range);
void PutValues(RangeObject& range, const Variant& value);
Variant TextOf(const RangeObject& range);
Variant FindIn(const RangeObject& range, const Arguments& arguments);
Variant WidthOf(const RangeObject& range);
void PutWidth(RangeObject& range, double characters);
void FitColumns(RangeObject& range);
Variant InteriorOf(const RangeObject& range);
Variant BordersOf(const RangeObject& range, const Arguments& arguments);

/// The most cells that one write may make; more are refused.
inline constexpr std::int64_t kMostCellsMade = std::int64_t{1} << 18;
/// The most cells that one read may answer.
inline constexpr std::int64_t kMostCellsRead = std::int64_t{1} << 22;

}  // namespace pellora::workbook
