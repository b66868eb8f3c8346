#include <gmock/gmock.h>

#include "Desk.h"

namespace pellora::test {
namespace {

class GotoLastCell : public Desk {
 protected:
  std::string Last(std::string_view sheet) {
    std::string address = "junk";
    dialog->GotoLastCell("A1", sheet, address);
    return address;
  }
};
class LoadFGChart : public Desk {
 protected:
  std::int32_t Groups() { return dialog->LinkAddresses() ? dialog->LinkAddresses()->Count() : -1; }
};
class ViewFGChart : public Desk {};

TEST_F(GotoLastCell, IsTheLastUsedCellInRelativeForm) {
  Workbook().Instruments(3);
  EXPECT_EQ(Last("TWS_Quotes"), "S4") << "the lowest row and the rightmost column that hold anything";
  book.Set("TWS_Quotes", "T9", "x");
  EXPECT_EQ(Last("TWS_Quotes"), "T9");
}

TEST_F(GotoLastCell, FormatsBeyondTheContentDoNotCount) {
  Workbook();
  book.Set("Sheet1", "B7", "x");
  book.Set("Sheet1", "D2", "x");
  excel::Application(application).Worksheets("Sheet1").Range("H40").Interior().ColorIndex(3);
  EXPECT_EQ(Last("Sheet1"), "D7");
}

TEST_F(GotoLastCell, ALastCellOfOneBlankIsLookedThrough) {
  Workbook();
  book.Set("Sheet1", "C9", " ");
  EXPECT_EQ(Last("Sheet1"), "C9") << "the search for anything finds the blank too";
}

TEST_F(GotoLastCell, AnEmptySheetAnswersTheStartCellAndDoesNotFail) {
  Workbook();
  EXPECT_EQ(Last("Sheet1"), "A1");
  EXPECT_TRUE(platform.user().ErrorTexts().empty());
}

TEST_F(GotoLastCell, ASheetWhoseLastCellCannotBeToldIsSearched) {
  Workbook();
  book.Set("Sheet1", "C9", "x");
  witness.FailWhen() = [](std::string_view member, std::uint64_t) { return member == "SpecialCells"; };
  EXPECT_EQ(Last("Sheet1"), "C9");
  EXPECT_EQ(witness.Count("Find"), 2u);
  EXPECT_TRUE(platform.user().ErrorTexts().empty());
}

TEST_F(GotoLastCell, AnErrorValueInTheLastCellCountsAsContent) {
  Workbook();
  book.Set("Sheet1", "C9", Variant::CellError(static_cast<std::int32_t>(0x800A07FA)));
  EXPECT_EQ(Last("Sheet1"), "C9");
}

TEST_F(GotoLastCell, TheActiveSheetComesBack) {
  Workbook();
  Last("TWS_Quotes");
  EXPECT_EQ(ActiveSheet(), "Sheet1");
}

TEST_F(LoadFGChart, EveryTapeIsFoundUnderItsQuoteRow) {
  Workbook()
      .Instruments(3)
      .Tape("one", "=TWS_Quotes!$N$3", "", "Sheet1!A1:B4")
      .Tape("two", "=TWS_Quotes!$J$2", "size", "Sheet1!D1:F4")
      .Tape("three", "=TWS_Quotes!$L$3", "", "Sheet1!H1:I4");
  dialog->Load();
  ASSERT_EQ(Groups(), 2);
  const auto second = dialog->LinkAddresses()->Item("$A$3:$S$3");
  ASSERT_EQ(second->Count(), 2);
  EXPECT_EQ(second->Item(std::int32_t{1})->Name(), "one");
  EXPECT_EQ(second->Item(std::int32_t{2})->Name(), "three");
  const auto tape = dialog->LinkAddresses()->Item("$A$2:$S$2")->Item("two=TWS_Quotes!$J$2");
  EXPECT_EQ(tape->NameSize(), "size");
  EXPECT_EQ(tape->DataRange(), "Sheet1!D1:F4");
  EXPECT_EQ(tape->Link(), "=TWS_Quotes!$J$2");
}

TEST_F(LoadFGChart, ARecordWithoutNameLinkOrLocationIsSkippedAndOneWithoutSizeIsRead) {
  Workbook()
      .Instruments(1)
      .Tape("", "=TWS_Quotes!$N$2", "s", "Sheet1!A1:B4")
      .Tape("no link", "", "s", "Sheet1!A1:B4")
      .Tape("no place", "=TWS_Quotes!$N$2", "s", "")
      .Tape("no size", "=TWS_Quotes!$N$2", "", "Sheet1!A1:B4");
  dialog->Load();
  ASSERT_EQ(Groups(), 1);
  const auto group = dialog->LinkAddresses()->Item(std::int32_t{1});
  ASSERT_EQ(group->Count(), 1);
  EXPECT_EQ(group->Item(std::int32_t{1})->Name(), "no size");
}

TEST_F(LoadFGChart, ALinkToAnotherSheetIsAttachedToNoQuote) {
  Workbook().Instruments(1).Tape("N", "=Sheet1!$N$2", "", "Sheet1!A1:B4");
  dialog->Load();
  EXPECT_EQ(Groups(), 0);
}

TEST_F(LoadFGChart, ALinkThatIsNoPlainAddressIsAskedForOncePerLoadHoweverManyRows) {
  Workbook()
      .Instruments(50)
      .Tape("N", "=TWS_Quotes!Named", "", "Sheet1!A1:B4")
      .Tape("M", "=TWS_Quotes!Named", "", "x!A1");
  book.AddName("Named", "Ticker_tape_settings!$N$4");
  witness.Forget();
  dialog->Load();
  EXPECT_EQ(witness.Count("Intersect"), 1u);
  ASSERT_EQ(Groups(), 1);
  EXPECT_EQ(dialog->LinkAddresses()->Item(std::int32_t{1})->GroupKey(), "$A$4:$S$4");
  EXPECT_EQ(dialog->LinkAddresses()->Item(std::int32_t{1})->Count(), 2);
}

TEST_F(LoadFGChart, ANameOfAnotherSheetThanTheActiveOneMeetsNoRowAsTheSpreadsheetWouldSay) {
  Workbook().Instruments(3).Tape("N", "=TWS_Quotes!Named", "", "Sheet1!A1:B4");
  book.AddName("Named", "Sheet1!$N$3");
  dialog->Load();
  EXPECT_EQ(Groups(), 0);
  EXPECT_TRUE(platform.user().ErrorTexts().empty());
}

TEST_F(LoadFGChart, IncompleteRowsGetNoTapes) {
  auto contract = Stock("IBM");
  contract[8] = Variant();
  Workbook().Instrument(contract).Tapes(1);
  dialog->Load();
  EXPECT_EQ(Groups(), -1);
}

TEST_F(LoadFGChart, AMissingSettingsSheetIsReportedOncePerLoadNotOncePerRow) {
  Workbook().Instruments(50);
  book.DeleteSheet("Ticker_tape_settings");
  platform.user().AnswerErrorDialogs("btnIgnore");
  dialog->Load();
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"GotoLastCell", "LoadFGChart"}));
  EXPECT_EQ(dialog->VSFExcel.Rows(), 51);
  EXPECT_EQ(ActiveSheet(), "Sheet1");
}

TEST_F(LoadFGChart, AMissingRecordTableIsReportedOncePerLoad) {
  Workbook().Instruments(50);
  book.DeleteName("Tape_header_for_Ticker");
  platform.user().ExpectErrorDialog("btnAbort");
  dialog->Load();
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"LoadFGChart"}));
  EXPECT_EQ(ActiveSheet(), "Sheet1");
  EXPECT_TRUE(ScreenUpdating());
}

TEST_F(LoadFGChart, AnErrorCellInARecordIsATypeMismatchAndIgnoringItSkipsTheRecordOnly) {
  Workbook().Instruments(2).Tapes(2);
  book.Set(kSettings, "A2", Variant::CellError(static_cast<std::int32_t>(0x800A07FA)));
  platform.user().ExpectErrorDialog("btnIgnore");
  dialog->Load();
  EXPECT_EQ(Handler().ErrorNumber(), 13);
  ASSERT_EQ(Groups(), 1);
  EXPECT_EQ(dialog->LinkAddresses()->Item(std::int32_t{1})->GroupKey(), "$A$3:$S$3");
}

TEST_F(LoadFGChart, TheNextLoadReadsTheSheetAgain) {
  Workbook().Instruments(1);
  dialog->Load();
  book.Set(kSettings, "A2", "N");
  book.Set(kSettings, "B2", "=TWS_Quotes!$N$2");
  book.Set(kSettings, "D2", "Sheet1!A1:B4");
  dialog->LoadTable();
  EXPECT_EQ(Groups(), 1);
}

TEST_F(LoadFGChart, EachComparisonOfARowWithARecordLeavesItsEntryOnTheCallStackByIntention) {
  Workbook().Instruments(3).Tapes(4);
  dialog->LoadTable();
  // Beside the table's entry each row leaves its own and its four comparisons, less the one that its end takes off.
  // The first grid row, made current at the end, leaves nothing; the table's end takes off one more.
  EXPECT_EQ(Handler().CallStackDepth(), 1u + 3 * (1 + 4 - 1) - 1);
}

TEST_F(ViewFGChart, ShowsTheTapesOfTheRowWithoutRegardToLetterCaseInTheirOrder) {
  Workbook();
  dialog->LinkAddresses(std::make_shared<cLinkAddresseses>());
  const auto group = dialog->LinkAddresses()->ItemADD("$A$2:$S$2");
  for (const auto name : {"b", "a"}) group->ItemADD(name)->Name(name);
  dialog->LinkAddresses()->ItemADD("$A$3:$S$3")->ItemADD("c");
  dialog->ViewFGChart("$a$2:$s$2");
  ASSERT_EQ(dialog->VSFChart.Rows(), 3);
  EXPECT_EQ(dialog->VSFChart.Text(1, 0), "b");
  EXPECT_EQ(dialog->VSFChart.Text(2, 0), "a");
  EXPECT_EQ(dialog->VSFChart.Row(), 1);
}

TEST_F(ViewFGChart, ARowWithoutTapesShowsTheHeaderOnly) {
  Workbook();
  dialog->VSFChart.Rows(4);
  dialog->ViewFGChart("$A$2:$S$2");
  EXPECT_EQ(dialog->VSFChart.Rows(), 1);
}

TEST_F(GotoLastCell, OnlyALastCellThatIsEmptyOrOneBlankIsSearchedBehind) {
  Workbook();
  const std::pair<const char*, std::uint64_t> table[] = {{"x", 0}, {"  ", 0}, {" ", 2}};
  for (const auto& [content, searches] : table) {
    book.Set("Sheet1", "C9", content);
    witness.Forget();
    Last("Sheet1");
    EXPECT_EQ(witness.Count("Find"), searches) << "'" << content << "'";
  }
}

TEST_F(GotoLastCell, ASearchThatFailedAndWasIgnoredIsNotTakenForAnEmptySheet) {
  Workbook();
  witness.FailWhen() = [](std::string_view member, std::uint64_t) { return member == "Find"; };
  platform.user().AnswerErrorDialogs("btnIgnore");
  EXPECT_EQ(Last("Sheet1"), "");
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"GotoLastCell", "GotoLastCell"}));
}

TEST_F(GotoLastCell, ASheetThatCouldNotBeSelectedIsStillTheOneThatIsLookedAt) {
  Workbook().Instruments(3);
  Watch();
  witness.Fail("Worksheets(TWS_Quotes).Select()");
  platform.user().ExpectErrorDialog("btnIgnore");
  EXPECT_EQ(Last("TWS_Quotes"), "S4");
}

TEST_F(LoadFGChart, IgnoringThatTheSettingsSheetCannotBeSelectedDoesNotSkipTheReading) {
  Workbook().Instruments(3).Tapes(3);
  Watch();
  witness.Fail("Worksheets(Ticker_tape_settings).Select()");
  platform.user().AnswerErrorDialogs("btnIgnore");
  dialog->Load();
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"GotoLastCell", "LoadFGChart"}));
  EXPECT_EQ(Groups(), 3);
}

TEST_F(LoadFGChart, AQuotedLinkToTheQuoteSheetIsAttachedToItsRow) {
  Workbook().Instruments(2).Tape("N", "='TWS_Quotes'!$N$3", "", "Sheet1!A1:B4");
  // A host may write the name without the apostrophes, which it does not need.
  ASSERT_THAT(Formula(kSettings, "B2"), testing::AnyOf("='TWS_Quotes'!$N$3", "=TWS_Quotes!$N$3"));
  dialog->Load();
  ASSERT_EQ(Groups(), 1);
  EXPECT_EQ(dialog->LinkAddresses()->Item(std::int32_t{1})->GroupKey(), "$A$3:$S$3");
}

TEST_F(LoadFGChart, AQuotedLinkIsAttachedToARowThatOnlyTheSpreadsheetCanRead) {
  Workbook().Instruments(2).Tape("N", "='TWS_Quotes'!$N$3", "", "Sheet1!A1:B4");
  book.AddName("SecondRow", "Sheet1!$A$3:$S$3");
  dialog->LoadFGChart("SecondRow");
  EXPECT_EQ(Groups(), 1);
}

class UnreadRecords : public LoadFGChart {
 protected:
  static constexpr std::string_view kBlock = "Range(Tape_header_for_Ticker).Cells(2, 1).Resize(3, 4).Value()";
  static constexpr std::string_view kTaken = "Sheet1!B3:C9";

  /// Loads while the records' block cannot be read, and lets the user answer so.
  void LoadBlind(std::string_view answer) {
    Workbook().Instruments(3).Tapes(3);
    Watch();
    witness.Fail(kBlock);
    platform.user().ExpectErrorDialog(answer);
    dialog->Load();
    EXPECT_EQ(Groups(), 0);
  }
};

TEST_F(UnreadRecords, AfterAnAbortedReadingTheOverlapTestReadsThemForAllRows) {
  LoadBlind("btnAbort");
  witness.FailNothing();
  EXPECT_EQ(dialog->CheckAddressIntersect(kTaken), "'Name'=N0  'Data Range'=Sheet1!A1:B4");
  EXPECT_EQ(Groups(), 3);
}

TEST_F(UnreadRecords, AfterAnIgnoredReadingTheOverlapTestReadsThemForAllRows) {
  LoadBlind("btnIgnore");
  witness.FailNothing();
  EXPECT_NE(dialog->CheckAddressIntersect(kTaken), "");
  EXPECT_EQ(Groups(), 3);
}

TEST_F(UnreadRecords, AnOverlapIsRefusedAlthoughTheRecordsWereNotReadWhenTheDialogLoaded) {
  LoadBlind("btnAbort");
  witness.FailNothing();
  dialog->txtAddress.Text(kTaken);
  platform.user().ExpectMessage(
      "The ranges of 'Tape location' and ''Name'=N0  'Data Range'=Sheet1!A1:B4' intersect with each other.");
  EXPECT_FALSE(dialog->CheckField());
}

TEST_F(UnreadRecords, AReadingThatFailsAgainIsReportedAgainOnce) {
  LoadBlind("btnIgnore");
  platform.user().ExpectErrorDialog("btnIgnore");
  EXPECT_EQ(dialog->CheckAddressIntersect(kTaken), "");
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"LoadFGChart", "LoadFGChart"}));
}

TEST_F(UnreadRecords, OnceReadTheyAreNotReadAgain) {
  LoadBlind("btnAbort");
  witness.FailNothing();
  dialog->CheckAddressIntersect(kTaken);
  const auto calls = excel::CallCount();
  dialog->CheckAddressIntersect(kTaken);
  EXPECT_EQ(excel::CallCount(), calls);
}

TEST_F(UnreadRecords, ReadingThemAgainPutsTheActiveSheetAndTheScreenBack) {
  for (const bool fails : {false, true}) {
    Renew();
    NewDialog();
    LoadBlind("btnAbort");
    if (fails) platform.user().ExpectErrorDialog("btnAbort");
    if (!fails) witness.FailNothing();
    dialog->CheckAddressIntersect(kTaken);
    EXPECT_EQ(ActiveSheet(), "Sheet1");
    EXPECT_TRUE(ScreenUpdating());
  }
}

TEST_F(UnreadRecords, ALastUsedCellThatCouldNotBeFoundLeavesThemUnreadToo) {
  Workbook().Instruments(1).Tapes(3);
  Watch();
  witness.Fail("Worksheets(Ticker_tape_settings)", 1);
  platform.user().ExpectErrorDialog("btnIgnore");
  dialog->Load();
  EXPECT_NE(dialog->CheckAddressIntersect(kTaken), "");
}

TEST_F(LoadFGChart, ATracingLogThatCannotBeWrittenStopsNoReadingAndReportsNothing) {
  Workbook().Instruments(3).Tapes(3);
  platform.logFiles.refuses = true;
  Handler().TracingEnabled(true);
  dialog->Load();
  EXPECT_TRUE(platform.user().ErrorTexts().empty());
  EXPECT_EQ(dialog->VSFExcel.RowData(3), "1\r\n$A$4:$S$4");
  EXPECT_EQ(Groups(), 3);
}

}  // namespace
}  // namespace pellora::test
