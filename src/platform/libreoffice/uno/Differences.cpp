#include "platform/libreoffice/uno/Differences.h"

#include "core/Convert.h"
#include "core/Error.h"
#include "platform/libreoffice/uno/BorderLines.h"
#include "platform/libreoffice/uno/CellValues.h"
#include "platform/libreoffice/uno/Documents.h"
#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/Places.h"
#include "platform/libreoffice/uno/Values.h"

namespace pellora::libreoffice {
namespace {

bool LacksMember(const Call& call) { return !call.object.type().Find(call.name); }

Variant OnActiveSheet(const Call& call) {
  return ActiveSheetOf(call.object)->Invoke(call.name, call.kind, call.arguments);
}

Variant OnActiveWorkbook(const Call& call) {
  return ObjectIn(call.object.Invoke("ActiveWorkbook", CallKind::Get, {}))
      ->Invoke(call.name, call.kind, call.arguments);
}

// The program counts how often the screen was switched off.
bool IsSwitchedSo(const Call& call) {
  return call.arguments.size() == 1 &&
         ToBoolean(call.object.Plain(call.name, CallKind::Get, {})) == ToBoolean(call.arguments[0]);
}

Variant LeftAsItIs(const Call&) { return {}; }

using enum ObjectKind;

constexpr Difference kDifferences[] = {
    {Application, "columns", true, false, OnActiveSheet, LacksMember, "the application has no columns of its own"},
    {Application, "cells", true, false, OnActiveSheet, LacksMember, "the application has no cells of its own"},
    {Application, "sheets", true, false, OnActiveWorkbook, LacksMember, "the application has no sheets of its own"},
    {Application, "screenupdating", false, true, LeftAsItIs, IsSwitchedSo,
     "switched off twice it must be switched on twice"},
    {Application, "range", true, false, RangeOfApplication, nullptr,
     "a sheet that is not there gives a range that crashes the program; "
     "sheets may differ within one address; a file in brackets is passed over"},
    {Application, "intersect", true, false, IntersectionOnOneSheet, nullptr,
     "ranges of different sheets have nothing in common instead of being refused"},
    {Worksheet, "range", true, false, RangeOfWorksheet, IsNoPlainAddress,
     "an address on another sheet is taken; a sheet that is not there crashes the program"},
    {Worksheet, "select", true, false, SelectVisibleSheet, nullptr,
     "a hidden sheet is passed over in silence; the cells selected on the sheet that is left are forgotten"},
    {Worksheet, "columns", true, false, LinesInsideSheet, HasLargeIndex, "columns beyond the last one are answered"},
    {Worksheet, "rows", true, false, LinesInsideSheet, HasLargeIndex, "rows beyond the last one are answered"},
    {Range, "columns", true, false, LinesInsideSheet, HasLargeIndex, "columns beyond the last one are answered"},
    {Range, "rows", true, false, LinesInsideSheet, HasLargeIndex, "rows beyond the last one are answered"},
    {Range, "range", true, false, RangeOfWorksheet, HasSheetPart, "a sheet that is not there crashes the program"},
    {Range, "resize", true, false, ResizeInsideSheet, nullptr,
     "sizes below one and beyond the sheet are cut in silence"},
    {Range, "count", true, false, CountWithoutOverflow, nullptr, "the cells of a whole sheet count as none"},
    {Range, "address", true, false, AddressWithFlags, nullptr, "a flag that is a number is passed over"},
    {Range, "select", true, false, SelectOnActiveSheet, nullptr, "the range's sheet is made the active one"},
    {Range, "specialcells", true, false, LastCell, AsksForLastCell, "the used area is answered, not its last cell"},
    {Range, "value", true, false, ReadValue, nullptr, "a cell with an error reads as 0; an argument is not taken"},
    {Range, "value2", true, false, ReadValue2, LacksMember, "there is no such member"},
    {Range, "value", false, true, PutValue, nullptr,
     "empty values, dates and errors are passed over; a text mark leaves a text format on the cell for good; "
     "a formula is read in the program's own notation, to which '!' is an intersection"},
    {Range, "value2", false, true, PutValue, LacksMember, "there is no such member"},
    {Range, "formula", true, false, ReadFormula, nullptr,
     "a link to another program reads as a function, a text of digits with a mark before it"},
    {Range, "formulalocal", true, false, ReadFormula, nullptr,
     "a link to another program reads as a function, a text of digits with a mark before it"},
    {Range, "formula", false, true, PutFormula, nullptr, "a link to another program is not read"},
    {Range, "formulalocal", false, true, PutFormula, nullptr, "a link to another program is not read"},
    {Range, "columnwidth", false, true, PutColumnWidth, nullptr,
     "widths that are none are taken or passed over in silence"},
    {Range, "columnwidth", true, false, ReadColumnWidth, nullptr, "a whole width reads a little smaller"},
    {Border, "linestyle", true, false, ReadLineStyle, OfRange, "always reads as a plain line"},
    {Border, "linestyle", false, true, PutLineStyle, OfRange, "passed over in silence"},
    {Border, "weight", true, false, ReadWeight, OfRange, "forgets the style; diagonals are passed over"},
    {Border, "weight", false, true, PutWeight, OfRange, "forgets the style; diagonals are passed over"},
    {Border, "colorindex", true, false, ReadColorIndex, OfRange, "diagonals are passed over"},
    {Border, "colorindex", false, true, PutColorIndex, OfRange, "forgets the style; diagonals are passed over"},
    {Interior, "colorindex", true, false, ReadBackground, OfRange, "cells of several backgrounds read as without one"},
    {Borders, "linestyle", false, true, PutLineStyle, OfRange, "passed over in silence"},
    {Borders, "weight", false, true, PutWeight, OfRange, "forgets the style"},
    {Borders, "colorindex", false, true, PutColorIndex, OfRange, "forgets the style"},
};

// Collections whose index is one, so that it may be out of their bounds.
constexpr std::string_view kIndexed[] = {"worksheets", "sheets", "workbooks", "names", "windows"};

bool IsIndexed(const Call& call) {
  for (const auto name : kIndexed)
    if (name == call.name) return true;
  return call.object.type().Kind() == Worksheets;
}

// Calls of a range that change cells: their values, or their looks and places.
constexpr std::string_view kContentCalls[] = {"clearcontents", "filldown", "fillup",   "fillleft",
                                              "fillright",     "replace",  "autofill", "goalseek"};
constexpr std::string_view kLookCalls[] = {"autofit",    "clear",    "clearformats",   "clearcomments", "insert",
                                           "delete",     "merge",    "unmerge",        "sort",          "pastespecial",
                                           "cut",        "group",    "ungroup",        "borderaround",  "addcomment",
                                           "autofilter", "subtotal", "removesubtotal", "autooutline"};
constexpr std::string_view kContentMembers[] = {"value",       "value2",           "formula",     "formulalocal",
                                                "formular1c1", "formular1c1local", "formulaarray"};

bool IsAmong(std::string_view name, std::span<const std::string_view> names) {
  for (const auto one : names)
    if (one == name) return true;
  return false;
}

void GuardWrite(const Call& call) {
  UnoDispatch* range = call.object.type().Kind() == Range ? &call.object : call.object.owner().get();
  if (!range) return;
  const bool own = range == &call.object;
  if (call.Writes())
    CheckWritable(*range, own && IsAmong(call.name, kContentMembers));
  else if (own && IsAmong(call.name, kContentCalls))
    CheckWritable(*range, true);
  else if (own && IsAmong(call.name, kLookCalls))
    CheckWritable(*range, false);
}

}  // namespace

Variant Call::Plain(std::span<const Variant> others) const {
  try {
    return object.Plain(name, kind, others);
  } catch (...) {
    const Error error = CaughtFailure();
    if (error.Number() == errors::SubscriptOutOfRange && !IsIndexed(*this)) Refuse(error.Description());
    throw error;
  }
}

Variant Call::At(std::size_t position) const {
  return position < arguments.size() ? arguments[position] : Variant::Missing();
}

std::span<const Difference> Differences() { return kDifferences; }

const Difference* DifferenceFor(const Call& call) {
  GuardWrite(call);
  const ObjectKind kind = call.object.type().Kind();
  if (kind == Other) return nullptr;
  for (const Difference& row : kDifferences)
    if (row.object == kind && row.member == call.name && (call.Writes() ? row.writes : row.reads) &&
        (!row.needed || row.needed(call)))
      return &row;
  return nullptr;
}

bool AddsMember(ObjectKind kind, std::string_view lowerName) {
  if (kind == Other) return false;
  for (const Difference& row : kDifferences)
    if (row.object == kind && row.member == lowerName) return true;
  return false;
}

}  // namespace pellora::libreoffice
