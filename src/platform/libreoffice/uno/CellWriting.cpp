#include <algorithm>
#include <cmath>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XNumberFormatTypes.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>
#include <optional>

#include "core/Convert.h"
#include "core/Error.h"
#include "platform/libreoffice/uno/CellValues.h"
#include "platform/libreoffice/uno/Documents.h"
#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/Text.h"
#include "platform/libreoffice/uno/Values.h"

namespace pellora::libreoffice {
namespace {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY;
using Cells = Reference<css::table::XCellRange>;

// How a value comes into a cell.
enum class Way { Plain, Text, Formula, Date };

Way WayOf(const Variant& value) {
  if (IsMarked(value)) return Way::Text;
  if (value.Is(Variant::Type::Error)) return Way::Formula;
  if (value.Is(Variant::Type::Date)) return Way::Date;
  const bool formula = value.Is(Variant::Type::String) && value.String().size() > 1 && value.String().front() == '=';
  return formula ? Way::Formula : Way::Plain;
}

// What the program takes in place of a value that it passes over.
Variant Taken(const Variant& value) {
  switch (value.Kind()) {
    case Variant::Type::Empty:
    case Variant::Type::Null:
    case Variant::Type::Missing: return "";
    case Variant::Type::Date: return value.DateDays();
    case Variant::Type::Integer:
    case Variant::Type::Long: return ToDouble(value);
    default: return value;
  }
}

Variant FormulaIn(const Variant& value) {
  if (value.Is(Variant::Type::Error)) return FormulaOfError(value.ErrorCode());
  return LinkAsFunction(value.String());
}

std::string TextIn(const Variant& value) { return value.String().substr(1); }

// Dates are numbers that look like dates: a cell that does not yet gets the format of the document's language.
void LookLikeDate(const Call& call, const Reference<css::uno::XInterface>& cells, bool withTime) {
  const Reference<css::util::XNumberFormatsSupplier> supplier(DocumentOf(call.object), UNO_QUERY);
  const Reference<css::beans::XPropertySet> look(cells, UNO_QUERY);
  if (!supplier.is() || !look.is()) return;
  const auto formats = supplier->getNumberFormats();
  sal_Int32 key = 0;
  sal_Int16 type = css::util::NumberFormat::UNDEFINED;
  if (look->getPropertyValue("NumberFormat") >>= key) formats->getByKey(key)->getPropertyValue("Type") >>= type;
  if (type & (css::util::NumberFormat::DATE | css::util::NumberFormat::TIME)) return;
  const sal_Int16 wanted = withTime ? css::util::NumberFormat::DATETIME : css::util::NumberFormat::DATE;
  const Reference<css::util::XNumberFormatTypes> types(formats, UNO_QUERY);
  look->setPropertyValue("NumberFormat", Any(types->getStandardFormat(wanted, {})));
}

bool HasTime(const Variant& date) { return date.DateDays() != std::floor(date.DateDays()); }

// A value as the program puts it into a cell without reading it; nothing for one that it must read, or take otherwise.
// What is written afterwards empties the cell.
std::optional<Any> UnreadOf(const Variant& value) {
  switch (WayOf(value)) {
    case Way::Text: return Any(Wide(TextIn(value)));
    case Way::Formula: return Any(rtl::OUString());
    default: break;
  }
  const Variant taken = Taken(value);
  if (taken.Is(Variant::Type::Double)) return Any(taken.Double());
  if (taken.Is(Variant::Type::String) && taken.String().empty()) return Any(rtl::OUString());
  return std::nullopt;
}

// Cells below each other that are written in the same way.
struct Run {
  Way way;
  std::size_t row, column, count;
};

/// Writes a block of values in as few steps as their kinds allow: what the program takes by itself at once, then each
/// column's texts, formulas and dates.
class BlockWriter {
 public:
  BlockWriter(const Call& call, const VariantArray& values)
      : m_call(call), m_values(values), m_cells(NativeRange(call.object), UNO_QUERY) {
    const auto place = PlaceOf(call.object);
    const auto rows = static_cast<std::size_t>(place.EndRow - place.StartRow) + 1;
    const auto columns = static_cast<std::size_t>(place.EndColumn - place.StartColumn) + 1;
    m_rows = std::min(values.Rows(), rows);
    m_columns = std::min(values.Columns(), columns);
    m_full = values.Rows() >= rows && values.Columns() >= columns;
  }

  void Write() {
    auto taken = Taken();
    if (m_cells.is() && m_full && !NeedsReading())
      WriteUnread();
    else
      m_call.object.Plain("value", CallKind::Put, {&taken, 1});
    if (!m_cells.is()) return;
    for (std::size_t column = 0; column < m_columns; ++column)
      for (std::size_t row = 0; row < m_rows;) {
        const Run run = RunAt(row, column);
        WriteRun(run);
        row += run.count;
      }
  }

 private:
  // Whatever is refused is refused here, before anything is written.
  Variant Taken() const {
    auto taken = std::make_shared<VariantArray>(m_values.Rows(), m_values.Columns(), m_values.RowBase(),
                                                m_values.ColumnBase(), m_values.Dimensions());
    for (std::size_t row = 0; row < m_values.Rows(); ++row)
      for (std::size_t column = 0; column < m_values.Columns(); ++column)
        taken->At(row, column) = TakenAtOnce(m_values.At(row, column));
    return Variant(taken);
  }

  Variant TakenAtOnce(const Variant& value) const {
    const Way way = WayOf(value);
    if (way != Way::Plain && !m_cells.is()) Refuse("Several areas take plain values only");
    if (way == Way::Formula) FormulaIn(value);
    if (way == Way::Text || way == Way::Formula) return "";
    return value.IsEmpty() ? value : libreoffice::Taken(value);
  }

  // True when a cell is to be read as if it were typed, or is of a kind that only the object model takes.
  bool NeedsReading() const {
    for (std::size_t row = 0; row < m_rows; ++row)
      for (std::size_t column = 0; column < m_columns; ++column)
        if (!UnreadOf(m_values.At(row, column))) return true;
    return false;
  }

  // Cell by cell the program takes ten times as long.
  void WriteUnread() {
    Sequence<Sequence<Any>> rows(static_cast<sal_Int32>(m_rows));
    Sequence<Any>* line = rows.getArray();
    for (std::size_t row = 0; row < m_rows; ++row) {
      line[row].realloc(static_cast<sal_Int32>(m_columns));
      Any* cell = line[row].getArray();
      for (std::size_t column = 0; column < m_columns; ++column) cell[column] = *UnreadOf(m_values.At(row, column));
    }
    Reference<css::sheet::XCellRangeData>(m_cells, css::uno::UNO_QUERY_THROW)->setDataArray(rows);
    m_texts = true;
  }

  Run RunAt(std::size_t row, std::size_t column) const {
    Run run{WayOf(m_values.At(row, column)), row, column, 1};
    while (row + run.count < m_rows && WayOf(m_values.At(row + run.count, column)) == run.way) ++run.count;
    return run;
  }

  void WriteRun(const Run& run) {
    switch (run.way) {
      case Way::Plain: break;
      case Way::Text:
        if (!m_texts) WriteTexts(run);
        break;
      case Way::Formula: WriteFormulas(run); break;
      case Way::Date: WriteDates(run); break;
    }
  }

  Cells CellsOf(const Run& run) const {
    const auto column = static_cast<sal_Int32>(run.column);
    return m_cells->getCellRangeByPosition(column, static_cast<sal_Int32>(run.row), column,
                                           static_cast<sal_Int32>(run.row + run.count - 1));
  }

  void WriteTexts(const Run& run) {
    Sequence<Sequence<Any>> rows(static_cast<sal_Int32>(run.count));
    Sequence<Any>* row = rows.getArray();
    for (std::size_t i = 0; i < run.count; ++i) {
      const Any text(Wide(TextIn(m_values.At(run.row + i, run.column))));
      row[i] = Sequence<Any>(&text, 1);
    }
    Reference<css::sheet::XCellRangeData>(CellsOf(run), css::uno::UNO_QUERY_THROW)->setDataArray(rows);
  }

  void WriteFormulas(const Run& run) {
    auto formulas = std::make_shared<VariantArray>(run.count, 1);
    for (std::size_t i = 0; i < run.count; ++i) formulas->At(i, 0) = FormulaIn(m_values.At(run.row + i, run.column));
    const Variant corner[] = {static_cast<std::int32_t>(run.row + 1), static_cast<std::int32_t>(run.column + 1)};
    const Variant size[] = {static_cast<std::int32_t>(run.count), std::int32_t{1}};
    const auto first = ObjectIn(m_call.object.Plain("cells", CallKind::Get, corner));
    const auto cells = std::dynamic_pointer_cast<UnoDispatch>(ObjectIn(first->Invoke("Resize", CallKind::Get, size)));
    const Variant block(formulas);
    if (cells) cells->Plain("formula", CallKind::Put, {&block, 1});
  }

  void WriteDates(const Run& run) {
    for (std::size_t i = 0; i < run.count; ++i)
      LookLikeDate(m_call, CellsOf({run.way, run.row + i, run.column, 1}),
                   HasTime(m_values.At(run.row + i, run.column)));
  }

  const Call& m_call;
  const VariantArray& m_values;
  Cells m_cells;
  std::size_t m_rows = 0, m_columns = 0;
  // The values are enough for every cell.
  bool m_full = false;
  // The texts are written.
  bool m_texts = false;
};

// A text set so is not read, but leaves a text format on the cell, by which nothing written later would be read either:
// the cell keeps the format that it had.
void PutText(const Reference<css::table::XCell>& cell, const std::string& text) {
  const Reference<css::text::XTextRange> content(cell, UNO_QUERY);
  const Reference<css::beans::XPropertySet> look(cell, UNO_QUERY);
  if (!content.is() || !look.is()) return;
  const auto format = look->getPropertyValue("NumberFormat");
  content->setString(Wide(text));
  look->setPropertyValue("NumberFormat", format);
}

// The same text into every cell.
void PutText(const Call& call, const std::string& text) {
  const Cells cells(NativeRange(call.object), UNO_QUERY);
  if (!cells.is()) RaiseDisconnected();
  const auto place = PlaceOf(call.object);
  for (sal_Int32 row = 0; row <= place.EndRow - place.StartRow; ++row)
    for (sal_Int32 column = 0; column <= place.EndColumn - place.StartColumn; ++column)
      PutText(cells->getCellByPosition(column, row), text);
}

bool IsSeveralAreas(UnoDispatch& range) { return !Cells(NativeRange(range), UNO_QUERY).is(); }

void PutOne(const Call& call, const char* member, const Variant& value) {
  call.object.Plain(member, CallKind::Put, {&value, 1});
}

}  // namespace

Variant PutValue(const Call& call) {
  if (call.arguments.empty()) throw Error(errors::WrongArgumentCount);
  const Variant& value = call.arguments.back();
  if (value.Is(Variant::Type::Array)) return BlockWriter(call, value.Array()).Write(), Variant();
  const Way way = WayOf(value);
  if (way == Way::Text && !IsSeveralAreas(call.object)) return PutText(call, TextIn(value)), Variant();
  if (way == Way::Formula) return PutOne(call, "formula", FormulaIn(value)), Variant();
  PutOne(call, "value", Taken(value));
  if (way == Way::Date) LookLikeDate(call, NativeRange(call.object), HasTime(value));
  return {};
}

Variant PutFormula(const Call& call) {
  if (call.arguments.size() != 1) throw Error(errors::WrongArgumentCount);
  const Variant& formula = call.arguments.front();
  if (!formula.Is(Variant::Type::String) || IsMarked(formula)) return PutValue(call);
  const Variant read(LinkAsFunction(formula.String()));
  return call.Plain({&read, 1});
}

}  // namespace pellora::libreoffice
