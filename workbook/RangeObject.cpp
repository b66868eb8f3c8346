#include "workbook/RangeObject.h"

#include <algorithm>
#include <array>
#include <limits>

#include "workbook/Objects.h"

namespace pellora::workbook {
namespace {

using A = const Arguments&;

std::int64_t CountOf(const RangeObject& range) {
  std::int64_t count = 0;
  for (const Area& area : range.areas())
    count += range.unit() == RangeUnit::Rows      ? area.Rows()
             : range.unit() == RangeUnit::Columns ? area.Columns()
                                                  : area.Count();
  return range.unit() == RangeUnit::Cells || range.areas().size() == 1 ? count
         : range.unit() == RangeUnit::Rows                             ? range.first().Rows()
                                                                       : range.first().Columns();
}

Variant Count(RangeObject& range, A) {
  const std::int64_t count = CountOf(range);
  if (count > std::numeric_limits<std::int32_t>::max()) throw Error(errors::Overflow);
  return static_cast<std::int32_t>(count);
}

// A column by number or letters.
int ColumnArgument(const Variant& value) {
  if (!value.Is(Variant::Type::String)) return ToLong(value);
  const auto column = ParseColumn(value.String());
  if (!column) Refuse();
  return *column;
}

// An area moved and sized in 64 bits, so that no argument can overflow on its way to being refused.
Variant Placed(const RangeObject& range, std::int64_t top, std::int64_t left, std::int64_t rows, std::int64_t columns,
               RangeUnit unit = RangeUnit::Cells) {
  const bool fits = top >= 1 && left >= 1 && rows >= 1 && columns >= 1 && top + rows - 1 <= kMaxRows &&
                    left + columns - 1 <= kMaxColumns;
  if (!fits) Refuse();
  return range.On(Area{static_cast<int>(top), static_cast<int>(left), static_cast<int>(top + rows - 1),
                       static_cast<int>(left + columns - 1)},
                  unit);
}

Variant Resize(RangeObject& range, A a) {
  const Area& area = range.first();
  return Placed(range, area.top, area.left, a.Long(0, area.Rows()), a.Long(1, area.Columns()));
}

Variant Offset(RangeObject& range, A a) {
  const Area& area = range.first();
  return Placed(range, std::int64_t{area.top} + a.Long(0, 0), std::int64_t{area.left} + a.Long(1, 0), area.Rows(),
                area.Columns());
}

Variant Address(RangeObject& range, A a) {
  constexpr std::int32_t kA1 = 1;
  if (a.Long(2, kA1) != kA1) Refuse("The embedded workbook writes addresses in A1 notation only");
  std::string text;
  const auto& sheet = range.sheet();
  for (const Area& area : range.areas()) {
    if (!text.empty()) text += ",";
    if (a.Boolean(3, false)) text += SheetNameInReference(sheet->name) + "!";
    text += AreaText(area, a.Boolean(0, true), a.Boolean(1, true));
  }
  return text;
}

Variant EntireColumn(RangeObject& range, A) {
  std::vector<Area> areas = range.areas();
  for (Area& area : areas) area.top = 1, area.bottom = kMaxRows;
  return range.On(std::move(areas), RangeUnit::Columns);
}

Variant EntireRow(RangeObject& range, A) {
  std::vector<Area> areas = range.areas();
  for (Area& area : areas) area.left = 1, area.right = kMaxColumns;
  return range.On(std::move(areas), RangeUnit::Rows);
}

Variant Select(RangeObject& range, A) {
  if (range.sheet() != range.state().ActiveSheet()) Refuse("Select method of Range class failed");
  range.state().selections[range.sheet().get()] = range.areas();
  return true;
}

Variant SpecialCells(RangeObject& range, A a) {
  constexpr std::int32_t kLastCell = 11;
  if (a.Long(0) != kLastCell) Refuse("The embedded workbook knows the last cell only");
  const Area used = UsedArea(*range.sheet());
  return range.On(Area{used.bottom, used.right, used.bottom, used.right});
}

Variant Find(RangeObject& range, A a) { return FindIn(range, a); }

Variant AutoFit(RangeObject& range, A) {
  FitColumns(range);
  return true;
}

void PutValue(RangeObject& range, A a) { PutValues(range, a.Last()); }

// The areas of a range; `Count` is what scripts ask for.
class AreasObject final : public ObjectOf<AreasObject> {
 public:
  static constexpr std::string_view kName = "Areas";
  static std::span<const Member<AreasObject>> Members();
  AreasObject(StatePtr state, std::shared_ptr<const RangeObject> range)
      : ObjectOf(std::move(state)), m_range(std::move(range)) {}
  const RangeObject& range() const { return *m_range; }

 private:
  std::shared_ptr<const RangeObject> m_range;
};

Variant AreaAt(AreasObject& areas, A a) {
  const std::int32_t index = a.Long(0);
  const auto& all = areas.range().areas();
  if (index < 1 || static_cast<std::size_t>(index) > all.size()) Refuse();
  return areas.range().On(all[static_cast<std::size_t>(index) - 1], areas.range().unit());
}

constexpr std::array kAreas = {
    Member<AreasObject>{"Count", 0, 0,
                        [](AreasObject& o, A) { return Variant(static_cast<std::int32_t>(o.range().areas().size())); }},
    Member<AreasObject>{"Item", 1, 1, &AreaAt},
    Member<AreasObject>{"_Default", 1, 1, &AreaAt},
};

std::span<const Member<AreasObject>> AreasObject::Members() { return kAreas; }

Variant Areas(RangeObject& range, A a) {
  const auto areas = std::make_shared<AreasObject>(range.statePtr(), range.shared_from_this());
  return a.Has(0) ? AreaAt(*areas, a) : Wrap(areas);
}

Variant RangeIn(RangeObject& range, A a) {
  if (a.Count() == 2) return RangeFrom(range.statePtr(), range.sheet(), a, true);
  // Relative to the first cell, as if the sheet began there.
  const auto area = ParseArea(a.Text(0));
  if (!area) Refuse();
  const Area& base = range.first();
  return Placed(range, std::int64_t{base.top} + area->top - 1, std::int64_t{base.left} + area->left - 1, area->Rows(),
                area->Columns());
}

Variant Item(RangeObject& range, A a) {
  if (range.unit() != RangeUnit::Cells && a.Count() == 1) return LinesOf(range, range.unit(), a);
  return CellsOf(range, a);
}

using R = RangeObject;

constexpr std::array kRange = {
    Member<R>{"Value", 0, 1, [](R& o, A) { return ValuesOf(o); }, &PutValue},
    Member<R>{"Value2", 0, 0, [](R& o, A) { return ValuesOf(o); }, &PutValue},
    Member<R>{"Cells", 0, 2, [](R& o, A a) { return CellsOf(o, a); }},
    Member<R>{"Address", 0, 5, &Address},
    Member<R>{"Row", 0, 0, [](R& o, A) { return Variant(std::int32_t{o.first().top}); }},
    Member<R>{"Column", 0, 0, [](R& o, A) { return Variant(std::int32_t{o.first().left}); }},
    Member<R>{"Rows", 0, 1, [](R& o, A a) { return LinesOf(o, RangeUnit::Rows, a); }},
    Member<R>{"Columns", 0, 1, [](R& o, A a) { return LinesOf(o, RangeUnit::Columns, a); }},
    Member<R>{"Count", 0, 0, &Count},
    Member<R>{"CountLarge", 0, 0, [](R& o, A) { return Variant(static_cast<double>(CountOf(o))); }},
    Member<R>{"Resize", 0, 2, &Resize},
    Member<R>{"Offset", 0, 2, &Offset},
    Member<R>{"Formula", 0, 0, [](R& o, A) { return FormulasOf(o); }, &PutValue},
    Member<R>{"FormulaLocal", 0, 0, [](R& o, A) { return FormulasOf(o); }, &PutValue},
    Member<R>{"Text", 0, 0, [](R& o, A) { return TextOf(o); }},
    Member<R>{"EntireColumn", 0, 0, &EntireColumn},
    Member<R>{"EntireRow", 0, 0, &EntireRow},
    Member<R>{"AutoFit", 0, 0, &AutoFit},
    Member<R>{"ColumnWidth", 0, 0, [](R& o, A) { return WidthOf(o); },
              [](R& o, A a) { PutWidth(o, ToDouble(a.Last())); }},
    Member<R>{"Interior", 0, 0, [](R& o, A) { return InteriorOf(o); }},
    Member<R>{"Borders", 0, 1, [](R& o, A a) { return BordersOf(o, a); }},
    Member<R>{"Select", 0, 0, &Select},
    Member<R>{"Activate", 0, 0, &Select},
    Member<R>{"SpecialCells", 1, 2, &SpecialCells},
    Member<R>{"Find", 1, 9, &Find},
    Member<R>{"Range", 1, 2, &RangeIn},
    Member<R>{"Item", 1, 2, &Item},
    Member<R>{"_Default", 0, 2, [](R& o, A a) { return a.Has(0) ? Item(o, a) : ValuesOf(o); }, &PutValue},
    Member<R>{"ClearContents", 0, 0, [](R& o, A) { return PutValues(o, Variant()), Variant(true); }},
    Member<R>{"Areas", 0, 1, &Areas},
    Member<R>{"Worksheet", 0, 0, [](R& o, A) { return WrapWorksheet(o.statePtr(), o.sheet()); }},
    Member<R>{"Parent", 0, 0, [](R& o, A) { return WrapWorksheet(o.statePtr(), o.sheet()); }},
    Member<R>{"Application", 0, 0, [](R& o, A) { return WrapApplication(o.statePtr()); }},
};

bool Touched(const Cell& cell) {
  CellFormat look = cell.format;
  look.fileStyle = -1;
  return !cell.value.IsEmpty() || !cell.formula.empty() || look != CellFormat() || cell.format.fileStyle > 0;
}

Reference ReferenceFrom(const StatePtr& state, const std::shared_ptr<Sheet>& base, const Variant& value) {
  if (value.Is(Variant::Type::Object)) {
    const auto range = AsRange(value);
    return {range->sheet(), range->areas()};
  }
  auto reference = Resolve(state->document, base, ToText(value));
  if (!reference) Refuse();
  return *reference;
}

}  // namespace

std::span<const Member<RangeObject>> RangeObject::Members() { return kRange; }

const std::shared_ptr<Sheet>& RangeObject::sheet() const {
  state().IndexOf(*m_reference.sheet);
  return m_reference.sheet;
}

Variant RangeObject::On(const Area& area, RangeUnit unit) const { return On(std::vector<Area>{area}, unit); }

Variant RangeObject::On(std::vector<Area> areas, RangeUnit unit) const {
  for (const Area& area : areas)
    if (!area.Valid()) Refuse();
  return WrapRange(statePtr(), {sheet(), std::move(areas)}, unit);
}

Variant WrapRange(const StatePtr& state, Reference reference, RangeUnit unit) {
  return Wrap(std::make_shared<RangeObject>(state, std::move(reference), unit));
}

Variant RangeFrom(const StatePtr& state, const std::shared_ptr<Sheet>& base, const Arguments& arguments, bool only) {
  Reference reference = ReferenceFrom(state, base, arguments.At(0));
  if (arguments.Has(1)) {
    const Reference other = ReferenceFrom(state, base, arguments.At(1));
    if (other.sheet != reference.sheet) Refuse();
    reference.areas = {Around(reference.areas.front(), other.areas.front())};
  }
  if (only && reference.sheet != base) Refuse();
  return WrapRange(state, std::move(reference));
}

Variant CellsOf(const RangeObject& range, const Arguments& arguments) {
  const Area& area = range.first();
  if (arguments.Count() == 0) return range.On(range.areas());
  const std::int64_t first = arguments.Long(0);
  if (arguments.Has(1))
    return Placed(range, area.top + first - 1, std::int64_t{area.left} + ColumnArgument(arguments.At(1)) - 1, 1, 1);
  // One index counts along the rows of the range.
  if (first < 1) Refuse();
  return Placed(range, area.top + (first - 1) / area.Columns(), area.left + (first - 1) % area.Columns(), 1, 1);
}

Variant LinesOf(const RangeObject& range, RangeUnit unit, const Arguments& arguments) {
  const Area& area = range.first();
  if (!arguments.Has(0)) return range.On(range.areas(), unit);
  const bool rows = unit == RangeUnit::Rows;
  const Variant& index = arguments.At(0);
  if (index.Is(Variant::Type::String) && index.String().find(':') != std::string::npos) {
    const auto lines = ParseArea(index.String());
    if (!lines || !(rows ? lines->WholeRows() : lines->WholeColumns())) Refuse();
    return rows ? Placed(range, std::int64_t{area.top} + lines->top - 1, area.left, lines->Rows(), area.Columns(), unit)
                : Placed(range, area.top, std::int64_t{area.left} + lines->left - 1, area.Rows(), lines->Columns(),
                         unit);
  }
  if (rows) return Placed(range, std::int64_t{area.top} + ToLong(index) - 1, area.left, 1, area.Columns(), unit);
  return Placed(range, area.top, std::int64_t{area.left} + ColumnArgument(index) - 1, area.Rows(), 1, unit);
}

std::shared_ptr<RangeObject> WholeSheet(const StatePtr& state, const std::shared_ptr<Sheet>& sheet) {
  return std::make_shared<RangeObject>(state, Reference{sheet, {Area{1, 1, kMaxRows, kMaxColumns}}});
}

Area UsedArea(const Sheet& sheet) {
  std::optional<Area> used;
  for (const auto& [place, cell] : sheet.cells)
    if (Touched(cell)) used = used ? Around(*used, Area::Of(place)) : Area::Of(place);
  return used.value_or(Area{});
}

std::shared_ptr<RangeObject> AsRange(const Variant& value) {
  auto range = value.Is(Variant::Type::Object) ? std::dynamic_pointer_cast<RangeObject>(value.Object()) : nullptr;
  if (!range) throw Error(errors::TypeMismatch);
  return range;
}

Variant IntersectRanges(const Arguments& arguments) {
  const auto first = AsRange(arguments.At(0));
  std::vector<Area> common = first->areas();
  for (std::size_t i = 1; i < arguments.Count(); ++i) {
    const auto other = AsRange(arguments.At(i));
    if (other->sheet() != first->sheet()) Refuse("Method 'Intersect' of object '_Application' failed");
    std::vector<Area> next;
    for (const Area& left : common)
      for (const Area& right : other->areas())
        if (const auto area = Common(left, right)) next.push_back(*area);
    common = std::move(next);
  }
  return common.empty() ? Wrap(nullptr) : first->On(std::move(common));
}

Variant UniteRanges(const Arguments& arguments) {
  const auto first = AsRange(arguments.At(0));
  std::vector<Area> all;
  for (std::size_t i = 0; i < arguments.Count(); ++i) {
    const auto range = AsRange(arguments.At(i));
    if (range->sheet() != first->sheet()) Refuse("Method 'Union' of object '_Application' failed");
    all.insert(all.end(), range->areas().begin(), range->areas().end());
  }
  return first->On(std::move(all));
}

}  // namespace pellora::workbook
