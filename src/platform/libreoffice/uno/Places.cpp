#include "platform/libreoffice/uno/Places.h"

#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellRange.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>

#include "core/Convert.h"
#include "core/Error.h"
#include "core/Text.h"
#include "platform/libreoffice/uno/Documents.h"
#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/Selections.h"
#include "platform/libreoffice/uno/SheetParts.h"
#include "platform/libreoffice/uno/Values.h"

namespace pellora::libreoffice {
namespace {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY;

constexpr std::int32_t kLastCellType = 11;
constexpr std::int32_t kVisible = -1;
// Every sheet has as many columns, and more rows.
constexpr std::int32_t kSmallestSheet = 1024;

bool IsNumber(const Variant& value) {
  return value.Is(Variant::Type::Integer) || value.Is(Variant::Type::Long) || value.Is(Variant::Type::Double);
}

UnoDispatch* AsShown(const Variant& value) {
  return value.Is(Variant::Type::Object) ? dynamic_cast<UnoDispatch*>(value.Object().get()) : nullptr;
}

UnoDispatch& ShownRange(const Variant& value) {
  UnoDispatch* range = AsShown(value);
  if (!range || range->type().Kind() != ObjectKind::Range) Refuse("The answer is not a range");
  return *range;
}

[[noreturn]] void RefuseRange() { Refuse("Method 'Range' of object '_Global' failed"); }

Variant ApplicationOf(const Call& call) {
  if (call.object.type().Kind() == ObjectKind::Application) return Variant(call.object.shared_from_this());
  return call.object.Plain("application", CallKind::Get, {});
}

// Raises 1004 for a part whose file is not the active one, or whose sheet that does not have.
void CheckPart(const SheetPart& part, const DispatchPtr& application) {
  if (!part.sheet || part.sheet->empty()) RefuseRange();
  if (!part.book.empty()) {
    const auto book = application->Invoke("ActiveWorkbook", CallKind::Get, {}).Object();
    if (!book || !EqualNoCase(ToText(book->Invoke("Name", CallKind::Get, {})), part.book)) RefuseRange();
  }
  const Variant name(*part.sheet);
  try {
    application->Invoke("Worksheets", CallKind::Get, {&name, 1});
  } catch (const Error& error) {
    if (error.Number() == kDisconnected) throw;
    RefuseRange();
  }
}

// The one sheet that an address names; nothing when it names none.
std::optional<SheetPart> CheckedPart(std::string_view address, const DispatchPtr& application) {
  const auto parts = SheetPartsOf(address);
  if (!parts) RefuseRange();
  std::optional<SheetPart> named;
  for (const SheetPart& part : *parts) {
    if (!part.sheet) continue;
    if (named && !EqualNoCase(*named->sheet, *part.sheet)) RefuseRange();
    if (!named) CheckPart(part, application);
    named = part;
  }
  return named;
}

void CheckTexts(const Call& call) {
  const auto application = ObjectIn(ApplicationOf(call));
  for (const Variant& argument : call.arguments)
    if (argument.Is(Variant::Type::String)) CheckedPart(argument.String(), application);
}

bool IsName(std::string_view text) {
  return !text.empty() && !IsPlainAddress(text) && text.find_first_of(" !:,'$()[]") == std::string_view::npos;
}

// Raises 1004 for names whose cells are gone.
void CheckNames(const Call& call) {
  for (const Variant& argument : call.arguments)
    if (argument.Is(Variant::Type::String) && IsName(argument.String()) &&
        NamesDeletedCells(call.object, argument.String()))
      RefuseRange();
}

// A workbook name behind a sheet, which the program does not know: the name alone, when it is on that sheet.
Variant NamedOnSheet(const Call& call) {
  const auto parts = SheetPartsOf(call.At(0).Is(Variant::Type::String) ? call.At(0).String() : "");
  if (call.arguments.size() != 1 || !parts || parts->size() != 1 || !IsName(parts->front().local)) RefuseRange();
  const Variant name(parts->front().local);
  if (NamesDeletedCells(call.object, parts->front().local)) RefuseRange();
  const Variant found = call.Plain({&name, 1});
  const auto sheet = ObjectIn(ShownRange(found).Plain("worksheet", CallKind::Get, {}));
  if (!EqualNoCase(ToText(sheet->Invoke("Name", CallKind::Get, {})), *parts->front().sheet)) RefuseRange();
  return found;
}

std::int32_t SheetIndexOf(UnoDispatch& object) {
  if (object.type().Kind() == ObjectKind::Range) return PlaceOf(object).Sheet;
  return ToLong(object.Plain("index", CallKind::Get, {})) - 1;
}

// The end of a sheet, rows and columns counted from 0.
struct Extent {
  sal_Int32 rows, columns;
};

Extent SheetExtent(UnoDispatch& range) {
  const Reference<css::sheet::XSheetCellRange> area(NativeRange(range), UNO_QUERY);
  if (!area.is()) Refuse("Several areas have no size of their own");
  const Reference<css::table::XColumnRowRange> lines(area->getSpreadsheet(), UNO_QUERY);
  if (!lines.is()) RaiseDisconnected();
  return {lines->getRows()->getCount(), lines->getColumns()->getCount()};
}

bool FitsFrom(const Variant& size, std::int32_t start, std::int32_t end) {
  if (size.Is(Variant::Type::Missing)) return true;
  const std::int32_t count = ToLong(size);
  return count >= 1 && count <= end - start;
}

}  // namespace

bool HasSheetPart(const Call& call) {
  for (const Variant& argument : call.arguments)
    if (argument.Is(Variant::Type::String) && argument.String().find('!') != std::string::npos) return true;
  return false;
}

bool IsNoPlainAddress(const Call& call) {
  for (const Variant& argument : call.arguments)
    if (!argument.Is(Variant::Type::String) || !IsPlainAddress(argument.String())) return true;
  return false;
}

bool HasLargeIndex(const Call& call) { return IsNumber(call.At(0)) && ToDouble(call.At(0)) > kSmallestSheet; }
bool AsksForLastCell(const Call& call) { return IsNumber(call.At(0)) && ToDouble(call.At(0)) == kLastCellType; }

Variant RangeOfApplication(const Call& call) {
  if (!HasSheetPart(call)) {
    CheckNames(call);
    if (IsNoPlainAddress(call) || call.arguments.size() != 1) return call.Plain();
    return ActiveSheetOf(call.object)->Plain(call.name, call.kind, call.arguments);
  }
  CheckTexts(call);
  try {
    return call.Plain();
  } catch (const Error&) {
    return NamedOnSheet(call);
  }
}

Variant RangeOfWorksheet(const Call& call) {
  CheckNames(call);
  if (HasSheetPart(call)) CheckTexts(call);
  const Variant found = call.Plain();
  if (SheetIndexOf(ShownRange(found)) != SheetIndexOf(call.object))
    Refuse("Method 'Range' of object '_Worksheet' failed");
  return found;
}

Variant IntersectionOnOneSheet(const Call& call) {
  const Variant common = call.Plain();
  if (AsShown(common)) return common;
  for (const Variant& argument : call.arguments)
    if (AsShown(argument) && SheetIndexOf(ShownRange(argument)) != SheetIndexOf(ShownRange(call.At(0))))
      Refuse("Method 'Intersect' of object '_Application' failed");
  return common;
}

Variant LinesInsideSheet(const Call& call) {
  const Variant lines = call.Plain();
  UnoDispatch& range = ShownRange(lines);
  const auto place = PlaceOf(range);
  const Extent extent = SheetExtent(range);
  if (place.EndRow >= extent.rows || place.EndColumn >= extent.columns)
    Refuse(std::string(StandardDescription(errors::ApplicationDefined)));
  return lines;
}

Variant ResizeInsideSheet(const Call& call) {
  const auto place = PlaceOf(call.object);
  const Extent extent = SheetExtent(call.object);
  if (!FitsFrom(call.At(0), place.StartRow, extent.rows) || !FitsFrom(call.At(1), place.StartColumn, extent.columns))
    Refuse(std::string(StandardDescription(errors::ApplicationDefined)));
  return call.Plain();
}

Variant CountWithoutOverflow(const Call& call) {
  const Variant count = call.Plain();
  if (ToLong(count) <= 0) throw Error(errors::Overflow);
  return count;
}

Variant AddressWithFlags(const Call& call) {
  std::vector<Variant> arguments(call.arguments.begin(), call.arguments.end());
  constexpr std::size_t kFlags[] = {0, 1, 3};
  for (const std::size_t flag : kFlags)
    if (flag < arguments.size() && IsNumber(arguments[flag])) arguments[flag] = ToBoolean(arguments[flag]);
  return call.Plain(arguments);
}

Variant SelectOnActiveSheet(const Call& call) {
  const auto document = DocumentOf(call.object);
  const Reference<css::sheet::XSpreadsheetView> view(
      document.is() ? document->getCurrentController() : Reference<css::frame::XController>(), UNO_QUERY);
  const Reference<css::sheet::XCellRangeAddressable> active(
      view.is() ? view->getActiveSheet() : Reference<css::sheet::XSpreadsheet>(), UNO_QUERY);
  if (active.is() && active->getRangeAddress().Sheet != PlaceOf(call.object).Sheet)
    Refuse("Select method of Range class failed");
  return call.Plain();
}

Variant SelectVisibleSheet(const Call& call) {
  if (ToLong(call.object.Plain("visible", CallKind::Get, {})) != kVisible)
    Refuse("Select method of Worksheet class failed");
  RememberSelection(call.object);
  const Variant done = call.Plain();
  RestoreSelection(call.object);
  return done;
}

Variant LastCell(const Call& call) {
  const auto sheet = ObjectIn(call.object.Plain("worksheet", CallKind::Get, {}));
  const Variant used = sheet->Invoke("UsedRange", CallKind::Get, {});
  const auto place = PlaceOf(ShownRange(used));
  const Variant corner[] = {place.EndRow + 1, place.EndColumn + 1};
  return sheet->Invoke("Cells", CallKind::Get, corner);
}

}  // namespace pellora::libreoffice
