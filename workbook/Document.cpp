#include "workbook/Document.h"

#include <algorithm>

#include "core/Error.h"
#include "core/Text.h"
#include "workbook/Area.h"
#include "workbook/Showing.h"

namespace pellora::workbook {
namespace {

CellPlace PlaceOf(std::string_view address) {
  const auto place = ParseCell(address);
  if (!place) throw Error(errors::InvalidCall);
  return *place;
}

std::shared_ptr<Sheet> SharedSheet(const Document& document, std::string_view name) {
  for (const auto& sheet : document.sheets)
    if (EqualNoCase(sheet->name, name)) return sheet;
  throw Error(errors::SubscriptOutOfRange);
}

}  // namespace

const Cell* Sheet::Find(CellPlace place) const {
  const auto hit = cells.find(place);
  return hit == cells.end() ? nullptr : &hit->second;
}

Sheet& Document::AddSheet(std::string_view name) {
  sheets.push_back(std::make_shared<Sheet>());
  sheets.back()->name = name;
  return *sheets.back();
}

Sheet* Document::FindSheet(std::string_view name) {
  for (const auto& sheet : sheets)
    if (EqualNoCase(sheet->name, name)) return sheet.get();
  return nullptr;
}

const std::string* Document::FindName(std::string_view name) const {
  for (const auto& entry : names)
    if (EqualNoCase(entry.first, name)) return &entry.second;
  return nullptr;
}

void Document::AddName(std::string_view name, std::string_view refersTo) {
  for (auto& entry : names)
    if (EqualNoCase(entry.first, name)) {
      entry.second = refersTo;
      return;
    }
  names.emplace_back(name, refersTo);
}

void Document::Set(std::string_view sheet, std::string_view address, const Variant& value) {
  Cell& cell = SharedSheet(*this, sheet)->At(PlaceOf(address));
  const bool formula = value.Is(Variant::Type::String) && value.String().starts_with('=');
  cell.formula = formula ? value.String() : std::string();
  cell.value = formula ? Variant() : value;
}

Variant Document::Value(std::string_view sheet, std::string_view address) {
  return Shown(*this, SharedSheet(*this, sheet), PlaceOf(address));
}

std::string Document::Formula(std::string_view sheet, std::string_view address) {
  const Cell* cell = SharedSheet(*this, sheet)->Find(PlaceOf(address));
  return cell ? cell->formula : std::string();
}

CellFormat Document::Format(std::string_view sheet, std::string_view address) {
  const Cell* cell = SharedSheet(*this, sheet)->Find(PlaceOf(address));
  return cell ? cell->format : CellFormat();
}

double Document::ColumnWidth(std::string_view sheet, std::string_view column) {
  const auto& widths = SharedSheet(*this, sheet)->columnWidths;
  const auto number = ParseColumn(column);
  if (!number) throw Error(errors::InvalidCall);
  const auto hit = widths.find(*number);
  return hit == widths.end() ? kStandardColumnWidth : hit->second;
}

}  // namespace pellora::workbook
