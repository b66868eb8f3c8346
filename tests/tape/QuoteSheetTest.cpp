#include "Desk.h"

namespace pellora::test {
namespace {

std::vector<std::string> Without(std::initializer_list<std::string_view> names) {
  auto fields = kAllFields;
  for (const auto name : names) std::erase(fields, name);
  return fields;
}

bool AnyChoiceEnabled(const frmAddRibbon& dialog) {
  for (const auto* option : {&dialog.OptLastPrice, &dialog.OptAskPrice, &dialog.OptBidPrice, &dialog.OptLow,
                             &dialog.OptHigh, &dialog.OptClose, &dialog.OptVolume})
    if (option->Enabled()) return true;
  return false;
}

class LoadTable : public Desk {};
class OpredTotalOpt : public Desk {};
class CheckAddres : public Desk {};
class AfterSelChange : public Desk {};
class ViewToTable : public Desk {};

TEST_F(LoadTable, EveryInstrumentIsListedWithItsNineContractColumns) {
  Workbook().Instrument({"ES", "FUT", "200803", 1.5, "CALL", 50.0, "GLOBEX", "X", "USD"}).Instrument(Stock("IBM"));
  dialog->Load();
  ASSERT_EQ(dialog->VSFExcel.Rows(), 3);
  const std::vector<std::string> expected = {"ES", "FUT", "200803", "1.5", "CALL", "50", "GLOBEX", "X", "USD"};
  for (int i = 0; i < 9; ++i) EXPECT_EQ(dialog->VSFExcel.Text(1, i), expected[static_cast<std::size_t>(i)]);
  EXPECT_EQ(dialog->VSFExcel.Text(2, 0), "IBM");
}

TEST_F(LoadTable, RowDataIsTheFlagAndTheRowsAddress) {
  Workbook().Instrument(Stock("IBM")).Instrument(Stock("MSFT"));
  dialog->Load();
  EXPECT_EQ(dialog->VSFExcel.RowData(1), "1\r\n$A$2:$S$2");
  EXPECT_EQ(dialog->VSFExcel.RowData(2), "1\r\n$A$3:$S$3");
}

TEST_F(LoadTable, TheFirstInstrumentBecomesCurrent) {
  Workbook().Instruments(3);
  dialog->Load();
  EXPECT_EQ(dialog->VSFExcel.Row(), 1);
  EXPECT_EQ(dialog->txtName.Text(), "T1");
}

TEST_F(LoadTable, AQuoteSheetWithOnlyTheHeaderRowLeavesTheGridEmptyAndEveryChoiceDisabled) {
  Workbook();
  dialog->Load();
  EXPECT_EQ(dialog->VSFExcel.Rows(), 1);
  EXPECT_EQ(dialog->VSFChart.Rows(), 1);
  EXPECT_FALSE(AnyChoiceEnabled(*dialog));
  for (const Control* control : std::initializer_list<const Control*>{
           &dialog->txtName, &dialog->txtNameSize, &dialog->txtAddress, &dialog->chkAddName, &dialog->ButGetAddress,
           &dialog->ButInsert, &dialog->ButInsertNew, &dialog->chkLastSize, &dialog->chkAskSize, &dialog->chkBidSize})
    EXPECT_FALSE(control->Enabled()) << control->Name();
  EXPECT_TRUE(dialog->ButCancel.Enabled());
}

TEST_F(LoadTable, ARowWithATickerButNoExchangeIsListedAsIncomplete) {
  auto contract = Stock("IBM");
  contract[6] = Variant();
  Workbook().Instrument(Stock("MSFT")).Instrument(contract);
  dialog->Load();
  EXPECT_EQ(dialog->VSFExcel.Text(2, 0), "IBM");
  EXPECT_EQ(dialog->VSFExcel.RowData(2), "0\r\n$A$3:$S$3");
}

TEST_F(LoadTable, EachOfTheFourRequiredColumnsMakesARowIncompleteAndNoOtherDoes) {
  auto builder = Workbook();
  for (std::size_t column = 0; column < 9; ++column) {
    Contract contract = {"A", "B", "C", "D", "E", "F", "G", "H", "I"};
    contract[column] = Variant();
    builder.Instrument(contract);
  }
  dialog->Load();
  std::string flags;
  for (int row = 1; row <= 9; ++row) flags += dialog->VSFExcel.RowData(row).front();
  EXPECT_EQ(flags, "001111010");
}

TEST_F(LoadTable, AWorkbookWithoutHighAndLowHasRowsOf17Columns) {
  Workbook(Without({"TWS_High", "TWS_Low"})).Instrument(Stock("IBM"));
  dialog->Load();
  EXPECT_EQ(dialog->DataBeginning, 8);
  EXPECT_EQ(dialog->VSFExcel.RowData(1), "1\r\n$A$2:$Q$2");
  EXPECT_FALSE(dialog->OptHigh.Enabled());
  EXPECT_FALSE(dialog->OptLow.Enabled());
  EXPECT_TRUE(dialog->OptClose.Enabled());
}

TEST_F(LoadTable, ContentFurtherDownIsListedAsIncompleteRows) {
  Workbook().Instrument(Stock("IBM"));
  book.Set("TWS_Quotes", "C6", "note");
  dialog->Load();
  ASSERT_EQ(dialog->VSFExcel.Rows(), 6);
  EXPECT_EQ(dialog->VSFExcel.Text(5, 2), "note");
  EXPECT_EQ(dialog->VSFExcel.RowData(5), "0\r\n$A$6:$S$6");
}

TEST_F(LoadTable, BlankRowsKeepTheirGridRow) {
  Workbook().Instrument(Stock("IBM")).Gap().Instrument(Stock("MSFT"));
  dialog->Load();
  EXPECT_EQ(dialog->VSFExcel.Text(2, 0), "");
  EXPECT_EQ(dialog->VSFExcel.RowData(2), "0\r\n$A$3:$S$3");
  EXPECT_EQ(dialog->VSFExcel.Text(3, 0), "MSFT");
}

TEST_F(LoadTable, ASymbolColumnElsewhereIsFollowed) {
  Workbook();
  book.AddName("TWS_Symbol", "TWS_Quotes!$C$4:$C$99");
  const char* cells[] = {"C5", "D5", "I5", "K5"};
  for (const auto cell : cells) book.Set("TWS_Quotes", cell, "x");
  dialog->Load();
  EXPECT_EQ(dialog->VSFExcel.RowData(1), "1\r\n$C$5:$U$5");
}

TEST_F(LoadTable, DatesNumbersAndTruthValuesBecomeText) {
  Workbook().Instrument({"A", "STK", Variant::Date(39434), 1.25, true, Variant(), "X", Variant(), "USD"});
  dialog->Load();
  EXPECT_EQ(dialog->VSFExcel.Text(1, 2), "12/18/2007");
  EXPECT_EQ(dialog->VSFExcel.Text(1, 3), "1.25");
  EXPECT_EQ(dialog->VSFExcel.Text(1, 4), "True");
}

TEST_F(LoadTable, TheActiveSheetAndScreenUpdatingComeBack) {
  Workbook().Instruments(3).Tapes(2);
  dialog->Load();
  EXPECT_EQ(ActiveSheet(), "Sheet1");
  EXPECT_TRUE(ScreenUpdating());
}

TEST_F(LoadTable, ScreenUpdatingThatWasOffStaysOff) {
  Workbook().Instruments(3);
  excel::Application(application).ScreenUpdating(false);
  dialog->Load();
  EXPECT_FALSE(ScreenUpdating());
}

TEST_F(LoadTable, ScreenUpdatingIsOffWhileSheetsAreSelected) {
  Workbook().Instruments(2).Tapes(2);
  int selections = 0;
  excel::ObserveCalls([&](CallKind, std::string_view name) {
    if (name != "Select") return;
    ++selections;
    EXPECT_FALSE(ScreenUpdating());
  });
  dialog->Load();
  EXPECT_GT(selections, 3);
}

TEST_F(LoadTable, AnErrorCellIsATypeMismatchAndIgnoringItGoesOnWithTheNextCell) {
  auto contract = Stock("IBM");
  contract[2] = Variant::CellError(static_cast<std::int32_t>(0x800A07FA));
  Workbook().Instrument(contract);
  platform.user().ExpectErrorDialog("btnIgnore");
  dialog->Load();
  EXPECT_EQ(Handler().ErrorNumber(), 13);
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"LoadTable"}));
  EXPECT_EQ(dialog->VSFExcel.Text(1, 2), "");
  EXPECT_EQ(dialog->VSFExcel.Text(1, 8), "USD");
  EXPECT_EQ(dialog->VSFExcel.RowData(1).front(), '1');
}

TEST_F(LoadTable, AnErrorCellInARequiredColumnLeavesTheRowIncomplete) {
  auto contract = Stock("IBM");
  contract[6] = Variant::CellError(static_cast<std::int32_t>(0x800A07FA));
  Workbook().Instrument(contract);
  platform.user().ExpectErrorDialog("btnIgnore");
  dialog->Load();
  EXPECT_EQ(dialog->VSFExcel.RowData(1).front(), '0');
}

TEST_F(LoadTable, AMissingSymbolNameIsReported) {
  Workbook().Instruments(2);
  book.DeleteName("TWS_Symbol");
  platform.user().ExpectErrorDialog("btnAbort");
  dialog->Load();
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"LoadTable"}));
}

TEST_F(LoadTable, AbortingLeavesScreenUpdatingOffAndTheQuoteSheetActiveByIntention) {
  Workbook().Instruments(2);
  book.DeleteName("TWS_Symbol");
  platform.user().ExpectErrorDialog("btnAbort");
  dialog->Load();
  EXPECT_FALSE(ScreenUpdating());
  EXPECT_EQ(ActiveSheet(), "TWS_Quotes");
}

TEST_F(LoadTable, AnAbortedReadingLeavesTheGridPainting) {
  auto contract = Stock("IBM");
  contract[2] = Variant::CellError(static_cast<std::int32_t>(0x800A07FA));
  Workbook().Instrument(contract);
  platform.user().ExpectErrorDialog("btnAbort");
  dialog->Load();
  EXPECT_TRUE(dialog->VSFExcel.Redraw());
}

TEST_F(LoadTable, IgnoringEveryErrorOfAMissingQuoteSheetEndsWithAnEmptyList) {
  platform.user().AnswerErrorDialogs("btnIgnore");
  dialog->Load();
  EXPECT_EQ(dialog->VSFExcel.Rows(), 1);
  EXPECT_TRUE(ScreenUpdating());
  EXPECT_LT(platform.user().ErrorTexts().size(), 10u);
}

TEST_F(LoadTable, WithoutAnOwnerItIsReportedAsAnObjectThatIsNotSet) {
  dialog->Owner(nullptr);
  platform.user().ExpectErrorDialog("btnAbort");
  dialog->LoadTable();
  EXPECT_EQ(Handler().ErrorNumber(), 91);
}

TEST_F(OpredTotalOpt, CountsTheFieldsOfTheWorkbook) {
  Workbook(Without({"TWS_High", "TWS_Close", "TWS_Bid_Size"}));
  dialog->OpredTotalOpt();
  EXPECT_EQ(dialog->DataBeginning, 7);
  dialog->OpredTotalOpt();
  EXPECT_EQ(dialog->DataBeginning, 7);
}

TEST_F(OpredTotalOpt, AsksForTheTenNamesInOrder) {
  Workbook();
  Watch();
  dialog->OpredTotalOpt();
  std::vector<std::string> expected;
  for (const auto name : {"TWS_Bid_Price", "TWS_Bid_Size", "TWS_Ask_Price", "TWS_Ask_Size", "TWS_Last_Price",
                          "TWS_Last_Size", "TWS_High", "TWS_Low", "TWS_Volume", "TWS_Close"}) {
    expected.push_back("Range(" + std::string(name) + ")");
    expected.push_back("Range(" + std::string(name) + ").Address()");
  }
  EXPECT_EQ(witness.Calls(), expected);
  EXPECT_EQ(dialog->DataBeginning, 10);
}

TEST_F(OpredTotalOpt, AWorkbookWithoutFieldsHasNone) {
  Workbook({});
  dialog->DataBeginning = 7;
  dialog->OpredTotalOpt();
  EXPECT_EQ(dialog->DataBeginning, 0);
}

TEST_F(CheckAddres, AnswersWhetherANameIsARange) {
  Workbook();
  EXPECT_TRUE(dialog->CheckAddres("TWS_Bid_Price"));
  EXPECT_TRUE(dialog->CheckAddres("Sheet1!B3"));
  EXPECT_FALSE(dialog->CheckAddres("TWS_Nothing"));
  EXPECT_FALSE(dialog->CheckAddres("Sheet1!ZZZ"));
  EXPECT_FALSE(dialog->CheckAddres("Nowhere!A1"));
}

TEST_F(CheckAddres, NeverReportsAndTakesItsEntryOffTheCallStackByIntention) {
  dialog->Owner(nullptr);
  EXPECT_FALSE(dialog->CheckAddres("TWS_Bid_Price"));
  EXPECT_EQ(Handler().CallStackDepth(), 0u);
  EXPECT_TRUE(platform.user().ErrorTexts().empty());
}

TEST_F(AfterSelChange, AnIncompleteRowDisablesAllChoicesAndEmptiesThePreview) {
  auto contract = Stock("IBM");
  contract[6] = Variant();
  Workbook().Instrument(Stock("MSFT")).Instrument(contract).Tape("N", "=TWS_Quotes!$N$2", "", "Sheet1!A1:B4");
  Use([&](headless::UserAtForm& user) {
    EXPECT_EQ(dialog->VSFChart.Rows(), 2);
    user.SelectRow("VSFExcel", 2);
    EXPECT_FALSE(AnyChoiceEnabled(*dialog));
    EXPECT_EQ(dialog->VSFChart.Rows(), 1);
    EXPECT_FALSE(dialog->ButInsert.Enabled());
  });
}

TEST_F(AfterSelChange, ACompleteRowOffersItsFieldsAgainAndShowsItsTapes) {
  Workbook().Gap().Instrument(Stock("MSFT")).Tape("N", "=TWS_Quotes!$N$3", "S", "Sheet1!A1:C4");
  Use([&](headless::UserAtForm& user) {
    user.SelectRow("VSFExcel", 2);
    EXPECT_TRUE(dialog->OptLastPrice.Enabled());
    EXPECT_TRUE(dialog->ButInsert.Enabled());
    EXPECT_EQ(dialog->txtName.Text(), "MSFT");
    ASSERT_EQ(dialog->VSFChart.Rows(), 2);
    EXPECT_EQ(dialog->VSFChart.Text(1, 0), "N");
    EXPECT_EQ(dialog->VSFChart.Text(1, 1), "=TWS_Quotes!$N$3");
    EXPECT_EQ(dialog->VSFChart.Text(1, 2), "S");
    EXPECT_EQ(dialog->VSFChart.Text(1, 3), "Sheet1!A1:C4");
    EXPECT_EQ(dialog->VSFChart.Row(), 1);
  });
}

TEST_F(AfterSelChange, TheCostOfARowDoesNotDependOnTheTapes) {
  Workbook().Instruments(20).Tapes(20);
  dialog->Load();
  const auto cost = [&](int row) {
    const auto before = excel::CallCount();
    dialog->VSFExcel.Row(row);
    return excel::CallCount() - before;
  };
  const auto first = cost(2);
  EXPECT_GT(first, 0u);
  EXPECT_EQ(cost(19), first);
}

TEST_F(ViewToTable, DoesNothingWithoutACurrentRow) {
  Workbook();
  dialog->ViewToTable();
  EXPECT_TRUE(dialog->ButInsert.Enabled());
}

TEST_F(ViewToTable, ARowWithoutRowDataIsDisabled) {
  Workbook();
  dialog->VSFExcel.Rows(2);
  dialog->VSFExcel.Row(1);
  dialog->ViewToTable();
  EXPECT_FALSE(dialog->ButInsert.Enabled());
}

TEST_F(LoadTable, CompleteContentBelowTheTableIsListedAsComplete) {
  Workbook().Instrument(Stock("IBM"));
  for (const auto cell : {"A6", "B6", "G6", "I6"}) book.Set("TWS_Quotes", cell, "x");
  dialog->Load();
  ASSERT_EQ(dialog->VSFExcel.Rows(), 6);
  EXPECT_EQ(dialog->VSFExcel.RowData(5), "1\r\n$A$6:$S$6");
  EXPECT_EQ(dialog->VSFExcel.RowData(4).front(), '0');
}

TEST_F(LoadTable, RetryingTheValuesOfTheContractsDoesNotAskForTheirPlaceAgain) {
  Workbook().Instruments(2);
  Watch();
  witness.Fail("Range($I$3:$A$2).Value()", 1);
  platform.user().ExpectErrorDialog("btnRetry");
  dialog->LoadTable();
  EXPECT_EQ(witness.Calls("Range($I$3:$A$2)").size(), 1u);
  EXPECT_EQ(dialog->VSFExcel.Rows(), 3);
}

TEST_F(LoadTable, SelectsTheQuoteSheetThenTheSettingsSheetAndAtTheEndTheSheetThatWasActive) {
  Workbook().Instruments(2).Tapes(1);
  Watch();
  dialog->LoadTable();
  EXPECT_EQ(witness.Calls("Select()"),
            (std::vector<std::string>{"Worksheets(TWS_Quotes).Select()", "Worksheets(TWS_Quotes).Select()",
                                      "Worksheets(TWS_Quotes).Select()", "Worksheets(Ticker_tape_settings).Select()",
                                      "Worksheets(TWS_Quotes).Select()", "Worksheets(Ticker_tape_settings).Select()",
                                      "ActiveWorkbook().Worksheets(TWS_Quotes).Select()",
                                      "ActiveWorkbook().Worksheets(Sheet1).Select()"}));
}

TEST_F(AfterSelChange, ARowWithEmptyRowDataChangesNoChoiceAndNoPreviewAndOnlyShowsItsTicker) {
  Workbook().Instruments(2).Tapes(1);
  dialog->Load();
  dialog->VSFExcel.RowData(2, "");
  EXPECT_EQ(Entered([&] { dialog->VSFExcel.Row(2); }),
            (std::vector<std::string>{"VSFExcel_AfterSelChange", "ViewChkName"}));
  EXPECT_EQ(dialog->txtName.Text(), "T2");
  EXPECT_TRUE(dialog->ButInsert.Enabled());
  EXPECT_EQ(dialog->VSFChart.Rows(), 2);
}

TEST_F(AfterSelChange, ACompleteRowEnablesFirstThenRunsTheSevenHandlersInTheirOrderThenShowsItsTapes) {
  Workbook().Instruments(2);
  dialog->Load();
  EXPECT_EQ(Entered([&] { dialog->VSFExcel.Row(2); }), (std::vector<std::string>{"VSFExcel_AfterSelChange",
                                                                                 "EnableGroup",
                                                                                 "CheckAddres",
                                                                                 "CheckAddres",
                                                                                 "CheckAddres",
                                                                                 "CheckAddres",
                                                                                 "CheckAddres",
                                                                                 "CheckAddres",
                                                                                 "CheckAddres",
                                                                                 "OptLastPrice_Click",
                                                                                 "CheckAddres",
                                                                                 "ViewChkName",
                                                                                 "modifyAddress",
                                                                                 "ReturnColumnsCount",
                                                                                 "OptAskPrice_Click",
                                                                                 "OptBidPrice_Click",
                                                                                 "OptLow_Click",
                                                                                 "OptHigh_Click",
                                                                                 "OptClose_Click",
                                                                                 "OptVolume_Click",
                                                                                 "EnableOptionButton",
                                                                                 "ViewFGChart",
                                                                                 "ViewChkName"}));
}

TEST_F(AfterSelChange, TheFieldsAreAskedForInTheOrderInWhichTheyAreEnabled) {
  Workbook().Instruments(2);
  dialog->Load();
  Watch();
  dialog->VSFExcel.Row(2);
  auto asked = witness.Calls(".Address()");
  EXPECT_EQ(asked, (std::vector<std::string>{"Range(TWS_Last_Price).Address()", "Range(TWS_Ask_Price).Address()",
                                             "Range(TWS_Bid_Price).Address()", "Range(TWS_Low).Address()",
                                             "Range(TWS_High).Address()", "Range(TWS_Volume).Address()",
                                             "Range(TWS_Close).Address()", "Range(TWS_Last_Size).Address()"}));
}

TEST_F(AfterSelChange, AnIncompleteRowDisablesTheGroupThenTheSizesThenShowsItsTicker) {
  Workbook().Instrument(Stock("A")).Gap().Instrument(Stock("B"));
  dialog->Load();
  EXPECT_EQ(Entered([&] { dialog->VSFExcel.Row(2); }),
            (std::vector<std::string>{"VSFExcel_AfterSelChange", "EnableGroup", "EnableSizeName", "ViewChkName"}));
}

}  // namespace
}  // namespace pellora::test
