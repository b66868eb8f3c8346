#include <algorithm>

#include "core/Convert.h"
#include "support/Quietly.h"
#include "tape/FrozenGrid.h"
#include "tape/RowData.h"
#include "tape/SheetAddress.h"
#include "tape/frmAddRibbon.h"

namespace pellora {
namespace {

constexpr std::string_view kSymbolColumn = "TWS_Symbol";
constexpr int kContractColumns = 9;

// Ticker, type, exchange and currency make a row complete; counted from 0.
constexpr int kRequiredColumns[] = {0, 1, 6, 8};

}  // namespace

// ---- Which fields there are ----

void frmAddRibbon::OpredTotalOpt() {
  routine("OpredTotalOpt", [&](Steps&) {
    DataBeginning = 0;
    for (const auto name : {"TWS_Bid_Price", "TWS_Bid_Size", "TWS_Ask_Price", "TWS_Ask_Size", "TWS_Last_Price",
                            "TWS_Last_Size", "TWS_High", "TWS_Low", "TWS_Volume", "TWS_Close"})
      if (CheckAddres(name)) ++DataBeginning;
  });
}

bool frmAddRibbon::CheckAddres(std::string_view Name) {
  Push("CheckAddres");
  bool isRange = false;
  Quietly([&] {
    Excel().Range(Name).Address();
    isRange = true;
  });
  Pop();
  return isRange;
}

// ---- Reading the instruments ----

void frmAddRibbon::LoadTable() {
  routine("LoadTable", [&](Steps& step) {
    m_recorded.reset();
    m_recordsUnread = false;
    const auto excel = step([&] { return Excel(); });
    // What could not be asked is taken as on: a screen left frozen would be worse.
    bool screenUpdating = true;
    step([&] { screenUpdating = excel.ScreenUpdating(); });
    step([&] { excel.ScreenUpdating(false); });
    const auto sheet = step([&] { return excel.ActiveSheet().Name(); });
    step([&] { excel.Worksheets(kQuoteSheet).Select(); });
    const auto rows = FindQuoteRows(step, excel);
    const auto block = rows.last < rows.first ? nullptr : ReadContracts(step, excel, rows);
    if (block)
      ListInstruments(step, excel, rows, *block);
    else
      ListNothing();
    const auto again = step([&] { return Excel(); });
    step([&] { again.ActiveWorkbook().Activate(); });
    RestoreView(step, again, sheet, screenUpdating);
    m_recorded.reset();
  });
}

void frmAddRibbon::RestoreView(Steps& step, const excel::Application& excel, const std::string& sheet,
                               bool screenUpdating) {
  step([&] { excel.ActiveWorkbook().Worksheets(sheet).Select(); });
  step([&] { excel.ScreenUpdating(screenUpdating); });
}

frmAddRibbon::QuoteRows frmAddRibbon::FindQuoteRows(Steps& step, const excel::Application& excel) {
  QuoteRows rows;
  rows.last = LastUsedRow(step, excel, kQuoteSheet);
  rows.firstAddress = step([&] { return excel.Range(kSymbolColumn).Cells(2, 1).Address(); });
  rows.first = step([&] { return RowOf(excel, rows.firstAddress); });
  return rows;
}

// 0 when it could not be found out: the failure has been reported and answered then, and is not reported again.
std::int32_t frmAddRibbon::LastUsedRow(Steps& step, const excel::Application& excel, std::string_view sheetName) {
  std::string lastCell;
  GotoLastCell("A1", sheetName, lastCell);
  return lastCell.empty() ? 0 : step([&] { return RowOf(excel, lastCell); });
}

std::int32_t frmAddRibbon::RowOf(const excel::Application& excel, const std::string& address) {
  const auto area = ParseArea(address);
  return area ? area->top : excel.Range(address).Row();
}

std::shared_ptr<VariantArray> frmAddRibbon::ReadContracts(Steps& step, const excel::Application& excel,
                                                          const QuoteRows& rows) {
  const auto lastAddress =
      step([&] { return excel.Range(kSymbolColumn).Cells(rows.last - rows.first + 2, kContractColumns).Address(); });
  const auto block = step([&] { return excel.Range(lastAddress + ":" + rows.firstAddress); });
  return step([&] { return block.ValueBlock(); });
}

void frmAddRibbon::ListNothing() {
  VSFExcel.Rows(1);
  VSFChart.Rows(1);
  DisableChoices();
}

void frmAddRibbon::ListInstruments(Steps& step, const excel::Application& excel, const QuoteRows& rows,
                                   const VariantArray& block) {
  {
    const FrozenGrid frozen(VSFExcel);
    VSFExcel.Rows(static_cast<int>(block.Rows()) + 1);
    ShowContracts(step, block);
    TagRows(step, excel, rows);
  }
  step([&] { VSFExcel.Row(1); });
}

void frmAddRibbon::ShowContracts(Steps& step, const VariantArray& block) {
  const auto columns = std::min<std::size_t>(block.Columns(), kContractColumns);
  for (std::size_t i = 0; i < block.Rows(); ++i)
    for (std::size_t j = 0; j < columns; ++j)
      step([&] { VSFExcel.Text(static_cast<int>(i) + 1, static_cast<int>(j), ToText(block.At(i, j))); });
}

void frmAddRibbon::TagRows(Steps& step, const excel::Application& excel, const QuoteRows& rows) {
  const auto first = ParseArea(rows.firstAddress);
  const int width = kContractColumns + DataBeginning;
  const int count = std::min(rows.last - rows.first + 1, VSFExcel.Rows() - 1);
  for (int i = 1; i <= count; ++i) {
    const auto address = step([&] { return InstrumentAddress(excel, first, i, width); });
    const bool complete = RowIsComplete(i);
    VSFExcel.RowData(i, FormatRowData({complete, address}));
    if (complete) LoadFGChart(address);
  }
}

// The rows lie below each other, so the first one tells all addresses. Only when it is not plain each is asked for.
std::string frmAddRibbon::InstrumentAddress(const excel::Application& excel, const std::optional<Area>& first, int row,
                                            int width) {
  if (first && first->left + width - 1 <= kSheetColumns) {
    const int top = first->top + row - 1;
    return AbsoluteAddress({top, first->left, top, first->left + width - 1});
  }
  return excel.Range(kSymbolColumn).Cells(2, 1).Cells(row, 1).Resize(1, width).Address();
}

bool frmAddRibbon::RowIsComplete(int row) const {
  return std::none_of(std::begin(kRequiredColumns), std::end(kRequiredColumns),
                      [&](int column) { return VSFExcel.Text(row, column).empty(); });
}

// ---- Following the current instrument ----

void frmAddRibbon::ViewToTable() {
  routine("ViewToTable", [&](Steps& step) {
    if (VSFExcel.Row() <= 0) return;
    const auto data = ParseRowData(step([&] { return VSFExcel.RowData(VSFExcel.Row()); }));
    if (data && data->complete)
      ViewFGChart(data->address);
    else
      ShowNoTapes();
  });
}

void frmAddRibbon::VSFExcel_AfterSelChange(int, int, int NewRow, int) {
  routine("VSFExcel_AfterSelChange", [&](Steps& step) {
    const auto data = ParseRowData(step([&] { return VSFExcel.RowData(NewRow); }));
    if (data && data->complete)
      OfferFields(data->address);
    else if (data)
      ShowNoTapes();
    ViewChkName();
  });
}

void frmAddRibbon::ShowNoTapes() {
  DisableChoices();
  VSFChart.Rows(1);
}

void frmAddRibbon::OfferFields(const std::string& rowAddress) {
  EnableGroup(true);
  for (const Field field : {LastPrice, AskPrice, BidPrice, Low, High, Volume, Close})
    m_choices[field].option.Enabled(CheckAddres(m_choices[field].name));
  OptLastPrice_Click();
  OptAskPrice_Click();
  OptBidPrice_Click();
  OptLow_Click();
  OptHigh_Click();
  OptClose_Click();
  OptVolume_Click();
  EnableOptionButton();
  ViewFGChart(rowAddress);
}

}  // namespace pellora
