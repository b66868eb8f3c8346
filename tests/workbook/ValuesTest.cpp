#include <chrono>

#include "Desk.h"

namespace pellora::workbook {
namespace {

using Values = Desk;

TEST_F(Values, ATextIsReadAsIfTyped) {
  const std::pair<const char*, Variant> pairs[] = {
      {"plain", "plain"},
      {"'Sheet 1'!B3", "Sheet 1'!B3"},
      {"'007", "007"},
      {"'", ""},
      {"12.5", 12.5},
      {"-3", -3.0},
      {"1e3", 1000.0},
      {"50%", 0.5},
      {"true", true},
      {"FALSE", false},
      {"12/31/2024", Variant::Date(45657)},
      {"2024-12-31", Variant::Date(45657)},
      {"2024-13-31", "2024-13-31"},
      {"#N/A", Variant::CellError(static_cast<std::int32_t>(0x800A07FA))},
      {"=", "="},
      {"", Variant()},
      {"Газ", "Газ"},
  };
  for (const auto& [text, value] : pairs) {
    Put(Range("B2"), "Value", text);
    EXPECT_EQ(Get(Range("B2"), "Value"), value) << text;
  }
}

TEST_F(Values, ATooLongTextIsRefused) {
  EXPECT_EQ(NumberOf([&] { Put(Range("A1"), "Value", std::string(32767, 'x')); }), 0);
  EXPECT_EQ(NumberOf([&] { Put(Range("A1"), "Value", std::string(32768, 'x')); }), 1004);
}

TEST_F(Values, WholeNumbersReadBackAsNumbers) {
  Put(Range("A1"), "Value", std::int32_t{7});
  EXPECT_EQ(Get(Range("A1"), "Value"), Variant(7.0));
}

TEST_F(Values, SeveralCellsAreABlockFromOne) {
  document.Set("Sheet1", "B3", "x");
  document.Set("Sheet1", "C4", 5.0);
  const Variant value = Get(Range("B3:C4"), "Value");
  const VariantArray& block = value.Array();
  EXPECT_EQ(block.RowBase(), 1);
  EXPECT_EQ(block.ColumnBase(), 1);
  ASSERT_EQ(block.Rows(), 2u);
  ASSERT_EQ(block.Columns(), 2u);
  EXPECT_EQ(block.At(0, 0), Variant("x"));
  EXPECT_EQ(block.At(0, 1), Variant());
  EXPECT_EQ(block.At(1, 1), Variant(5.0));
}

TEST_F(Values, SeveralAreasAnswerTheFirst) {
  document.Set("Sheet1", "A1", 1.0);
  document.Set("Sheet1", "C3", 2.0);
  EXPECT_EQ(Get(Range("A1,C3"), "Value"), Variant(1.0));
}

TEST_F(Values, AnArrayFillsABlockAndItsLackIsNotAvailable) {
  auto block = std::make_shared<VariantArray>(2, 2);
  block->At(0, 0) = "a";
  block->At(1, 1) = "=A1";
  Put(Range("A1:C3"), "Value", block);
  EXPECT_EQ(document.Value("Sheet1", "A1"), Variant("a"));
  EXPECT_EQ(document.Value("Sheet1", "B2"), Variant("a"));
  EXPECT_EQ(document.Value("Sheet1", "C3"), Variant::CellError(static_cast<std::int32_t>(0x800A07FA)));
}

TEST_F(Values, AOneDimensionalArrayFillsEveryRow) {
  auto line = std::make_shared<VariantArray>(1, 3, 0, 0, 1);
  for (std::size_t i = 0; i < 3; ++i) line->At(0, i) = static_cast<double>(i);
  Put(Range("A1:C2"), "Value", line);
  EXPECT_EQ(document.Value("Sheet1", "C2"), Variant(2.0));
}

TEST_F(Values, OneValueFillsAllCellsOfAllAreas) {
  Put(Range("A1:B2,D4"), "Value", 3.0);
  EXPECT_EQ(document.sheets[0]->cells.size(), 5u);
  EXPECT_EQ(document.Value("Sheet1", "D4"), Variant(3.0));
}

TEST_F(Values, ClearingAWholeColumnTouchesOnlyItsCells) {
  document.Set("Sheet1", "A5", 1.0);
  document.Set("Sheet1", "B5", 1.0);
  Put(Range("A:A"), "Value", Variant());
  EXPECT_EQ(document.sheets[0]->cells.size(), 1u);
}

TEST_F(Values, FillingAWholeColumnIsRefused) {
  EXPECT_EQ(NumberOf([&] { Put(Range("A:A"), "Value", 1.0); }), 1004);
  EXPECT_EQ(NumberOf([&] { Get(Object(app, "Cells"), "Value"); }), 7);
}

TEST_F(Values, TheFormulaOfAConstantIsItsText) {
  document.Set("Sheet1", "A1", 1.5);
  EXPECT_EQ(Get(Range("A1"), "FormulaLocal"), Variant("1.5"));
  EXPECT_EQ(Get(Range("A2"), "Formula"), Variant(""));
}

TEST_F(Values, AFormulaReadsBackAsWritten) {
  Put(Range("A1"), "FormulaLocal", "=TWS_Quotes!$E$7");
  EXPECT_EQ(Get(Range("A1"), "FormulaLocal"), Variant("=TWS_Quotes!$E$7"));
  EXPECT_EQ(Get(Range("A1:A2"), "FormulaLocal").Array().At(1, 0), Variant(""));
}

using Links = Desk;

TEST_F(Links, ShowTheLinkedCellsPresentValue) {
  document.AddSheet("My Sheet");
  document.AddName("Spot", "'My Sheet'!$B$2");
  document.Set("My Sheet", "B2", 1.5);
  const char* formulas[] = {"='My Sheet'!B2", "='My Sheet'!$B$2", "=Spot", "=sPOT"};
  for (const char* formula : formulas) {
    Put(Range("Sheet1!A1"), "Formula", formula);
    EXPECT_EQ(Get(Range("Sheet1!A1"), "Value"), Variant(1.5)) << formula;
  }
  document.Set("My Sheet", "B2", 2.5);
  EXPECT_EQ(Get(Range("Sheet1!A1"), "Value"), Variant(2.5));
}

TEST_F(Links, AnUnqualifiedLinkIsOnItsOwnSheet) {
  document.AddSheet("Desk");
  document.Set("Desk", "B1", "own");
  document.Set("Desk", "A1", "=B1");
  EXPECT_EQ(document.Value("Desk", "A1"), Variant("own"));
}

TEST_F(Links, AnEmptyLinkedCellShowsZero) {
  document.Set("Sheet1", "A1", "=B1");
  EXPECT_EQ(document.Value("Sheet1", "A1"), Variant(0.0));
}

TEST_F(Links, ALongChainEndsAtItsValue) {
  auto& sheet = *document.sheets[0];
  for (int row = 1; row < 50000; ++row) sheet.At({row, 1}).formula = "=A" + std::to_string(row + 1);
  sheet.At({50000, 1}).value = 7.0;
  EXPECT_EQ(document.Value("Sheet1", "A1"), Variant(7.0));
}

TEST_F(Links, RingsShowZero) {
  document.Set("Sheet1", "A1", "=A1");
  document.Set("Sheet1", "B1", "=B2");
  document.Set("Sheet1", "B2", "=B3");
  document.Set("Sheet1", "B3", "=B2");
  EXPECT_EQ(document.Value("Sheet1", "A1"), Variant(0.0));
  EXPECT_EQ(document.Value("Sheet1", "B1"), Variant(0.0));
}

TEST_F(Links, MissingSheetsAndNamesShowTheirErrors) {
  document.Set("Sheet1", "A1", "=Gone!A1");
  document.Set("Sheet1", "A2", "=nosuch");
  EXPECT_EQ(document.Value("Sheet1", "A1"), Variant::CellError(static_cast<std::int32_t>(0x800A07E7)));
  EXPECT_EQ(document.Value("Sheet1", "A2"), Variant::CellError(static_cast<std::int32_t>(0x800A07ED)));
}

TEST_F(Links, AWholeColumnShowsTheCellOfTheOwnRow) {
  document.Set("Sheet1", "E7", 70.0);
  document.Set("Sheet1", "A7", "=$E:$E");
  document.Set("Sheet1", "A8", "=E1:F9");
  EXPECT_EQ(document.Value("Sheet1", "A7"), Variant(70.0));
  EXPECT_EQ(document.Value("Sheet1", "A8"), Variant::CellError(static_cast<std::int32_t>(0x800A07DF)));
}

TEST_F(Links, OtherFormulasKeepTheirLastResult) {
  Cell& cell = document.sheets[0]->At({1, 1});
  cell.formula = "=SUM(B1:B9)";
  cell.value = 12.0;
  EXPECT_EQ(Get(Range("A1"), "Value"), Variant(12.0));
}

TEST_F(Values, ALargeBlockIsReadInMilliseconds) {
  auto& sheet = *document.sheets[0];
  for (int row = 1; row <= 10000; ++row)
    for (int column = 1; column <= 19; ++column) sheet.At({row, column}).value = 1.0;
  const auto start = std::chrono::steady_clock::now();
  const Variant block = Get(Range("A1:I10000"), "Value");
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(block.Array().At(9999, 8), Variant(1.0));
  // Generous: sanitizers and a busy machine.
  EXPECT_LT(took, std::chrono::seconds(1));
}

}  // namespace
}  // namespace pellora::workbook
