#include "core/Error.h"
#include "tape/SettingsSheet.h"
#include "tape/SheetAddress.h"
#include "tape/TypedText.h"
#include "tape/frmAddRibbon.h"

namespace pellora {
namespace {

constexpr std::int32_t kRecordShade = 15;
constexpr std::int32_t kFrameColor = 16;
constexpr double kTapeColumnWidth = 10;

std::string LinkFormula(const std::string& link) { return "=" + std::string(kQuoteSheet) + "!" + link; }

}  // namespace

void frmAddRibbon::AddSymbolToSheet() {
  routine("AddSymbolToSheet", [&](Steps& step) {
    const auto excel = step([&] { return Excel(); });
    // What could not be asked is taken as on: a screen left frozen would be worse.
    bool screenUpdating = true;
    step([&] { screenUpdating = excel.ScreenUpdating(); });
    step([&] { excel.ScreenUpdating(false); });
    const auto active = step([&] { return excel.ActiveSheet().Name(); });
    const auto settings = step([&] { return excel.Worksheets(kSettingsSheet); });
    step([&] { settings.Select(); });
    // Without a place for the record nothing is written, the tape's area neither: a tape that is not recorded would
    // be overwritten by the next one, and a guessed place could hold another record or the table's header.
    if (const auto record = NewRecord(step, excel)) WriteTape(step, settings, record);
    RestoreView(step, excel, active, screenUpdating);
  });
}

void frmAddRibbon::WriteTape(Steps& step, const excel::Worksheet& settings, const excel::Range& record) {
  std::string rowAddress;
  const auto link = WriteRecord(step, record, rowAddress);
  RecordInMemory(step, link, rowAddress);
  step([&] { settings.Range("A:D").EntireColumn().AutoFit(); });
  step([&] { settings.Range("A1").Select(); });
  ColorSelectRange();
}

// The first row below everything the settings sheet holds, in the record table's first column; nothing when it could
// not be found out, which has been reported and answered then.
excel::Range frmAddRibbon::NewRecord(Steps& step, const excel::Application& excel) {
  const auto table = step([&] { return excel.Range(kRecordTable); });
  const auto firstRow = step([&] { return table.Cells(2, 1).Row(); });
  const auto lastRow = LastUsedRow(step, excel, kSettingsSheet);
  if (firstRow < 1 || lastRow < 1) return {};
  const auto row = lastRow - firstRow + 3;
  return step([&] {
    // The table's header stands below everything the sheet holds: an empty header would be written over.
    if (row < 2) throw Error(errors::ApplicationDefined);
    return table.Cells(row, 1);
  });
}

std::string frmAddRibbon::WriteRecord(Steps& step, const excel::Range& record, std::string& rowAddress) {
  step([&] { record.Cells(1, 1).Value(AsTypedText(txtName.Text())); });
  const auto link = GivMyLink(rowAddress);
  if (!link.empty()) step([&] { record.Cells(1, 2).FormulaLocal(LinkFormula(link)); });
  if (HasSizeHeader()) step([&] { record.Cells(1, 3).Value(AsTypedText(txtNameSize.Text())); });
  step([&] { record.Cells(1, 4).Value(AsTypedText(txtAddress.Text())); });
  const auto row = step([&] { return record.Row(); });
  if (row % 2 == 0) step([&] { record.Resize(1, 4).Interior().ColorIndex(kRecordShade); });
  return link;
}

void frmAddRibbon::RecordInMemory(Steps& step, const std::string& link, const std::string& rowAddress) {
  if (txtName.Text().empty() || txtAddress.Text().empty() || link.empty() || rowAddress.empty()) return;
  const auto size = HasSizeHeader() ? txtNameSize.Text() : std::string();
  step([&] { Remember(rowAddress, {txtName.Text(), LinkFormula(link), size, txtAddress.Text()}); });
}

void frmAddRibbon::Remember(std::string_view rowAddress, const TapeRecord& record) {
  if (!m_linkAddresses) m_linkAddresses = std::make_shared<cLinkAddresseses>();
  const auto tape = m_linkAddresses->ItemADD(rowAddress)->ItemADD(record.name + record.link);
  tape->DataRange(record.location);
  tape->Link(record.link);
  tape->Name(record.name);
  tape->NameSize(record.nameSize);
}

void frmAddRibbon::ColorSelectRange() {
  routine("ColorSelectRange", [&](Steps& step) {
    std::string sheet, address;
    ReturnNameSheetAndAddress(sheet, address, txtAddress.Text());
    const auto area = step([&] { return TapeArea(sheet, address); });
    step([&] { area.Cells(1, 1).Value("Local Time"); });
    step([&] { area.Cells(1, 2).Value(AsTypedText(txtName.Text())); });
    if (HasSizeHeader()) step([&] { area.Cells(1, 3).Value(AsTypedText(txtNameSize.Text())); });
    const auto rows = step([&] { return area.Rows().Count(); });
    const auto columns = step([&] { return area.Columns().Count(); });
    const auto tape = step([&] { return area.Cells(1, 1).Resize(rows, columns); });
    step([&] { tape.ColumnWidth(kTapeColumnWidth); });
    DrawFrame(step, tape);
  });
}

excel::Range frmAddRibbon::TapeArea(const std::string& sheet, const std::string& address) const {
  return Excel().ActiveWorkbook().Worksheets(UnquotedSheet(sheet)).Range(address);
}

void frmAddRibbon::DrawFrame(Steps& step, const excel::Range& tape) {
  using namespace excel;
  for (const auto index : {xlDiagonalDown, xlDiagonalUp, xlEdgeLeft, xlEdgeTop, xlEdgeBottom, xlEdgeRight,
                           xlInsideVertical, xlInsideHorizontal})
    step([&] { tape.Borders(index).LineStyle(xlLineStyleNone); });
  for (const auto index : {xlEdgeLeft, xlEdgeTop, xlEdgeBottom, xlEdgeRight}) {
    const auto edge = step([&] { return tape.Borders(index); });
    step([&] { edge.LineStyle(xlDashDotDot); });
    step([&] { edge.Weight(xlThin); });
    step([&] { edge.ColorIndex(kFrameColor); });
  }
}

}  // namespace pellora
