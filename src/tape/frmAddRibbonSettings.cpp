#include <algorithm>

#include "core/Convert.h"
#include "core/Text.h"
#include "support/Quietly.h"
#include "tape/FrozenGrid.h"
#include "tape/RowData.h"
#include "tape/SettingsSheet.h"
#include "tape/SheetAddress.h"
#include "tape/frmAddRibbon.h"

namespace pellora {
namespace {

bool IsBlank(const Variant& value) {
  return value.IsEmpty() || (value.Is(Variant::Type::String) && (value.String().empty() || value.String() == " "));
}

}  // namespace

// ---- The last used cell ----

void frmAddRibbon::GotoLastCell(std::string_view StartCell, std::string_view SheetName, std::string& Address) {
  routine("GotoLastCell", [&](Steps& step) {
    const auto excel = step([&] { return Excel(); });
    const auto active = step([&] { return excel.ActiveSheet().Name(); });
    excel::Worksheet sheet;
    step([&] {
      sheet = excel.Worksheets(SheetName);
      sheet.Select();
    });
    // Asked of the sheet itself, so that the answer is about it also where selecting it was passed over.
    Address = sheet ? LastUsedCell(step, sheet, StartCell) : std::string();
    step([&] { excel.Worksheets(active).Select(); });
  });
}

std::string frmAddRibbon::LastUsedCell(Steps& step, const excel::Worksheet& sheet, std::string_view startCell) {
  // A sheet without a last cell is no failure; should more be wrong, the search below tells.
  excel::Range last;
  Quietly([&] { last = sheet.Range(startCell).SpecialCells(excel::xlCellTypeLastCell); });
  if (last && !IsBlank(step([&] { return last.Value(); }))) return step([&] { return last.Address(false); });
  // The used area can reach beyond what the sheet holds: formats, and cells that were cleared.
  return LastFoundCell(step, sheet, startCell);
}

std::string frmAddRibbon::LastFoundCell(Steps& step, const excel::Worksheet& sheet, std::string_view startCell) {
  const auto cells = step([&] { return sheet.Cells(); });
  // Nothing found and not searched are two things: the one is an empty sheet, of the other nothing is known.
  const auto lowest = step([&] { return std::optional(cells.FindPrevious("*", excel::xlByRows)); });
  const auto rightmost = step([&] { return std::optional(cells.FindPrevious("*", excel::xlByColumns)); });
  if (!lowest || !rightmost) return {};
  if (!*lowest || !*rightmost) return std::string(startCell);
  const auto row = step([&] { return lowest->Row(); });
  const auto column = step([&] { return rightmost->Column(); });
  return row < 1 || column < 1 ? std::string() : RelativeAddress({row, column, row, column});
}

// ---- Reading recorded tapes ----

void frmAddRibbon::LoadFGChart(std::string_view RowAddress) {
  routine("LoadFGChart", [&](Steps& step) {
    if (!m_linkAddresses) m_linkAddresses = std::make_shared<cLinkAddresseses>();
    if (!m_recorded) ReadSettingsSheet(step);
    const auto row = ParseArea(RowAddress);
    const auto tapes = row ? FollowingPlain(*row) : FollowingThroughExcel(RowAddress);
    for (const auto tape : tapes) step([&] { Remember(RowAddress, m_recorded->Records()[tape]); });
  });
}

void frmAddRibbon::ReadSettingsSheet(Steps& step) {
  // Whatever becomes of this reading, the load's other rows do not try again: one report is enough.
  m_recorded.emplace();
  m_recordsUnread = true;
  const auto excel = step([&] { return Excel(); });
  bool screenUpdating = true;
  step([&] { screenUpdating = excel.ScreenUpdating(); });
  const auto active = step([&] { return excel.ActiveSheet().Name(); });
  const auto lastRow = LastUsedRow(step, excel, kSettingsSheet);
  step([&] { excel.Worksheets(kSettingsSheet).Select(); });
  if (auto records = ReadRecords(step, excel, lastRow)) {
    m_recorded.emplace(std::move(*records), [&](const std::string& address) { return ResolveQuietly(excel, address); });
    m_recordsUnread = false;
  }
  RestoreView(step, excel, active, screenUpdating);
}

// The same reading once more, for the rows that have tapes: the complete ones.
void frmAddRibbon::ReadUnreadRecords(Steps& step) {
  const auto excel = step([&] { return Excel(); });
  bool screenUpdating = true;
  step([&] { screenUpdating = excel.ScreenUpdating(); });
  step([&] { excel.ScreenUpdating(false); });
  const auto active = step([&] { return excel.ActiveSheet().Name(); });
  m_recorded.reset();
  for (int i = 1; i < VSFExcel.Rows(); ++i) {
    const auto data = ParseRowData(step([&] { return VSFExcel.RowData(i); }));
    if (data && data->complete) LoadFGChart(data->address);
  }
  m_recorded.reset();
  RestoreView(step, excel, active, screenUpdating);
}

// Nothing when the table could not be read, or not to its end.
std::optional<std::vector<TapeRecord>> frmAddRibbon::ReadRecords(Steps& step, const excel::Application& excel,
                                                                 std::int32_t lastRow) {
  if (lastRow < 1) return std::nullopt;
  const auto first = step([&] { return excel.Range(kRecordTable).Cells(2, 1); });
  const auto firstRow = first ? step([&] { return first.Row(); }) : 0;
  if (firstRow < 1) return std::nullopt;
  // An empty table is read too, as its first row: reading costs the same whatever is recorded.
  const auto count = std::max(1, lastRow - firstRow + 1);
  const auto values = step([&] { return first.Resize(count, 4).ValueBlock(); });
  const auto links = step([&] { return first.Cells(1, 2).Resize(count, 1).FormulaLocalBlock(); });
  if (!values || !links) return std::nullopt;
  std::vector<TapeRecord> records;
  for (std::size_t i = 0; i < values->Rows() && i < links->Rows(); ++i) {
    TapeRecord& record = records.emplace_back();
    record.name = step([&] { return ToText(values->At(i, 0)); });
    record.link = step([&] { return ToText(links->At(i, 0)); });
    record.nameSize = step([&] { return ToText(values->At(i, 2)); });
    record.location = step([&] { return ToText(values->At(i, 3)); });
  }
  return records;
}

// Addresses without a sheet mean the active one. Meeting its cells drops what the text names on other sheets.
std::optional<std::vector<Area>> frmAddRibbon::ResolveQuietly(const excel::Application& excel,
                                                              const std::string& address) {
  std::optional<std::vector<Area>> areas;
  Quietly([&] { areas = ParseAreas(excel.Intersect(excel.Range(address), excel.ActiveSheet().Cells()).Address()); });
  return areas;
}

// Each record is compared with the row, in effect, and each comparison leaves its entry as `myIntersect` does.
std::vector<std::size_t> frmAddRibbon::FollowingPlain(const Area& row) {
  Push("myIntersect", m_recorded->Records().size());
  return m_recorded->Following(row);
}

std::vector<std::size_t> frmAddRibbon::FollowingThroughExcel(std::string_view rowAddress) {
  std::vector<std::size_t> found;
  std::string rowSheet, row, sheet, cell;
  ReturnNameSheetAndAddress(rowSheet, row, rowAddress);
  const auto plain = [](const std::string& name) { return UnquotedSheet(Replace(name, "=", "")); };
  const auto& records = m_recorded->Records();
  for (std::size_t i = 0; i < records.size(); ++i) {
    ReturnNameSheetAndAddress(sheet, cell, records[i].link);
    if (!myIntersect(plain(sheet), cell, plain(rowSheet), row).empty()) found.push_back(i);
  }
  return found;
}

// ---- Showing recorded tapes ----

void frmAddRibbon::ViewFGChart(std::string_view RowAddress) {
  routine("ViewFGChart", [&](Steps& step) {
    {
      const FrozenGrid frozen(VSFChart);
      VSFChart.Rows(1);
      if (!m_linkAddresses) return;
      for (const auto& group : m_linkAddresses->NewEnum())
        if (EqualNoCase(group->GroupKey(), RowAddress)) ShowTapes(*group);
    }
    if (VSFChart.Rows() > 1) step([&] { VSFChart.Row(1); });
  });
}

void frmAddRibbon::ShowTapes(const cLinkAddresses& tapes) {
  for (const auto& tape : tapes.NewEnum()) {
    const int row = VSFChart.Rows();
    VSFChart.Rows(row + 1);
    VSFChart.Text(row, 0, tape->Name());
    VSFChart.Text(row, 1, tape->Link());
    VSFChart.Text(row, 2, tape->NameSize());
    VSFChart.Text(row, 3, tape->DataRange());
  }
}

}  // namespace pellora
