#include "excel/Range.h"

#include "core/Convert.h"

namespace pellora::excel {
namespace {

std::shared_ptr<VariantArray> AsBlock(const Variant& value) {
  if (value.Is(Variant::Type::Array)) return value.ArrayPtr();
  auto block = std::make_shared<VariantArray>(1, 1);
  block->At(0, 0) = value;
  return block;
}

}  // namespace

Range Range::Cells(std::int32_t row, std::int32_t column) const { return Range(GetObject("Cells", {row, column})); }
Range Range::Cells() const { return Range(GetObject("Cells")); }
Range Range::Rows() const { return Range(GetObject("Rows")); }
Range Range::Columns() const { return Range(GetObject("Columns")); }
Range Range::EntireColumn() const { return Range(GetObject("EntireColumn")); }
Range Range::Resize(std::int32_t rows, std::int32_t columns) const {
  return Range(GetObject("Resize", {rows, columns}));
}
std::int32_t Range::Row() const { return ToLong(Get("Row")); }
std::int32_t Range::Column() const { return ToLong(Get("Column")); }
std::int32_t Range::Count() const { return ToLong(Get("Count")); }

std::string Range::Address(bool absolute) const {
  return ToText(absolute ? Get("Address") : Get("Address", {false, false}));
}

Variant Range::Value() const { return Get("Value"); }
void Range::Value(const Variant& value) const { Put("Value", value); }
std::shared_ptr<VariantArray> Range::ValueBlock() const { return AsBlock(Get("Value")); }
Variant Range::FormulaLocal() const { return Get("FormulaLocal"); }
void Range::FormulaLocal(std::string_view formula) const { Put("FormulaLocal", formula); }
std::shared_ptr<VariantArray> Range::FormulaLocalBlock() const { return AsBlock(Get("FormulaLocal")); }

void Range::ColumnWidth(double characters) const { Put("ColumnWidth", characters); }
excel::Interior Range::Interior() const { return excel::Interior(GetObject("Interior")); }
Border Range::Borders(std::int32_t index) const { return Border(GetObject("Borders", {index})); }
void Range::AutoFit() const { Call("AutoFit"); }
void Range::Select() const { Call("Select"); }
Range Range::SpecialCells(std::int32_t type) const { return Range(ToObject(Call("SpecialCells", {type}))); }

Range Range::FindPrevious(std::string_view what, std::int32_t searchOrder) const {
  // What, After, LookIn, LookAt, SearchOrder, SearchDirection. What is left out is taken from the user's last search.
  return Range(ToObject(Call("Find", {what, Variant::Missing(), xlFormulas, xlPart, searchOrder, xlPrevious})));
}

}  // namespace pellora::excel
