// What the library relies on of any spreadsheet, member by member, as docs/hosts.md lists them: here a host that means
// something else by one of them is told from a fault of a dialog.

#include "excel/Application.h"
#include "tests/hosts/OnHost.h"

namespace pellora::excel {
namespace {

class Model : public test::OnHost {
 protected:
  Model() {
    book.AddSheet("Desk");
    book.AddSheet("My Sheet");
    book.AddName("Spot", "Desk!$C$2:$D$5");
    book.AddName("Whole", "Desk!$C:$C");
  }

  Range At(std::string_view address, std::string_view sheet = "Sheet1") {
    return application.Worksheets(sheet).Range(address);
  }
  /// Whether the act is refused with any number.
  template <class Act>
  static bool Refused(Act act) {
    try {
      act();
    } catch (const Error&) {
      return true;
    }
    return false;
  }
  template <class Act>
  static std::int32_t NumberOf(Act act) {
    try {
      act();
    } catch (const Error& error) {
      return error.Number();
    }
    return 0;
  }

  Application application{book.application()};
};
class ModelRange : public Model {};
class ModelValue : public Model {};
class ModelLook : public Model {};
class ModelSearch : public Model {};

TEST_F(Model, TheHostIsAcceptedAsAnApplication) { EXPECT_TRUE(Application::Accepts(application.get())); }

TEST_F(Model, AnAddressWithoutASheetIsOnTheActiveOne) {
  application.Worksheets("Desk").Select();
  application.Range("B2").Value("here");
  EXPECT_EQ(book.Value("Desk", "B2"), Variant("here"));
}

TEST_F(Model, AnAddressMayNameItsSheetInApostrophesWhereItNeedsThem) {
  application.Range("Desk!B2").Value("desk");
  application.Range("'My Sheet'!B2").Value("mine");
  EXPECT_EQ(book.Value("Desk", "B2"), Variant("desk"));
  EXPECT_EQ(book.Value("My Sheet", "B2"), Variant("mine"));
}

TEST_F(Model, AWorkbookNameIsFoundInAnyLetterCaseFromAnySheet) {
  EXPECT_EQ(application.Range("SPOT").Address(), "$C$2:$D$5");
  EXPECT_EQ(application.Range("Whole").Address(), "$C:$C");
  application.Range("Spot").Cells(1, 1).Value("x");
  EXPECT_EQ(book.Value("Desk", "C2"), Variant("x"));
}

TEST_F(Model, WhatIsNoRangeIsRefused) {
  for (const auto* text : {"nosuchname", "Nowhere!A1", "Sheet1!ZZZ", "A0"})
    EXPECT_TRUE(Refused([&] { application.Range(text); })) << text;
}

TEST_F(Model, BlanksMayStandAroundAnAddressAndNotInside) {
  EXPECT_EQ(application.Range(" B3 ").Address(), "$B$3");
  EXPECT_EQ(application.Range(" Desk!B3 ").Address(), "$B$3");
  EXPECT_EQ(application.Range("B3, D5").Address(), "$B$3,$D$5");
  for (const auto* text : {"Desk !B3", "Desk! B3", "B 3"})
    EXPECT_TRUE(Refused([&] { application.Range(text); })) << text;
}

TEST_F(Model, AnAddressInTheNotationOfCellsWithAPointIsRefused) {
  for (const auto* text : {"Desk.B3", "$Desk.$B$3"}) EXPECT_TRUE(Refused([&] { application.Range(text); })) << text;
}

TEST_F(Model, CornersMayStandInAnyOrder) { EXPECT_EQ(application.Range("$I$3:$A$2").Address(), "$A$2:$I$3"); }

TEST_F(Model, IntersectIsTheCommonCells) {
  const auto common = application.Intersect(application.Range("$A$7:$S$7"), application.Range("$E:$E"));
  EXPECT_EQ(common.Address(), "$E$7");
}

TEST_F(Model, AreasWithoutCommonCellsIntersectInNothing) {
  EXPECT_FALSE(application.Intersect(application.Range("A1:A5"), application.Range("B1:B5")));
}

TEST_F(Model, AreasOfTwoSheetsAreRefusedAnIntersection) {
  EXPECT_EQ(NumberOf([&] { application.Intersect(At("A1"), At("A1", "Desk")); }), errors::ApplicationDefined);
}

TEST_F(Model, AColumnIsFoundByItsNumber) { EXPECT_EQ(application.Columns(5).Address(), "$E:$E"); }

TEST_F(Model, SelectingASheetMakesItTheActiveOne) {
  application.Worksheets("desk").Select();
  EXPECT_EQ(application.ActiveSheet().Name(), "Desk");
  application.ActiveWorkbook().Worksheets("My Sheet").Select();
  EXPECT_EQ(application.ActiveSheet().Name(), "My Sheet");
}

TEST_F(Model, ASheetThatIsNotThereIsOutOfRange) {
  EXPECT_EQ(NumberOf([&] { application.Worksheets("Nowhere"); }), errors::SubscriptOutOfRange);
}

TEST_F(Model, TheWorkbookCanBeActivated) { EXPECT_NO_THROW(application.ActiveWorkbook().Activate()); }

TEST_F(Model, ScreenUpdatingReadsBack) {
  EXPECT_TRUE(application.ScreenUpdating());
  application.ScreenUpdating(false);
  EXPECT_FALSE(application.ScreenUpdating());
  application.ScreenUpdating(true);
  EXPECT_TRUE(application.ScreenUpdating());
}

TEST_F(Model, ScreenUpdatingSwitchedOffTwiceIsSwitchedOnAtOnce) {
  application.ScreenUpdating(false);
  application.ScreenUpdating(false);
  application.ScreenUpdating(true);
  EXPECT_TRUE(application.ScreenUpdating());
}

TEST_F(Model, AnUnknownMemberIsToldByItsNumber) {
  EXPECT_FALSE(application.get()->Has("Nosuchmember"));
  EXPECT_EQ(NumberOf([&] { Use(application.get(), CallKind::Get, "Nosuchmember", {}); }), errors::MemberNotSupported);
}

TEST_F(ModelRange, CellsCountFromTheFirstOneAndMayLieOutside) {
  EXPECT_EQ(At("B3:D22").Cells(2, 1).Address(), "$B$4");
  EXPECT_EQ(At("B3").Cells(5, 9).Address(), "$J$7");
  EXPECT_EQ(application.Range("Whole").Cells(2, 1).Address(), "$C$2");
}

TEST_F(ModelRange, TellsItsPlaceAndSize) {
  const auto range = At("B3:D22");
  EXPECT_EQ(range.Row(), 3);
  EXPECT_EQ(range.Column(), 2);
  EXPECT_EQ(range.Rows().Count(), 20);
  EXPECT_EQ(range.Columns().Count(), 3);
  EXPECT_EQ(range.Count(), 60);
}

TEST_F(ModelRange, IsResizedFromItsFirstCellAndRefusedBeyondTheSheet) {
  EXPECT_EQ(At("B3:D22").Resize(1, 19).Address(), "$B$3:$T$3");
  EXPECT_TRUE(Refused([&] { At("XFD1").Resize(1, 2); }));
}

TEST_F(ModelRange, AddressesAreAbsoluteUnlessAskedOtherwiseAndWithoutTheSheet) {
  EXPECT_EQ(At("B3:D22", "Desk").Address(), "$B$3:$D$22");
  EXPECT_EQ(At("$B$3:$D$22").Address(false), "B3:D22");
  EXPECT_EQ(At("3:3").Address(), "$3:$3");
}

TEST_F(ModelRange, IsSelectedOnTheActiveSheet) {
  application.Worksheets("Desk").Select();
  At("B3", "Desk").Select();
  EXPECT_EQ(Range(test::Late(book.application()).Object("Selection").get()).Address(), "$B$3");
}

TEST_F(ModelRange, IsNotSelectedOnAnotherSheetThanTheActiveOne) {
  EXPECT_EQ(NumberOf([&] { At("B3", "Desk").Select(); }), errors::ApplicationDefined);
  EXPECT_EQ(application.ActiveSheet().Name(), "Sheet1");
}

TEST_F(ModelValue, PlainValuesKeepTheirKind) {
  for (const auto& value : {Variant("text"), Variant(1.25), Variant(true), Variant(false)}) {
    At("B2").Value(value);
    EXPECT_EQ(At("B2").Value(), value);
  }
}

TEST_F(ModelValue, AnEmptyCellIsEmptyAndOneThatWasEmptiedToo) {
  EXPECT_TRUE(At("B2").Value().IsEmpty());
  At("B2").Value("x");
  At("B2").Value("");
  EXPECT_TRUE(At("B2").Value().IsEmpty());
}

TEST_F(ModelValue, ADateIsADate) {
  At("B2").Value(Variant::Date(39434));
  EXPECT_EQ(At("B2").Value(), Variant::Date(39434));
}

TEST_F(ModelValue, AnErrorValueIsOneAndNoText) {
  const auto error = Variant::CellError(static_cast<std::int32_t>(0x800A07FA));
  At("B2").Value(error);
  EXPECT_EQ(At("B2").Value(), error);
}

TEST_F(ModelValue, ATextIsReadAsIfTypedUnlessItIsMarked) {
  At("B2").Value("1.25");
  EXPECT_EQ(At("B2").Value(), Variant(1.25));
  At("B2").Value("'1.25");
  EXPECT_EQ(At("B2").Value(), Variant("1.25"));
}

TEST_F(ModelValue, ABlockIsReadFromOneWithEveryCellInItsPlace) {
  book.Set("Sheet1", "B2", "a");
  book.Set("Sheet1", "C3", 4.0);
  const auto block = At("B2:C3").ValueBlock();
  ASSERT_EQ(block->Rows(), 2u);
  ASSERT_EQ(block->Columns(), 2u);
  EXPECT_EQ(block->RowBase(), 1);
  EXPECT_EQ(block->ColumnBase(), 1);
  EXPECT_EQ(block->At(0, 0), Variant("a"));
  EXPECT_EQ(block->At(1, 1), Variant(4.0));
  EXPECT_TRUE(block->At(0, 1).IsEmpty());
}

TEST_F(ModelValue, ABlockOfThousandsOfRowsIsWrittenAndReadInOneCall) {
  const auto rows = std::make_shared<VariantArray>(10000, 2);
  for (std::size_t row = 0; row < rows->Rows(); ++row) rows->At(row, 1) = "T" + std::to_string(row);
  At("B2:C10001").Value(rows);
  EXPECT_EQ(At("C10001").Value(), Variant("T9999"));
  EXPECT_EQ(At("B2:C10001").ValueBlock()->At(5000, 1), Variant("T5000"));
}

TEST_F(ModelValue, ALinkReadsBackAsWrittenAndShowsWhatItLeadsTo) {
  book.Set("Desk", "E7", 12.5);
  At("B2").FormulaLocal("=Desk!$E$7");
  EXPECT_EQ(At("B2").FormulaLocal(), Variant("=Desk!$E$7"));
  EXPECT_EQ(At("B2").Value(), Variant(12.5));
}

TEST_F(ModelValue, ALinkToASheetInApostrophesShowsWhatItLeadsTo) {
  book.Set("My Sheet", "E7", 12.5);
  book.Set("Desk", "E7", 7.5);
  At("B2").FormulaLocal("='My Sheet'!$E$7");
  At("B3").FormulaLocal("='Desk'!$E$7");
  EXPECT_EQ(At("B2").FormulaLocal(), Variant("='My Sheet'!$E$7"));
  EXPECT_EQ(At("B2").Value(), Variant(12.5));
  EXPECT_EQ(At("B3").Value(), Variant(7.5));
}

TEST_F(ModelValue, ABlockTakesTextsFormulasDatesAndErrorsEachInItsPlace) {
  const auto error = Variant::CellError(static_cast<std::int32_t>(0x800A07FA));
  const auto rows = std::make_shared<VariantArray>(2, 5);
  for (std::size_t row = 0; row < 2; ++row) {
    rows->At(row, 0) = "'1.25";
    rows->At(row, 1) = "=Desk!$E$7";
    rows->At(row, 2) = Variant::Date(39434);
    rows->At(row, 3) = error;
    rows->At(row, 4) = "1.25";
  }
  book.Set("Desk", "E7", 12.5);
  At("B2:F3").Value(rows);
  const auto block = At("B2:F3").ValueBlock();
  const Variant expected[] = {"1.25", 12.5, Variant::Date(39434), error, 1.25};
  for (std::size_t row = 0; row < 2; ++row)
    for (std::size_t column = 0; column < 5; ++column) EXPECT_EQ(block->At(row, column), expected[column]) << column;
  EXPECT_EQ(At("C3").FormulaLocal(), Variant("=Desk!$E$7"));
}

TEST_F(ModelValue, FormulasOfABlockAreTextsOfConstantsToo) {
  At("B2").FormulaLocal("=Desk!$E$7");
  At("C2").Value("plain");
  const auto block = At("B2:D2").FormulaLocalBlock();
  EXPECT_EQ(block->At(0, 0), Variant("=Desk!$E$7"));
  EXPECT_EQ(block->At(0, 1), Variant("plain"));
  EXPECT_EQ(block->At(0, 2), Variant(""));
}

TEST_F(ModelLook, AWidthIsOfWholeColumns) {
  At("B3:C5").ColumnWidth(20);
  EXPECT_NEAR(book.ColumnWidth("Sheet1", "C"), 20, 0.1);
  EXPECT_LT(book.ColumnWidth("Sheet1", "D"), 15);
}

TEST_F(ModelLook, SeveralWidthsAreNone) {
  At("B:B").ColumnWidth(20);
  At("C:C").ColumnWidth(30);
  EXPECT_TRUE(test::Late(At("B3:C5").get()).Get("ColumnWidth").Is(Variant::Type::Null));
}

TEST_F(ModelLook, OnlyWholeColumnsAndRowsAreFitted) {
  EXPECT_EQ(NumberOf([&] { At("B3:C5").AutoFit(); }), errors::ApplicationDefined);
  EXPECT_EQ(NumberOf([&] { At("B3:C5").EntireColumn().AutoFit(); }), 0);
}

TEST_F(ModelLook, FittingWidensAndNarrowsAColumnToItsTexts) {
  At("A:B").ColumnWidth(60);
  book.Set("Sheet1", "A1", "A text of some length");
  book.Set("Sheet1", "B1", "short");
  At("A1:B1").EntireColumn().AutoFit();
  EXPECT_GT(book.ColumnWidth("Sheet1", "A"), 12);
  EXPECT_LT(book.ColumnWidth("Sheet1", "A"), 40);
  EXPECT_LT(book.ColumnWidth("Sheet1", "B"), 12);
}

TEST_F(ModelLook, ABackgroundIsAnIndexOfThePalette) {
  At("A2:D2").Interior().ColorIndex(15);
  EXPECT_EQ(book.Interior("Sheet1", "D2"), 15);
  EXPECT_EQ(book.Interior("Sheet1", "E2"), -4142);
  At("A2:D2").Interior().ColorIndex(-4142);
  EXPECT_EQ(book.Interior("Sheet1", "D2"), -4142);
}

TEST_F(ModelLook, SeveralBackgroundsHaveNoIndex) {
  At("A2").Interior().ColorIndex(15);
  EXPECT_TRUE(test::Late(At("A2:B2").Interior().get()).Get("ColorIndex").Is(Variant::Type::Null));
}

TEST_F(ModelLook, AnEdgeIsDrawnAsStyleThenWeightThenColour) {
  for (const auto index : {xlEdgeLeft, xlEdgeTop, xlEdgeBottom, xlEdgeRight}) {
    At("B3:D5").Borders(index).LineStyle(xlDashDotDot);
    At("B3:D5").Borders(index).Weight(xlThin);
    At("B3:D5").Borders(index).ColorIndex(16);
  }
  const test::BorderLine edge{xlDashDotDot, xlThin, 16};
  EXPECT_EQ(book.Lines("Sheet1", "B3")[2], edge);
  EXPECT_EQ(book.Lines("Sheet1", "B3")[3], edge);
  EXPECT_EQ(book.Lines("Sheet1", "D5")[4], edge);
  EXPECT_EQ(book.Lines("Sheet1", "D5")[5], edge);
  for (const auto& line : book.Lines("Sheet1", "C4")) EXPECT_EQ(line.style, xlLineStyleNone);
}

TEST_F(ModelLook, EveryLineCanBeDrawnAndTakenAway) {
  for (std::int32_t index = xlDiagonalDown; index <= xlInsideHorizontal; ++index) {
    const auto read = [&] { return test::Late(At("B3:D5").Borders(index).get()).Get("LineStyle"); };
    At("B3:D5").Borders(index).LineStyle(1);
    EXPECT_EQ(read(), Variant(std::int32_t{1})) << index;
    At("B3:D5").Borders(index).LineStyle(xlLineStyleNone);
    EXPECT_EQ(read(), Variant(xlLineStyleNone)) << index;
  }
}

TEST_F(ModelSearch, TheLastCellIsTheLowestRowAndTheRightmostColumnInUse) {
  book.Set("Sheet1", "B7", "x");
  book.Set("Sheet1", "D2", "x");
  EXPECT_EQ(At("A1").SpecialCells(xlCellTypeLastCell).Address(false), "D7");
}

TEST_F(ModelSearch, SearchedBackwardsByRowsTheLowestComesFirstAndByColumnsTheRightmost) {
  book.Set("Sheet1", "B7", "x");
  book.Set("Sheet1", "D2", 5.0);
  const auto cells = application.Worksheets("Sheet1").Cells();
  EXPECT_EQ(cells.FindPrevious("*", xlByRows).Address(), "$B$7");
  EXPECT_EQ(cells.FindPrevious("*", xlByColumns).Address(), "$D$2");
}

TEST_F(ModelSearch, NothingIsFoundOnAnEmptySheetWhateverItsLook) {
  At("H40").Interior().ColorIndex(3);
  EXPECT_FALSE(application.Worksheets("Sheet1").Cells().FindPrevious("*", xlByRows));
}

}  // namespace
}  // namespace pellora::excel
