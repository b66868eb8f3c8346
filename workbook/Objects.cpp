#include "workbook/Objects.h"

#include <algorithm>
#include <array>

#include "workbook/RangeObject.h"

namespace pellora::workbook {
namespace {

std::string FileName(const Host::State& state) {
  if (state.path.empty()) return "Book1";
  return state.path.substr(state.path.find_last_of("/\\") + 1);
}

Variant SheetsMember(const StatePtr& state, const Arguments& a) {
  if (!a.Has(0)) return Wrap(std::make_shared<WorksheetsObject>(state));
  return WrapWorksheet(state, FindSheet(*state, a.At(0)));
}

// The new sheet becomes the active one.
Variant AddSheet(const StatePtr& state, std::string name, std::size_t position) {
  Document& document = state->document;
  for (int number = 1; name.empty(); ++number)
    if (!document.FindSheet("Sheet" + std::to_string(number))) name = "Sheet" + std::to_string(number);
  if (document.FindSheet(name)) Refuse("That name is already taken. Try a different one.");
  document.AddSheet(name);
  auto& sheets = document.sheets;
  std::rotate(sheets.begin() + static_cast<std::ptrdiff_t>(position), sheets.end() - 1, sheets.end());
  document.active = position;
  return WrapWorksheet(state, sheets[position]);
}

std::size_t PlaceOf(const Variant& sheet) {
  const auto found = sheet.Is(Variant::Type::Object) ? std::dynamic_pointer_cast<WorksheetObject>(sheet.Object())
                                                     : std::shared_ptr<WorksheetObject>();
  if (!found) throw Error(errors::TypeMismatch);
  return found->state().IndexOf(*found->sheet());
}

// `Add` of the sheets: before a sheet, after one, or before the active one.
Variant AddSheetBeside(WorksheetsObject& sheets, const Arguments& a) {
  if (a.Has(0) && a.Has(1)) Refuse();
  const std::size_t place = a.Has(0)   ? PlaceOf(a.At(0))
                            : a.Has(1) ? PlaceOf(a.At(1)) + 1
                                       : sheets.state().document.active;
  return AddSheet(sheets.statePtr(), "", place);
}

// The one that takes the place of an active sheet becomes active.
void Delete(Host::State& state, const Sheet& sheet) {
  Document& document = state.document;
  if (document.sheets.size() == 1) Refuse("A workbook must contain at least one visible worksheet.");
  const std::size_t index = state.IndexOf(sheet);
  state.selections.erase(&sheet);
  document.sheets.erase(document.sheets.begin() + static_cast<std::ptrdiff_t>(index));
  if (document.active > index || document.active == document.sheets.size()) --document.active;
}

void Rename(Host::State& state, Sheet& sheet, const std::string& name) {
  constexpr std::size_t kLongestName = 31;
  const bool bad = name.empty() || ToUtf16(name).size() > kLongestName ||
                   name.find_first_of("\\/?*[]:") != std::string::npos || name.front() == '\'' || name.back() == '\'';
  const Sheet* other = state.document.FindSheet(name);
  if (bad || (other && other != &sheet)) Refuse();
  sheet.name = name;
}

Variant Selected(const StatePtr& state) {
  const auto& sheet = state->ActiveSheet();
  const auto hit = state->selections.find(sheet.get());
  return WrapRange(state, {sheet, hit == state->selections.end() ? std::vector<Area>{Area{}} : hit->second});
}

Variant CallsOf(const Host::State& state, const std::string& member) {
  std::uint64_t count = 0;
  for (const auto& [name, calls] : state.callsByMember)
    if (EqualAsciiNoCase(name, member)) count = calls;
  return static_cast<double>(count);
}

// Asks for a range, the one kind of input that is known here. An argument that is left out is to be absent: what a
// script passes for one that it cannot leave out, an empty value, may mean anything.
Variant InputBox(ApplicationObject& application, const Arguments& a) {
  constexpr std::size_t kTitle = 1, kLeft = 3, kTop = 4, kHelpContext = 6, kType = 7;
  constexpr std::int32_t kRange = 8;
  for (std::size_t i = kTitle; i < kType; ++i)
    if (a.Has(i) && a.At(i).Is(Variant::Type::Empty)) Refuse();
  for (const std::size_t number : {kLeft, kTop, kHelpContext})
    if (a.Has(number)) ToDouble(a.At(number));
  if (a.Text(0).empty() || !a.Has(kType) || a.Long(kType) != kRange) Refuse();
  const auto& state = application.statePtr();
  if (state->picked.empty()) return Variant(false);
  const Variant address(state->picked);
  return RangeFrom(state, state->ActiveSheet(), Arguments({&address, 1}), false);
}

using A = const Arguments&;
using App = ApplicationObject;

constexpr std::array kApplication = {
    Member<App>{"Range", 1, 2, [](App& o, A a) { return RangeFrom(o.statePtr(), o.state().ActiveSheet(), a, false); }},
    Member<App>{"InputBox", 1, 8, &InputBox},
    Member<App>{"Intersect", 2, 30, [](App&, A a) { return IntersectRanges(a); }},
    Member<App>{"Union", 2, 30, [](App&, A a) { return UniteRanges(a); }},
    Member<App>{"Cells", 0, 2, [](App& o, A a) { return CellsOf(*WholeSheet(o.statePtr(), o.state().ActiveSheet()), a); }},
    Member<App>{"Columns", 0, 1,
                [](App& o, A a) {
                  return LinesOf(*WholeSheet(o.statePtr(), o.state().ActiveSheet()), RangeUnit::Columns, a);
                }},
    Member<App>{"Rows", 0, 1,
                [](App& o, A a) {
                  return LinesOf(*WholeSheet(o.statePtr(), o.state().ActiveSheet()), RangeUnit::Rows, a);
                }},
    Member<App>{"ActiveSheet", 0, 0, [](App& o, A) { return WrapWorksheet(o.statePtr(), o.state().ActiveSheet()); }},
    Member<App>{"ActiveWorkbook", 0, 0, [](App& o, A) { return WrapWorkbook(o.statePtr()); }},
    Member<App>{"Worksheets", 0, 1, [](App& o, A a) { return SheetsMember(o.statePtr(), a); }},
    Member<App>{"Sheets", 0, 1, [](App& o, A a) { return SheetsMember(o.statePtr(), a); }},
    Member<App>{"ScreenUpdating", 0, 0, [](App& o, A) { return Variant(o.state().screenUpdating); },
                [](App& o, A a) { o.state().screenUpdating = ToBoolean(a.Last()); }},
    Member<App>{"DisplayAlerts", 0, 0, [](App& o, A) { return Variant(o.state().displayAlerts); },
                [](App& o, A a) { o.state().displayAlerts = ToBoolean(a.Last()); }},
    Member<App>{"Selection", 0, 0, [](App& o, A) { return Selected(o.statePtr()); }},
    Member<App>{"Name", 0, 0, [](App&, A) { return Variant("Pellora embedded workbook"); }},
    Member<App>{"Application", 0, 0, [](App& o, A) { return WrapApplication(o.statePtr()); }},
    Member<App>{"Parent", 0, 0, [](App& o, A) { return WrapApplication(o.statePtr()); }},
    Member<App>{"Open", 1, 1, [](App& o, A a) { return o.state().Open(a.Text(0)), WrapWorkbook(o.statePtr()); }},
    Member<App>{"Save", 1, 1, [](App& o, A a) { return o.state().Save(a.Text(0)), Variant(); }},
    Member<App>{"SaveAs", 1, 1, [](App& o, A a) { return o.state().Save(a.Text(0)), Variant(); }},
    Member<App>{"CallCount", 0, 0, [](App& o, A) { return Variant(static_cast<double>(o.state().calls)); }},
    Member<App>{"Calls", 1, 1, [](App& o, A a) { return CallsOf(o.state(), a.Text(0)); }},
    Member<App>{"ResetCalls", 0, 0,
                [](App& o, A) {
                  o.state().calls = 0;
                  o.state().callsByMember.clear();
                  return Variant();
                }},
    Member<App>{"AddWorksheet", 0, 1, 
                [](App& o, A a) {
                  return AddSheet(o.statePtr(), a.Has(0) ? a.Text(0) : "", o.state().document.sheets.size());
                }},
};

using Book = WorkbookObject;

constexpr std::array kWorkbook = {
    Member<Book>{"Name", 0, 0, [](Book& o, A) { return Variant(FileName(o.state())); }},
    Member<Book>{"FullName", 0, 0,
                 [](Book& o, A) { return Variant(o.state().path.empty() ? FileName(o.state()) : o.state().path); }},
    Member<Book>{"Activate", 0, 0, [](Book&, A) { return Variant(true); }},
    Member<Book>{"Worksheets", 0, 1, [](Book& o, A a) { return SheetsMember(o.statePtr(), a); }},
    Member<Book>{"Sheets", 0, 1, [](Book& o, A a) { return SheetsMember(o.statePtr(), a); }},
    Member<Book>{"ActiveSheet", 0, 0, [](Book& o, A) { return WrapWorksheet(o.statePtr(), o.state().ActiveSheet()); }},
    Member<Book>{"Names", 0, 1,
                 [](Book& o, A a) {
                   const DispatchPtr names = std::make_shared<NamesObject>(o.statePtr());
                   if (!a.Has(0)) return Variant(names);
                   return names->Invoke("Item", CallKind::Get, std::span(&a.At(0), 1));
                 }},
    Member<Book>{"Save", 0, 0, [](Book& o, A) { return o.state().Save(o.state().path), Variant(); }},
    Member<Book>{"SaveAs", 1, 1, [](Book& o, A a) { return o.state().Save(a.Text(0)), Variant(); }},
    Member<Book>{"Application", 0, 0, [](Book& o, A) { return WrapApplication(o.statePtr()); }},
    Member<Book>{"Parent", 0, 0, [](Book& o, A) { return WrapApplication(o.statePtr()); }},
};

using Sheets = WorksheetsObject;

constexpr std::array kWorksheets = {
    Member<Sheets>{"Item", 1, 1, [](Sheets& o, A a) { return SheetsMember(o.statePtr(), a); }},
    Member<Sheets>{"_Default", 1, 1, [](Sheets& o, A a) { return SheetsMember(o.statePtr(), a); }},
    Member<Sheets>{"Count", 0, 0,
                   [](Sheets& o, A) { return Variant(static_cast<std::int32_t>(o.state().document.sheets.size())); }},
    Member<Sheets>{"Add", 0, 2, &AddSheetBeside},
    Member<Sheets>{"Application", 0, 0, [](Sheets& o, A) { return WrapApplication(o.statePtr()); }},
    Member<Sheets>{"Parent", 0, 0, [](Sheets& o, A) { return WrapWorkbook(o.statePtr()); }},
};

using One = WorksheetObject;

Variant ActivateSheet(One& o, A) {
  o.state().Activate(*o.sheet());
  return true;
}

constexpr std::array kWorksheet = {
    Member<One>{"Name", 0, 0, [](One& o, A) { return Variant(o.sheet()->name); },
                [](One& o, A a) { Rename(o.state(), *o.sheet(), ToText(a.Last())); }},
    Member<One>{"Select", 0, 1, &ActivateSheet},
    Member<One>{"Activate", 0, 0, &ActivateSheet},
    Member<One>{"Delete", 0, 0, [](One& o, A) { return Delete(o.state(), *o.sheet()), Variant(true); }},
    Member<One>{"Range", 1, 2, [](One& o, A a) { return RangeFrom(o.statePtr(), o.sheet(), a, true); }},
    Member<One>{"Cells", 0, 2, [](One& o, A a) { return CellsOf(*WholeSheet(o.statePtr(), o.sheet()), a); }},
    Member<One>{"Columns", 0, 1,
                [](One& o, A a) { return LinesOf(*WholeSheet(o.statePtr(), o.sheet()), RangeUnit::Columns, a); }},
    Member<One>{"Rows", 0, 1,
                [](One& o, A a) { return LinesOf(*WholeSheet(o.statePtr(), o.sheet()), RangeUnit::Rows, a); }},
    Member<One>{"UsedRange", 0, 0,
                [](One& o, A) {
                  return WrapRange(o.statePtr(), {o.sheet(), {UsedArea(*o.sheet())}});
                }},
    Member<One>{"Index", 0, 0,
                [](One& o, A) { return Variant(static_cast<std::int32_t>(o.state().IndexOf(*o.sheet()) + 1)); }},
    Member<One>{"Application", 0, 0, [](One& o, A) { return WrapApplication(o.statePtr()); }},
    Member<One>{"Parent", 0, 0, [](One& o, A) { return WrapWorkbook(o.statePtr()); }},
};

}  // namespace

std::span<const Member<ApplicationObject>> ApplicationObject::Members() { return kApplication; }
std::span<const Member<WorkbookObject>> WorkbookObject::Members() { return kWorkbook; }
std::span<const Member<WorksheetsObject>> WorksheetsObject::Members() { return kWorksheets; }
std::span<const Member<WorksheetObject>> WorksheetObject::Members() { return kWorksheet; }

const std::shared_ptr<Sheet>& WorksheetObject::sheet() const {
  state().IndexOf(*m_sheet);
  return m_sheet;
}

std::shared_ptr<Sheet> FindSheet(const Host::State& state, const Variant& index) {
  const auto& sheets = state.document.sheets;
  if (index.Is(Variant::Type::String)) {
    for (const auto& sheet : sheets)
      if (EqualNoCase(sheet->name, index.String())) return sheet;
    throw Error(errors::SubscriptOutOfRange);
  }
  const std::int32_t number = ToLong(index);
  if (number < 1 || static_cast<std::size_t>(number) > sheets.size()) throw Error(errors::SubscriptOutOfRange);
  return sheets[static_cast<std::size_t>(number) - 1];
}

Variant WrapApplication(const StatePtr& state) { return Wrap(std::make_shared<ApplicationObject>(state)); }
Variant WrapWorkbook(const StatePtr& state) { return Wrap(std::make_shared<WorkbookObject>(state)); }
Variant WrapWorksheet(const StatePtr& state, const std::shared_ptr<Sheet>& sheet) {
  return Wrap(std::make_shared<WorksheetObject>(state, sheet));
}

}  // namespace pellora::workbook
