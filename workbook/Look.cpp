#include <algorithm>
#include <array>
#include <optional>

#include "workbook/RangeObject.h"
#include "workbook/Showing.h"

namespace pellora::workbook {
namespace {

using A = const Arguments&;

constexpr std::int32_t kContinuous = 1, kThin = 2;
constexpr std::int32_t kPaletteSize = 56;
constexpr double kWidest = 255;

/// Border indexes as the model numbers them.
enum BorderIndex { DiagonalDown = 5, DiagonalUp, Left, Top, Bottom, Right, InsideVertical, InsideHorizontal };

BorderLine& Line(Cell& cell, int side) { return cell.format.borders[side - DiagonalDown]; }
const BorderLine& Line(const Cell& cell, int side) { return cell.format.borders[side - DiagonalDown]; }

// The same line seen from the cell on its other side; nothing for diagonals.
std::optional<std::pair<CellPlace, int>> Facing(CellPlace place, int side) {
  switch (side) {
    case Left:
      return place.column > 1 ? std::optional(std::pair(CellPlace{place.row, place.column - 1}, int{Right}))
                              : std::nullopt;
    case Right: return std::pair(CellPlace{place.row, place.column + 1}, int{Left});
    case Top:
      return place.row > 1 ? std::optional(std::pair(CellPlace{place.row - 1, place.column}, int{Bottom}))
                           : std::nullopt;
    case Bottom: return std::pair(CellPlace{place.row + 1, place.column}, int{Top});
    default: return std::nullopt;
  }
}

// The cells whose own side makes up a border of an area; empty where an inner border has no place.
struct Strip {
  Area cells;
  int side;
};

std::optional<Strip> StripOf(const Area& area, int index) {
  switch (index) {
    case Left: return Strip{{area.top, area.left, area.bottom, area.left}, Left};
    case Right: return Strip{{area.top, area.right, area.bottom, area.right}, Right};
    case Top: return Strip{{area.top, area.left, area.top, area.right}, Top};
    case Bottom: return Strip{{area.bottom, area.left, area.bottom, area.right}, Bottom};
    case InsideVertical:
      if (area.left == area.right) return std::nullopt;
      return Strip{{area.top, area.left, area.bottom, area.right - 1}, Right};
    case InsideHorizontal:
      if (area.top == area.bottom) return std::nullopt;
      return Strip{{area.top, area.left, area.bottom - 1, area.right}, Bottom};
    default: return Strip{area, index};
  }
}

// A line is drawn once: the cell's own, or else its neighbour's that lies on the same edge.
BorderLine ShownLine(const Sheet& sheet, CellPlace place, int side) {
  const Cell* cell = sheet.Find(place);
  if (cell && Line(*cell, side) != BorderLine()) return Line(*cell, side);
  const auto facing = Facing(place, side);
  const Cell* neighbour = facing ? sheet.Find(facing->first) : nullptr;
  return neighbour ? Line(*neighbour, facing->second) : BorderLine();
}

void Draw(Sheet& sheet, CellPlace place, int side, const BorderLine& line) {
  const auto facing = Facing(place, side);
  if (facing)
    if (const auto neighbour = sheet.cells.find(facing->first); neighbour != sheet.cells.end())
      Line(neighbour->second, facing->second) = BorderLine();
  if (line != BorderLine())
    Line(sheet.At(place), side) = line;
  else if (const auto own = sheet.cells.find(place); own != sheet.cells.end())
    Line(own->second, side) = line;
}

void RequireFillable(const Area& area) {
  if (area.Count() > kMostCellsMade) Refuse("The embedded workbook does not give that many cells a look at once");
}

// Clears a line of existing cells; cells that were never touched have none. Reaches one cell beyond the strip, where
// the neighbours' facing lines are.
void Erase(Sheet& sheet, const Strip& strip) {
  const Area reach{std::max(1, strip.cells.top - 1), std::max(1, strip.cells.left - 1),
                   std::min(kMaxRows, strip.cells.bottom + 1), std::min(kMaxColumns, strip.cells.right + 1)};
  ForEachCell(sheet.cells, reach, [&](CellPlace place, Cell& cell) {
    if (strip.cells.Contains(place)) Line(cell, strip.side) = BorderLine();
    for (const int side : {int{Left}, int{Top}, int{Bottom}, int{Right}}) {
      const auto facing = Facing(place, side);
      if (facing && facing->second == strip.side && strip.cells.Contains(facing->first))
        Line(cell, side) = BorderLine();
    }
  });
}

template <class Change>
void ChangeLines(const RangeObject& range, int index, Change change) {
  for (const Area& area : range.areas()) {
    const auto strip = StripOf(area, index);
    if (!strip) continue;
    BorderLine erased;
    erased.weight = erased.style = 0;
    change(erased);
    if (erased.style == kNone) {
      Erase(*range.sheet(), *strip);
      continue;
    }
    RequireFillable(strip->cells);
    for (int row = strip->cells.top; row <= strip->cells.bottom; ++row)
      for (int column = strip->cells.left; column <= strip->cells.right; ++column) {
        BorderLine line = ShownLine(*range.sheet(), {row, column}, strip->side);
        change(line);
        Draw(*range.sheet(), {row, column}, strip->side, line);
      }
  }
}

// What all parts agree on, otherwise Null.
class Agreement {
 public:
  void Add(const Variant& value) {
    if (!m_value) m_value = value;
    if (*m_value != value) m_mixed = true;
  }
  bool Mixed() const { return m_mixed; }
  Variant Answer(const Variant& otherwise) const { return m_mixed ? Variant::Null() : m_value.value_or(otherwise); }

 private:
  std::optional<Variant> m_value;
  bool m_mixed = false;
};

Variant LinesAgree(const RangeObject& range, int index, int BorderLine::*property) {
  Agreement agreement;
  for (const Area& area : range.areas()) {
    const auto strip = StripOf(area, index);
    if (!strip) continue;
    RequireFillable(strip->cells);
    for (int row = strip->cells.top; row <= strip->cells.bottom && !agreement.Mixed(); ++row)
      for (int column = strip->cells.left; column <= strip->cells.right; ++column) {
        const BorderLine line = ShownLine(*range.sheet(), {row, column}, strip->side);
        const bool invisible = line.style == kNone && property == &BorderLine::colorIndex;
        agreement.Add(std::int32_t{invisible ? kNone : line.*property});
      }
  }
  return agreement.Answer(std::int32_t{BorderLine().*property});
}

bool IsOneOf(std::int32_t value, std::initializer_list<std::int32_t> known) {
  return std::find(known.begin(), known.end(), value) != known.end();
}

void SetStyle(BorderLine& line, std::int32_t style) {
  if (style == kNone)
    line = BorderLine();
  else
    line.style = style;
}

// A weight or a colour makes a line where there is none.
void MakeVisible(BorderLine& line) {
  if (line.style == kNone) line.style = kContinuous;
}

/// One border line of a range, or with several indexes the collection of them.
class BorderObject final : public ObjectOf<BorderObject> {
 public:
  static constexpr std::string_view kName = "Border";
  static std::span<const Member<BorderObject>> Members();
  BorderObject(StatePtr state, std::shared_ptr<const RangeObject> range, std::vector<int> indexes)
      : ObjectOf(std::move(state)), m_range(std::move(range)), m_indexes(std::move(indexes)) {}

  Variant Read(int BorderLine::*property) const {
    Agreement agreement;
    for (const int index : m_indexes) agreement.Add(LinesAgree(*m_range, index, property));
    return agreement.Answer(Variant::Null());
  }

  template <class Change>
  void Write(Change change) {
    for (const int index : m_indexes) ChangeLines(*m_range, index, change);
  }

  const RangeObject& range() const { return *m_range; }

 private:
  std::shared_ptr<const RangeObject> m_range;
  std::vector<int> m_indexes;
};

void PutLineStyle(BorderObject& border, A a) {
  const std::int32_t style = ToLong(a.Last());
  if (!IsOneOf(style, {kNone, kContinuous, -4115, 4, 5, -4118, -4119, 13}))
    Refuse("Unable to set the LineStyle property of the Border class");
  border.Write([&](BorderLine& line) { SetStyle(line, style); });
}

void PutWeight(BorderObject& border, A a) {
  const std::int32_t weight = ToLong(a.Last());
  if (!IsOneOf(weight, {1, kThin, -4138, 4})) Refuse("Unable to set the Weight property of the Border class");
  border.Write([&](BorderLine& line) { MakeVisible(line), line.weight = weight; });
}

void PutColor(BorderObject& border, A a) {
  const std::int32_t index = ToLong(a.Last());
  if (index != kAutomatic && (index < 1 || index > kPaletteSize))
    Refuse("Unable to set the ColorIndex property of the Border class");
  border.Write([&](BorderLine& line) { MakeVisible(line), line.colorIndex = index; });
}

Variant BorderAt(BorderObject& border, A a) { return BordersOf(border.range(), a); }

constexpr std::array kBorder = {
    Member<BorderObject>{"LineStyle", 0, 0, [](BorderObject& o, A) { return o.Read(&BorderLine::style); },
                         &PutLineStyle},
    Member<BorderObject>{"Weight", 0, 0, [](BorderObject& o, A) { return o.Read(&BorderLine::weight); }, &PutWeight},
    Member<BorderObject>{"ColorIndex", 0, 0, [](BorderObject& o, A) { return o.Read(&BorderLine::colorIndex); },
                         &PutColor},
    Member<BorderObject>{"Item", 1, 1, &BorderAt},
    Member<BorderObject>{"_Default", 1, 1, &BorderAt},
};

std::span<const Member<BorderObject>> BorderObject::Members() { return kBorder; }

/// The background of a range.
class InteriorObject final : public ObjectOf<InteriorObject> {
 public:
  static constexpr std::string_view kName = "Interior";
  static std::span<const Member<InteriorObject>> Members();
  InteriorObject(StatePtr state, std::shared_ptr<const RangeObject> range)
      : ObjectOf(std::move(state)), m_range(std::move(range)) {}
  const RangeObject& range() const { return *m_range; }

 private:
  std::shared_ptr<const RangeObject> m_range;
};

Variant ReadInterior(InteriorObject& interior, A) {
  Agreement agreement;
  const RangeObject& range = interior.range();
  for (const Area& area : range.areas()) {
    std::int64_t seen = 0;
    ForEachCell(std::as_const(range.sheet()->cells), area, [&](CellPlace, const Cell& cell) {
      agreement.Add(std::int32_t{cell.format.interior});
      ++seen;
    });
    if (seen < area.Count()) agreement.Add(kNone);
  }
  return agreement.Answer(kNone);
}

void PutInterior(InteriorObject& interior, A a) {
  const std::int32_t asked = ToLong(a.Last());
  const std::int32_t index = asked == kAutomatic ? kNone : asked;
  if (index != kNone && (index < 1 || index > kPaletteSize))
    Refuse("Unable to set the ColorIndex property of the Interior class");
  const RangeObject& range = interior.range();
  for (const Area& area : range.areas()) {
    ForEachCell(range.sheet()->cells, area, [&](CellPlace, Cell& cell) { cell.format.interior = index; });
    if (index == kNone) continue;
    RequireFillable(area);
    for (int row = area.top; row <= area.bottom; ++row)
      for (int column = area.left; column <= area.right; ++column)
        range.sheet()->At({row, column}).format.interior = index;
  }
}

constexpr std::array kInterior = {
    Member<InteriorObject>{"ColorIndex", 0, 0, &ReadInterior, &PutInterior},
};

std::span<const Member<InteriorObject>> InteriorObject::Members() { return kInterior; }

std::shared_ptr<const RangeObject> Shared(const RangeObject& range) { return range.shared_from_this(); }

std::size_t Characters(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace

Variant BordersOf(const RangeObject& range, const Arguments& arguments) {
  if (!arguments.Has(0)) {
    const std::vector<int> all = {Left, Top, Bottom, Right, InsideVertical, InsideHorizontal};
    return Wrap(std::make_shared<BorderObject>(range.statePtr(), Shared(range), all));
  }
  const std::int32_t index = arguments.Long(0);
  if (index < DiagonalDown || index > InsideHorizontal) Refuse("Unable to get the Borders property of the Range class");
  return Wrap(std::make_shared<BorderObject>(range.statePtr(), Shared(range), std::vector<int>{index}));
}

Variant InteriorOf(const RangeObject& range) {
  return Wrap(std::make_shared<InteriorObject>(range.statePtr(), Shared(range)));
}

Variant WidthOf(const RangeObject& range) {
  Agreement agreement;
  const auto& widths = range.sheet()->columnWidths;
  for (const Area& area : range.areas())
    for (int column = area.left; column <= area.right && !agreement.Mixed(); ++column) {
      const auto hit = widths.find(column);
      agreement.Add(hit == widths.end() ? kStandardColumnWidth : hit->second);
    }
  return agreement.Answer(kStandardColumnWidth);
}

void PutWidth(RangeObject& range, double characters) {
  if (!(characters >= 0 && characters <= kWidest)) Refuse("Unable to set the ColumnWidth property of the Range class");
  for (const Area& area : range.areas())
    for (int column = area.left; column <= area.right; ++column) range.sheet()->columnWidths[column] = characters;
}

void FitColumns(RangeObject& range) {
  constexpr double kMargin = 0.71;
  const bool lines = range.unit() != RangeUnit::Cells || range.first().WholeColumns() || range.first().WholeRows();
  if (!lines) Refuse("AutoFit method of Range class failed");
  // Rows have no height here.
  if (range.unit() == RangeUnit::Rows || !(range.unit() == RangeUnit::Columns || range.first().WholeColumns())) return;
  std::map<int, std::size_t> longest;
  for (const Area& area : range.areas())
    ForEachCell(std::as_const(range.sheet()->cells), area, [&](CellPlace place, const Cell&) {
      auto& most = longest[place.column];
      most = std::max(most, Characters(DisplayText(Shown(range.state().document, range.sheet(), place))));
    });
  for (const auto& [column, length] : longest)
    if (length > 0) range.sheet()->columnWidths[column] = std::min(kWidest, static_cast<double>(length) + kMargin);
}

}  // namespace pellora::workbook
