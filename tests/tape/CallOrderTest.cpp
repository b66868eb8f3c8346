#include "Desk.h"

namespace pellora::test {
namespace {

/// What is changed or run in the spreadsheet, in order; reads are left out.
class CallOrder : public Desk {
 protected:
  std::string Of(const std::function<void()>& act) {
    std::string order;
    excel::ObserveCalls([&](CallKind kind, std::string_view name) {
      if (kind != CallKind::Get) order.append(name).append(" ");
    });
    act();
    excel::ObserveCalls({});
    return order;
  }
};

TEST_F(CallOrder, LoadingSwitchesTheScreenOffFirstAndBackOnLast) {
  Workbook().Instruments(2).Tapes(1);
  const std::string lastQuote = "Select SpecialCells Find Find Select ";
  const std::string settings = "Select SpecialCells Select Select Select ScreenUpdating ";
  EXPECT_EQ(Of([&] { dialog->LoadTable(); }),
            "ScreenUpdating Select " + lastQuote + settings + "Activate Select ScreenUpdating ");
}

TEST_F(CallOrder, LoadingAnEmptyQuoteSheetDoesNotOpenTheSettingsSheet) {
  Workbook();
  EXPECT_EQ(Of([&] { dialog->LoadTable(); }),
            "ScreenUpdating Select Select SpecialCells Select Activate Select ScreenUpdating ");
}

TEST_F(CallOrder, InsertingWritesTheRecordThenTheTapeAndSwitchesTheScreenBackOnLast) {
  Workbook().Instruments(1);
  dialog->Load();
  dialog->chkLastSize.Value(1);
  dialog->txtAddress.Text("Sheet1!H3:J9");
  std::string frame;
  for (int i = 0; i < 8; ++i) frame += "LineStyle ";
  for (int i = 0; i < 4; ++i) frame += "LineStyle Weight ColorIndex ";
  EXPECT_EQ(Of([&] { dialog->AddSymbolToSheet(); }),
            "ScreenUpdating Select Select SpecialCells Select Value FormulaLocal Value Value ColorIndex AutoFit Select "
            "Value Value Value ColumnWidth " +
                frame + "Select ScreenUpdating ");
}

}  // namespace
}  // namespace pellora::test
