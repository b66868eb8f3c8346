#include "Desk.h"

namespace pellora::test {
namespace {

class AddSymbolToSheet : public Desk {
 protected:
  void Start(int tapes = 0) {
    Workbook().Instrument(Stock("XYZ")).Instrument(Stock("ABC")).Tapes(tapes);
    dialog->Load();
  }
  void Insert(std::string_view location = "Sheet1!H3:I9") {
    dialog->txtAddress.Text(location);
    dialog->AddSymbolToSheet();
  }
  void InsertWithSize(std::string_view location) {
    dialog->chkLastSize.Value(1);
    dialog->chkAddName.Value(1);
    Insert(location);
  }
  std::string Recorded(std::string_view address) {
    const auto value = Value(kSettings, address);
    return value.IsEmpty() ? "" : value.String();
  }
};
class ColorSelectRange : public AddSymbolToSheet {
 protected:
  /// A cell's lines: both diagonals, left, top, bottom, right.
  std::vector<BorderLine> LinesOf(std::string_view address) { return book.Lines("Sheet1", address); }
};

TEST_F(AddSymbolToSheet, AFirstTapeGoesDirectlyBelowTheHeader) {
  Start();
  Insert();
  EXPECT_EQ(Recorded("A2"), "XYZ");
  EXPECT_EQ(Formula(kSettings, "B2"), "=TWS_Quotes!$N$2");
  EXPECT_EQ(Recorded("D2"), "Sheet1!H3:I9");
}

TEST_F(AddSymbolToSheet, ATapeWithSizeFillsAllFourCells) {
  Start();
  InsertWithSize("Sheet1!H3:J9");
  EXPECT_EQ(Recorded("A2"), "XYZ(last price)");
  EXPECT_EQ(Formula(kSettings, "B2"), "=TWS_Quotes!$N$2");
  EXPECT_EQ(Recorded("C2"), "XYZ(last size)");
  EXPECT_EQ(Recorded("D2"), "Sheet1!H3:J9");
}

TEST_F(AddSymbolToSheet, ATwoColumnTapeLeavesTheSizeHeaderEmptyHereAndOnTheTargetSheet) {
  Start();
  dialog->OptClose.Value(true);
  Insert("Sheet1!H3:J9");
  EXPECT_EQ(Value(kSettings, "C2"), Variant());
  EXPECT_EQ(Value("Sheet1", "J3"), Variant());
}

TEST_F(AddSymbolToSheet, TheNextTapeGoesBelowWhateverTheSheetHolds) {
  Start(1);
  book.Set(kSettings, "F7", "note");
  Insert();
  EXPECT_EQ(Recorded("A8"), "XYZ");
}

TEST_F(AddSymbolToSheet, ATableThatDoesNotBeginInTheFirstCellIsFollowed) {
  Start();
  book.AddName("Tape_header_for_Ticker", "Ticker_tape_settings!$C$5");
  book.Set(kSettings, "C5", "Tape header for Ticker");
  Insert();
  EXPECT_EQ(Recorded("C6"), "XYZ");
  EXPECT_EQ(Formula(kSettings, "D6"), "=TWS_Quotes!$N$2");
  EXPECT_EQ(Recorded("F6"), "Sheet1!H3:I9");
}

TEST_F(AddSymbolToSheet, RecordsOnEvenRowsAreShadedAndOthersLeftAsTheyAre) {
  Start();
  Insert("Sheet1!H3:I9");
  dialog->VSFExcel.Row(2);
  Insert("Sheet1!K3:L9");
  for (const auto cell : {"A2", "B2", "C2", "D2"}) EXPECT_EQ(book.Interior(kSettings, cell), 15);
  EXPECT_EQ(book.Interior(kSettings, "E2"), -4142);
  for (const auto cell : {"A3", "D3"}) EXPECT_EQ(book.Interior(kSettings, cell), -4142);
}

TEST_F(AddSymbolToSheet, TheSettingsSheetsColumnsAreFitted) {
  Start();
  Insert("Sheet1!$H$30:$I$39");
  EXPECT_GT(book.ColumnWidth(kSettings, "D"), 12);
}

TEST_F(AddSymbolToSheet, TheTapeIsRememberedInMemory) {
  Start();
  InsertWithSize("Sheet1!H3:J9");
  ASSERT_EQ(dialog->LinkAddresses()->Count(), 1);
  const auto group = dialog->LinkAddresses()->Item(std::int32_t{1});
  EXPECT_EQ(group->GroupKey(), "$A$2:$S$2");
  const auto tape = group->Item("XYZ(last price)=TWS_Quotes!$N$2");
  EXPECT_EQ(tape->Name(), "XYZ(last price)");
  EXPECT_EQ(tape->NameSize(), "XYZ(last size)");
  EXPECT_EQ(tape->Link(), "=TWS_Quotes!$N$2");
  EXPECT_EQ(tape->DataRange(), "Sheet1!H3:J9");
}

TEST_F(AddSymbolToSheet, TheSameHeaderAndLinkAgainIsOneTapeInMemoryAtTheNewPlace) {
  Start();
  Insert("Sheet1!H3:I9");
  Insert("Sheet1!K3:L9");
  const auto group = dialog->LinkAddresses()->Item(std::int32_t{1});
  EXPECT_EQ(group->Count(), 1);
  EXPECT_EQ(group->Item(std::int32_t{1})->DataRange(), "Sheet1!K3:L9");
  EXPECT_EQ(Recorded("A3"), "XYZ");
}

TEST_F(AddSymbolToSheet, WithoutAFieldTheRecordIsWrittenWithoutALinkAndNotRemembered) {
  Start();
  dialog->OptLastPrice.Value(false);
  Insert();
  EXPECT_EQ(Recorded("A2"), "XYZ");
  EXPECT_EQ(Value(kSettings, "B2"), Variant());
  EXPECT_EQ(Recorded("D2"), "Sheet1!H3:I9");
  EXPECT_EQ(dialog->LinkAddresses()->Count(), 0);
}

TEST_F(AddSymbolToSheet, TheActiveSheetAndScreenUpdatingComeBackToWhatTheyWere) {
  Start();
  for (const bool updating : {true, false}) {
    excel::Application(application).ScreenUpdating(updating);
    Insert();
    EXPECT_EQ(ActiveSheet(), "Sheet1");
    EXPECT_EQ(ScreenUpdating(), updating);
  }
}

TEST_F(AddSymbolToSheet, AHeaderThatLooksLikeANumberADateOrAFormulaReadsBackAsItStood) {
  Start();
  int row = 2;
  for (const std::string header : {"007", "1/2", "=A1", "TRUE", "'quoted", "#N/A"}) {
    dialog->txtName.Text(header);
    Insert();
    EXPECT_EQ(Recorded("A" + std::to_string(row++)), header);
    EXPECT_EQ(Value("Sheet1", "I3"), Variant(header));
  }
}

TEST_F(AddSymbolToSheet, ALocationOnAQuotedSheetReadsBackAsItStoodAndTheTapeIsWrittenThere) {
  Start();
  book.AddSheet("Joe's tape");
  Insert("'Joe''s tape'!B3:C9");
  EXPECT_EQ(Recorded("D2"), "'Joe''s tape'!B3:C9");
  EXPECT_EQ(Value("Joe's tape", "B3"), Variant("Local Time"));
}

TEST_F(AddSymbolToSheet, AnInsertedTapeIsThereWhenTheDialogIsLoadedAnew) {
  Start();
  InsertWithSize("Sheet1!H3:J9");
  NewDialog();
  dialog->Load();
  ASSERT_EQ(dialog->VSFChart.Rows(), 2);
  EXPECT_EQ(dialog->VSFChart.Text(1, 0), "XYZ(last price)");
  EXPECT_EQ(dialog->VSFChart.Text(1, 1), "=TWS_Quotes!$N$2");
  EXPECT_EQ(dialog->VSFChart.Text(1, 2), "XYZ(last size)");
  EXPECT_EQ(dialog->VSFChart.Text(1, 3), "Sheet1!H3:J9");
}

TEST_F(AddSymbolToSheet, AMissingSettingsSheetIsReportedAndAbortingWritesNothing) {
  Start();
  book.DeleteSheet("Ticker_tape_settings");
  platform.user().ExpectErrorDialog("btnAbort");
  Insert();
  EXPECT_EQ(Handler().ErrorNumber(), 9);
  EXPECT_EQ(Value("Sheet1", "H3"), Variant());
}

TEST_F(AddSymbolToSheet, AbortingLeavesScreenUpdatingOffByIntention) {
  Start();
  book.DeleteName("Tape_header_for_Ticker");
  platform.user().ExpectErrorDialog("btnAbort");
  Insert();
  EXPECT_FALSE(ScreenUpdating());
  EXPECT_EQ(ActiveSheet(), kSettings);
}

TEST_F(AddSymbolToSheet, ATargetSheetThatIsNotThereIsReportedByTheFrameAndTheViewStillComesBack) {
  Start();
  platform.user().ExpectErrorDialog("btnAbort");
  Insert("Nowhere!H3:I9");
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"ColorSelectRange"}));
  EXPECT_EQ(Recorded("A2"), "XYZ");
  EXPECT_EQ(ActiveSheet(), "Sheet1");
  EXPECT_TRUE(ScreenUpdating());
}

TEST_F(ColorSelectRange, WritesTheHeaderLineAndNothingBelowIt) {
  Start();
  InsertWithSize("Sheet1!H3:J9");
  EXPECT_EQ(Value("Sheet1", "H3"), Variant("Local Time"));
  EXPECT_EQ(Value("Sheet1", "I3"), Variant("XYZ(last price)"));
  EXPECT_EQ(Value("Sheet1", "J3"), Variant("XYZ(last size)"));
  for (const auto cell : {"H4", "I4", "J9", "K3"}) EXPECT_EQ(Value("Sheet1", cell), Variant());
}

TEST_F(ColorSelectRange, SetsTheWidthOfTheTapesColumnsOnly) {
  Start();
  Insert("Sheet1!H3:I9");
  // A host rounds widths to its screen's pixels.
  EXPECT_NEAR(book.ColumnWidth("Sheet1", "H"), 10, 0.1);
  EXPECT_NEAR(book.ColumnWidth("Sheet1", "I"), 10, 0.1);
  EXPECT_LT(book.ColumnWidth("Sheet1", "J"), 9.5);
}

TEST_F(ColorSelectRange, DrawsTheFourOuterEdgesAndRemovesEveryOtherLine) {
  Start();
  const auto area = excel::Application(application).Worksheets("Sheet1").Range("H3:I9");
  for (int index = 5; index <= 12; ++index) area.Borders(index).LineStyle(1);
  Insert("Sheet1!H3:I9");
  const auto corner = LinesOf("H3");
  const BorderLine edge{5, 2, 16};
  EXPECT_EQ(corner[2], edge);
  EXPECT_EQ(corner[3], edge);
  for (const int index : {0, 1, 4, 5}) EXPECT_EQ(corner[static_cast<std::size_t>(index)].style, -4142);
  EXPECT_EQ(LinesOf("I9")[4], edge);
  EXPECT_EQ(LinesOf("I9")[5], edge);
  EXPECT_EQ(LinesOf("H5")[2], edge);
  EXPECT_EQ(LinesOf("H5")[3].style, -4142);
  EXPECT_EQ(LinesOf("H5")[5].style, -4142);
}

TEST_F(ColorSelectRange, TouchesTheBordersInTheirOrder) {
  Start();
  dialog->txtAddress.Text("Sheet1!H3:I9");
  std::string order;
  excel::ObserveCalls([&](CallKind kind, std::string_view name) {
    if (kind == CallKind::Put) order.append(name).append(" ");
  });
  dialog->ColorSelectRange();
  std::string expected = "Value Value ColumnWidth ";
  for (int i = 0; i < 8; ++i) expected += "LineStyle ";
  for (int i = 0; i < 4; ++i) expected += "LineStyle Weight ColorIndex ";
  EXPECT_EQ(order, expected);
}

class TwoColumns : public AddSymbolToSheet {
 protected:
  void StartWithout(std::string_view field) {
    auto fields = kAllFields;
    std::erase(fields, field);
    Workbook(fields).Instrument(Stock("XYZ"));
    dialog->Load();
    book.Set("Sheet1", "J3", "mine");
  }
  void ExpectNoSizeHeader() {
    ASSERT_EQ(dialog->ReturnColumnsCount(), 2);
    Insert("Sheet1!H3:I9");
    EXPECT_EQ(Value("Sheet1", "I3"), Variant("XYZ"));
    EXPECT_EQ(Value("Sheet1", "J3"), Variant("mine"));
    EXPECT_EQ(Value(kSettings, "C2"), Variant());
    EXPECT_EQ(Recorded("D2"), "Sheet1!H3:I9");
    EXPECT_EQ(dialog->LinkAddresses()->Item(std::int32_t{1})->Item(std::int32_t{1})->NameSize(), "");
  }
};

TEST_F(TwoColumns, APriceWhoseSizeTheWorkbookLacksLosesNoCellBesideTheTapeToItsSizeHeader) {
  StartWithout("TWS_Last_Size");
  ASSERT_FALSE(dialog->chkLastSize.Enabled());
  dialog->txtNameSize.Enabled(true);
  dialog->txtNameSize.Text("size");
  ExpectNoSizeHeader();
}

TEST_F(TwoColumns, AskPriceWithoutItsSizeAfterLastSizeWasTickedLosesNoCellBesideTheTape) {
  StartWithout("TWS_Ask_Size");
  dialog->chkLastSize.Value(1);
  dialog->OptAskPrice.Value(true);
  ASSERT_TRUE(dialog->txtNameSize.Enabled());
  ASSERT_EQ(dialog->txtNameSize.Text(), "XYZ");
  ExpectNoSizeHeader();
}

class RecordPlace : public AddSymbolToSheet {
 protected:
  void Start(int tapes = 1) {
    AddSymbolToSheet::Start(tapes);
    dialog->txtAddress.Text("Sheet1!H3:I9");
    Watch();
  }
  /// The search for the last used cell is all that is left to tell where it is.
  void LetTheSearchFail() {
    witness.FailWhen() = [](std::string_view member, std::uint64_t) {
      return member == "SpecialCells" || member == "Find";
    };
  }
  void ExpectNothingWritten(std::string_view answer) {
    const auto before = Picture(book);
    platform.user().AnswerErrorDialogs(answer);
    dialog->AddSymbolToSheet();
    witness.FailWhen() = {};
    EXPECT_EQ(Picture(book), before);
    EXPECT_FALSE(platform.user().ErrorTexts().empty());
  }
};

TEST_F(RecordPlace, ALastCellLookupThatFailedAndWasIgnoredWritesNeitherRecordNorTape) {
  Start();
  LetTheSearchFail();
  ExpectNothingWritten("btnIgnore");
}

TEST_F(RecordPlace, ALastCellLookupThatFailedAndWasAbortedWritesNeitherRecordNorTape) {
  Start();
  LetTheSearchFail();
  // Aborted in the lookup alone: the writer that called it goes on and puts the view back.
  ExpectNothingWritten("btnAbort");
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"GotoLastCell"}));
}

TEST_F(RecordPlace, AnIgnoredFailureOfTheRecordTablesRowWritesNeitherRecordNorTape) {
  Start();
  witness.Fail("Range(Tape_header_for_Ticker).Cells(2, 1).Row()");
  ExpectNothingWritten("btnIgnore");
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"AddSymbolToSheet"}));
}

TEST_F(RecordPlace, AnIgnoredFailureOfTheRecordsCellWritesNeitherRecordNorTape) {
  Start();
  witness.Fail("Range(Tape_header_for_Ticker).Cells(3, 1)");
  ExpectNothingWritten("btnIgnore");
}

TEST_F(RecordPlace, AnIgnoredFailureOfOneCellOfTheRecordLeavesOutThatCellAlone) {
  Start();
  witness.Fail("Range(Tape_header_for_Ticker).Cells(3, 1).Cells(1, 1)");
  platform.user().ExpectErrorDialog("btnIgnore");
  dialog->AddSymbolToSheet();
  EXPECT_EQ(Value(kSettings, "A3"), Variant());
  EXPECT_EQ(Formula(kSettings, "B3"), "=TWS_Quotes!$N$2");
  EXPECT_EQ(Recorded("D3"), "Sheet1!H3:I9");
  EXPECT_EQ(Value("Sheet1", "I3"), Variant("XYZ"));
}

TEST_F(RecordPlace, ATableWhoseHeaderStandsBelowAllContentIsReportedAndItsHeaderNotWrittenOver) {
  Start(0);
  book.AddName("Tape_header_for_Ticker", "Ticker_tape_settings!$A$9");
  ExpectNothingWritten("btnIgnore");
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"AddSymbolToSheet"}));
}

TEST_F(RecordPlace, OnAnEmptySheetTheFirstRecordStandsDirectlyBelowTheTablesPlace) {
  Start(0);
  book.Clear(kSettings);
  dialog->AddSymbolToSheet();
  EXPECT_EQ(Recorded("A2"), "XYZ");
  EXPECT_EQ(Value(kSettings, "A1"), Variant());
}

TEST_F(AddSymbolToSheet, FitsTheFirstFourColumnsAndNoOther) {
  Start();
  book.Set(kSettings, "E1", "x");
  const excel::Application excel(application);
  excel.Worksheets(kSettings).Range("A:E").ColumnWidth(99);
  Insert();
  for (const auto column : {"A", "B", "C", "D"}) EXPECT_LT(book.ColumnWidth(kSettings, column), 50);
  EXPECT_NEAR(book.ColumnWidth(kSettings, "E"), 99, 0.1);
}

TEST_F(AddSymbolToSheet, SelectsTheSettingsSheetItsFirstCellAndThenTheSheetThatWasActive) {
  Start();
  Watch();
  Insert();
  EXPECT_EQ(witness.Calls("Select()"),
            (std::vector<std::string>{
                "Worksheets(Ticker_tape_settings).Select()", "Worksheets(Ticker_tape_settings).Select()",
                "Worksheets(Ticker_tape_settings).Select()", "Worksheets(Ticker_tape_settings).Range(A1).Select()",
                "ActiveWorkbook().Worksheets(Sheet1).Select()"}));
}

}  // namespace
}  // namespace pellora::test
