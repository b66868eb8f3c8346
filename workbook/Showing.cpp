#include "workbook/Showing.h"

#include <array>
#include <cmath>
#include <optional>

#include "core/Convert.h"
#include "core/Text.h"
#include "workbook/Reference.h"

namespace pellora::workbook {
namespace {

struct ErrorName {
  std::int32_t number;
  std::string_view text;
};

constexpr std::array kErrorNames = {
    ErrorName{2000, "#NULL!"}, ErrorName{2007, "#DIV/0!"}, ErrorName{2015, "#VALUE!"}, ErrorName{2023, "#REF!"},
    ErrorName{2029, "#NAME?"}, ErrorName{2036, "#NUM!"},   ErrorName{2042, "#N/A"},
};

constexpr std::uint32_t kErrorBase = 0x800A0000u;

struct Spot {
  std::shared_ptr<Sheet> sheet;
  CellPlace place;
  bool operator==(const Spot&) const = default;
};

// Where a link leads: a cell, or a value that ends the way; neither for a formula that is no link.
struct Step {
  std::optional<Spot> next;
  std::optional<Variant> end;
};

Step OneOf(const Reference& reference, CellPlace own) {
  const Area& area = reference.areas.front();
  if (reference.areas.size() > 1) return {{}, Variant::CellError(kValueError)};
  if (area.Count() == 1) return {Spot{reference.sheet, area.First()}, {}};
  const bool byRow = area.Columns() == 1 && own.row >= area.top && own.row <= area.bottom;
  if (byRow) return {Spot{reference.sheet, {own.row, area.left}}, {}};
  const bool byColumn = area.Rows() == 1 && own.column >= area.left && own.column <= area.right;
  if (byColumn) return {Spot{reference.sheet, {area.top, own.column}}, {}};
  return {{}, Variant::CellError(kValueError)};
}

Step Follow(const Document& document, const Spot& spot, std::string_view formula) {
  formula.remove_prefix(1);
  ReferenceFault fault{};
  if (const auto reference = Resolve(document, spot.sheet, formula, &fault)) return OneOf(*reference, spot.place);
  if (fault == ReferenceFault::MissingSheet) return {{}, Variant::CellError(kReferenceError)};
  const bool constant = EqualAsciiNoCase(formula, "TRUE") || EqualAsciiNoCase(formula, "FALSE");
  if (constant) return {{}, Variant(EqualAsciiNoCase(formula, "TRUE"))};
  if (fault == ReferenceFault::UnknownName) return {{}, Variant::CellError(kNameError)};
  return {};
}

}  // namespace

Variant Shown(const Document& document, const std::shared_ptr<Sheet>& sheet, CellPlace place) {
  Spot spot{sheet, place};
  // A ring is noticed by a mark that is set anew at every power of two: no list of the cells passed is needed.
  Spot mark = spot;
  for (std::uint64_t steps = 0, power = 1;; ++steps) {
    const Cell* cell = spot.sheet->Find(spot.place);
    if (!cell || (cell->formula.empty() && cell->value.IsEmpty())) return steps == 0 ? Variant() : Variant(0.0);
    if (cell->formula.empty()) return cell->value;
    const Step step = Follow(document, spot, cell->formula);
    if (step.end) return *step.end;
    if (!step.next) return cell->value;
    spot = *step.next;
    if (spot == mark) return 0.0;
    if (steps + 1 == power) mark = spot, power *= 2;
  }
}

std::string DisplayText(const Variant& value) {
  if (value.Is(Variant::Type::Error)) return ErrorText(value.ErrorCode());
  if (value.Is(Variant::Type::Boolean)) return value.Boolean() ? "TRUE" : "FALSE";
  return ToText(value);
}

std::string ErrorText(std::int32_t code) {
  const auto number = static_cast<std::int32_t>(static_cast<std::uint32_t>(code) - kErrorBase);
  for (const auto& name : kErrorNames)
    if (name.number == number) return std::string(name.text);
  return "#N/A";
}

std::int32_t ErrorCodeOf(std::string_view text) {
  for (const auto& name : kErrorNames)
    if (EqualAsciiNoCase(name.text, text))
      return static_cast<std::int32_t>(kErrorBase + static_cast<std::uint32_t>(name.number));
  return 0;
}

}  // namespace pellora::workbook
