#include "platform/libreoffice/uno/CellValues.h"

#include <cmath>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/sheet/FormulaResult.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <optional>

#include "core/Convert.h"
#include "core/Error.h"
#include "core/Text.h"
#include "platform/libreoffice/uno/Documents.h"
#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/Text.h"
#include "platform/libreoffice/uno/Values.h"

namespace pellora::libreoffice {
namespace {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY;

constexpr std::int32_t kErrorBase = static_cast<std::int32_t>(0x800A0000);
constexpr double kWidestColumn = 255;

struct ErrorPair {
  std::int32_t native, number;
};

// Division by zero, no intersection, reference, name, numbers out of range, not available; all others are #VALUE!.
constexpr ErrorPair kErrors[] = {{532, 2007}, {521, 2000}, {524, 2023},  {525, 2029},
                                 {502, 2036}, {503, 2036}, {32767, 2042}};
constexpr std::int32_t kValueError = 2015;

// The program has error values as results of formulas only.
struct ErrorFormula {
  std::int32_t number;
  std::string_view formula;
};

constexpr ErrorFormula kErrorFormulas[] = {{2000, "=#NULL!"}, {2007, "=#DIV/0!"}, {2015, "=#VALUE!"}, {2023, "=#REF!"},
                                           {2029, "=#NAME?"}, {2036, "=#NUM!"},   {2042, "=#N/A"}};

bool IsErrorFormula(std::string_view text) {
  for (const auto& entry : kErrorFormulas)
    if (entry.formula == text) return true;
  return false;
}

bool IsZero(const Variant& value) { return value.Is(Variant::Type::Double) && value.Double() == 0; }

bool HasZero(const VariantArray& block) {
  for (std::size_t row = 0; row < block.Rows(); ++row)
    for (std::size_t column = 0; column < block.Columns(); ++column)
      if (IsZero(block.At(row, column))) return true;
  return false;
}

void MarkErrors(VariantArray& block, UnoDispatch& range) {
  const auto native = NativeRange(range);
  const Reference<css::sheet::XCellRangesQuery> query(native, UNO_QUERY);
  const Reference<css::table::XCellRange> cells(native, UNO_QUERY);
  if (!query.is() || !cells.is()) return;
  const auto base = PlaceOf(range);
  const auto found = query->queryFormulaCells(css::sheet::FormulaResult::ERROR)->getRangeAddresses();
  for (sal_Int32 i = 0; i < found.getLength(); ++i)
    for (sal_Int32 row = found[i].StartRow - base.StartRow; row <= found[i].EndRow - base.StartRow; ++row)
      for (sal_Int32 column = found[i].StartColumn - base.StartColumn; column <= found[i].EndColumn - base.StartColumn;
           ++column)
        if (static_cast<std::size_t>(row) < block.Rows() && static_cast<std::size_t>(column) < block.Columns())
          block.At(row, column) = CellErrorOf(cells->getCellByPosition(column, row)->getError());
}

Reference<css::table::XCell> FirstCell(UnoDispatch& range) {
  const Reference<css::table::XCellRange> cells(NativeRange(range), UNO_QUERY);
  return cells.is() ? cells->getCellByPosition(0, 0) : Reference<css::table::XCell>();
}

Variant WithoutDates(const Variant& value) { return value.Is(Variant::Type::Date) ? Variant(value.DateDays()) : value; }

// A formula as the spreadsheet has it: a link to another program in its short form, a text that reads as a number
// without the mark that this program puts before it.
Variant AsFormula(const Variant& formula, UnoDispatch& range, sal_Int32 row, sal_Int32 column) {
  if (!formula.Is(Variant::Type::String)) return formula;
  if (!IsMarked(formula))
    return IsErrorFormula(formula.String()) ? Variant(formula.String().substr(1))
                                            : Variant(FunctionAsLink(formula.String()));
  const Reference<css::table::XCellRange> cells(NativeRange(range), UNO_QUERY);
  const Reference<css::text::XTextRange> content(
      cells.is() ? cells->getCellByPosition(column, row) : Reference<css::table::XCell>(), UNO_QUERY);
  const std::string text = formula.String().substr(1);
  return content.is() && Narrow(content->getString()) == text ? Variant(text) : formula;
}

// Reads a text in double quotes, those in it doubled, and takes it off the front.
std::optional<std::string> TakeQuoted(std::string_view& text) {
  if (!text.starts_with('"')) return std::nullopt;
  std::string plain;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] != '"') {
      plain += text[i];
    } else if (i + 1 < text.size() && text[i + 1] == '"') {
      plain += text[++i];
    } else {
      text.remove_prefix(i + 1);
      return plain;
    }
  }
  return std::nullopt;
}

std::string Quoted(std::string_view text) { return '"' + Replace(text, "\"", "\"\"") + '"'; }

// A topic or an item may stand in apostrophes.
std::string Bare(std::string_view text) {
  if (text.size() < 2 || text.front() != '\'' || text.back() != '\'') return std::string(text);
  return Replace(text.substr(1, text.size() - 2), "''", "'");
}

}  // namespace

bool IsMarked(const Variant& value) { return value.Is(Variant::Type::String) && value.String().starts_with('\''); }

Variant CellErrorOf(std::int32_t nativeError) {
  for (const auto& pair : kErrors)
    if (pair.native == nativeError) return Variant::CellError(kErrorBase + pair.number);
  return Variant::CellError(kErrorBase + kValueError);
}

std::string_view FormulaOfError(std::int32_t code) {
  for (const auto& entry : kErrorFormulas)
    if (kErrorBase + entry.number == code) return entry.formula;
  throw Error(errors::TypeMismatch);
}

Variant ReadValue(const Call& call) {
  const Variant value = call.object.Plain("value", CallKind::Get, {});
  if (IsZero(value)) {
    const auto cell = FirstCell(call.object);
    const std::int32_t error = cell.is() ? cell->getError() : 0;
    return error ? CellErrorOf(error) : value;
  }
  if (value.Is(Variant::Type::Array) && HasZero(value.Array())) MarkErrors(*value.ArrayPtr(), call.object);
  return value;
}

Variant ReadValue2(const Call& call) {
  const Variant value = ReadValue(call);
  if (!value.Is(Variant::Type::Array)) return WithoutDates(value);
  VariantArray& block = *value.ArrayPtr();
  for (std::size_t row = 0; row < block.Rows(); ++row)
    for (std::size_t column = 0; column < block.Columns(); ++column)
      block.At(row, column) = WithoutDates(block.At(row, column));
  return value;
}

Variant ReadFormula(const Call& call) {
  const Variant formula = call.Plain();
  if (!formula.Is(Variant::Type::Array)) return AsFormula(formula, call.object, 0, 0);
  VariantArray& block = *formula.ArrayPtr();
  for (std::size_t row = 0; row < block.Rows(); ++row)
    for (std::size_t column = 0; column < block.Columns(); ++column)
      block.At(row, column) =
          AsFormula(block.At(row, column), call.object, static_cast<sal_Int32>(row), static_cast<sal_Int32>(column));
  return formula;
}

Variant ReadColumnWidth(const Call& call) {
  // Widths are kept in whole units of the page, so that 20 characters come back as 19.99.
  constexpr double kRounding = 0.015;
  const Variant width = call.Plain();
  if (!width.Is(Variant::Type::Double)) return width;
  const double whole = std::round(width.Double());
  return std::abs(whole - width.Double()) < kRounding ? whole : width.Double();
}

Variant PutColumnWidth(const Call& call) {
  const double width = ToDouble(call.At(0));
  if (width < 0 || width > kWidestColumn) Refuse("Unable to set the ColumnWidth property of the Range class");
  if (width > 0) return call.Plain();
  const Variant hide(true);
  ObjectIn(call.object.Plain("entirecolumn", CallKind::Get, {}))->Invoke("Hidden", CallKind::Put, {&hide, 1});
  return {};
}

std::string LinkAsFunction(std::string_view formula) {
  const std::size_t bar = formula.find('|');
  const std::size_t mark = bar == std::string_view::npos ? bar : formula.find('!', bar);
  if (!formula.starts_with('=') || mark == std::string_view::npos) return std::string(formula);
  const auto application = formula.substr(1, bar - 1);
  const auto topic = formula.substr(bar + 1, mark - bar - 1);
  const auto item = formula.substr(mark + 1);
  const bool plain = application.find_first_of(" \"'!(),;&+-*/<>=[") == std::string_view::npos;
  if (!plain || application.empty() || topic.empty() || item.empty()) return std::string(formula);
  return "=DDE(" + Quoted(application) + "," + Quoted(Bare(topic)) + "," + Quoted(Bare(item)) + ")";
}

std::string FunctionAsLink(std::string_view formula) {
  constexpr std::string_view kStart = "=DDE(";
  if (!formula.starts_with(kStart)) return std::string(formula);
  std::string_view rest = formula.substr(kStart.size());
  std::vector<std::string> parts;
  while (const auto part = TakeQuoted(rest)) {
    parts.push_back(*part);
    if (rest == ")" && parts.size() == 3) return "=" + parts[0] + "|" + parts[1] + "!" + parts[2];
    if (!rest.starts_with(',') && !rest.starts_with(';')) break;
    rest.remove_prefix(1);
  }
  return std::string(formula);
}

}  // namespace pellora::libreoffice
