#include <gtest/gtest.h>

#include "core/Convert.h"
#include "tests/libreoffice/uno/CalcDocument.h"

namespace pellora::test {
namespace {

constexpr std::int32_t kDivisionByZero = static_cast<std::int32_t>(0x800A07D7);
constexpr std::int32_t kNotAvailable = static_cast<std::int32_t>(0x800A07FA);

TEST(ValuesOfCells, AreReadAsTheyWereWritten) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("B3");
  for (const Variant& value : {Variant("Local Time"), Variant(2.5), Variant(true)}) {
    cell.Value(value);
    EXPECT_EQ(value, cell.Value());
  }
}

TEST(ValuesOfCells, OfABlockAreAnArrayFromOne) {
  const CalcDocument document;
  document.Cell("Sheet1", 2, 2)->setValue(7);
  const auto block = document.Excel().Range("A1:B3").ValueBlock();
  EXPECT_EQ(Variant(7.0), block->At(1, 1));
  EXPECT_EQ(1, block->RowBase());
  EXPECT_EQ(3u, block->Rows());
  EXPECT_TRUE(block->At(0, 0).IsEmpty());
}

TEST(ValuesOfCells, WithAnErrorAreTheSpreadsheetsErrorValues) {
  const CalcDocument document;
  document.Cell("Sheet1", 1, 1)->setFormula("=1/0");
  EXPECT_EQ(Variant::CellError(kDivisionByZero), document.Excel().Range("A1").Value());
}

TEST(ValuesOfCells, WithAnErrorAreToldFromAZeroInABlock) {
  const CalcDocument document;
  document.Cell("Sheet1", 1, 1)->setValue(0);
  document.Cell("Sheet1", 2, 2)->setFormula("=NA()");
  const auto block = document.Excel().Range("A1:B2").ValueBlock();
  EXPECT_EQ(Variant(0.0), block->At(0, 0));
  EXPECT_EQ(Variant::CellError(kNotAvailable), block->At(1, 1));
}

TEST(ValuesOfCells, ThatAreDatesComeAsDates) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  cell.Value("2026-11-21");
  EXPECT_EQ(Variant::Date(46347), cell.Value());
  EXPECT_EQ(Variant(46347.0), cell.get()->Invoke("Value2", CallKind::Get, {}));
}

TEST(ValuesOfCells, AreWrittenByTheirPlainMemberToo) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  const Variant value(5);
  cell.get()->Invoke("Value2", CallKind::Put, {&value, 1});
  EXPECT_EQ(Variant(5.0), cell.Value());
}

TEST(ValuesOfCells, AreTypedTextsWhenWritten) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  cell.Value("12");
  EXPECT_EQ(Variant(12.0), cell.Value());
  cell.Value("=1+2");
  EXPECT_EQ(Variant(3.0), cell.Value());
}

TEST(ValuesOfCells, KeepATextBehindTheTextMark) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  cell.Value("'12");
  EXPECT_EQ(Variant("12"), cell.Value());
  EXPECT_EQ(Variant("12"), cell.FormulaLocal());
  cell.Value("''My Sheet'!A1");
  EXPECT_EQ(Variant("'My Sheet'!A1"), cell.Value());
}

TEST(ValuesOfCells, AreTypedTextsAgainAfterATextMark) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  cell.Value("'12");
  cell.Value("34");
  EXPECT_EQ(Variant(34.0), cell.Value());
}

TEST(ValuesOfCells, AreClearedByAnEmptyOne) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  for (const Variant& nothing : {Variant(), Variant::Null(), Variant("")}) {
    cell.Value("x");
    cell.Value(nothing);
    EXPECT_TRUE(cell.Value().IsEmpty());
  }
}

TEST(ValuesOfCells, OfABlockAreWrittenAtOnce) {
  const CalcDocument document;
  auto block = std::make_shared<VariantArray>(2, 2);
  block->At(0, 0) = "'007";
  block->At(1, 1) = 5;
  const auto range = document.Excel().Range("B2:C3");
  range.Value(block);
  const auto read = range.ValueBlock();
  EXPECT_EQ(Variant("007"), read->At(0, 0));
  EXPECT_EQ(Variant(5.0), read->At(1, 1));
}

TEST(ValuesOfCells, ThatAreDatesWhenWrittenAreNotLost) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  cell.Value(Variant::Date(46347.5));
  EXPECT_EQ(46347.5, document.Cell("Sheet1", 1, 1)->getValue());
}

TEST(ValuesOfCells, TakeAnErrorValueAndShowItsNameAsTheFormula) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  for (const auto& [code, name] : {std::pair(kNotAvailable, "#N/A"), {kDivisionByZero, "#DIV/0!"}}) {
    cell.Value(Variant::CellError(code));
    EXPECT_EQ(Variant::CellError(code), cell.Value());
    EXPECT_EQ(Variant(name), cell.FormulaLocal());
  }
}

TEST(ValuesOfCells, RefuseAnErrorValueThatIsNoneInsteadOfLosingIt) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  cell.Value("kept");
  EXPECT_EQ(errors::TypeMismatch, NumberOf([&] { cell.Value(Variant::CellError(1)); }));
  EXPECT_EQ(Variant("kept"), cell.Value());
}

TEST(ValuesOfCells, OfABlockAreAllKeptWhenOneIsRefused) {
  const CalcDocument document;
  const auto cells = document.Excel().Range("A1:B1");
  cells.Value("kept");
  const auto values = std::make_shared<VariantArray>(1, 2);
  values->At(0, 1) = Variant::CellError(1);
  EXPECT_EQ(errors::TypeMismatch, NumberOf([&] { cells.Value(values); }));
  EXPECT_EQ(Variant("kept"), document.Excel().Range("A1").Value());
}

TEST(ValuesOfCells, KeepTheFormatThatADateFindsWhenItIsOneOfDates) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  cell.get()->Invoke("NumberFormat", CallKind::Put, std::initializer_list<Variant>{"yyyy-mm-dd"});
  cell.Value(Variant::Date(39434));
  EXPECT_EQ(Variant("2007-12-18"), cell.get()->Invoke("Text", CallKind::Get, {}));
}

TEST(FormulasOfCells, ReadAsTheyWereWritten) {
  CalcDocument document;
  document.AddSheet("TWS_Quotes");
  document.AddSheet("My Sheet");
  const auto cell = document.Excel().Range("A1");
  for (const char* formula : {"=TWS_Quotes!$E$7", "='My Sheet'!$A$1+1", "=SUM(B1,C1)", "=Sam|tik!id1?bid"}) {
    cell.FormulaLocal(formula);
    EXPECT_EQ(Variant(formula), cell.FormulaLocal());
  }
}

TEST(FormulasOfCells, ReadAlikeByBothMembers) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("A1");
  const Variant link("=Sam|tik!id1?bid");
  cell.get()->Invoke("Formula", CallKind::Put, {&link, 1});
  EXPECT_EQ(link, cell.get()->Invoke("Formula", CallKind::Get, {}));
  EXPECT_EQ(link, cell.FormulaLocal());
}

TEST(FormulasOfCells, FollowTheCellTheyLinkTo) {
  CalcDocument document;
  document.AddSheet("TWS_Quotes");
  document.Cell("TWS_Quotes", 7, 5)->setValue(42);
  const auto cell = document.Excel().Range("A1");
  cell.FormulaLocal("=TWS_Quotes!$E$7");
  EXPECT_EQ(Variant(42.0), cell.Value());
}

TEST(FormulasOfCells, OfABlockAreAnArrayWithTextsAsTheyStand) {
  const CalcDocument document;
  document.Excel().Range("A1").Value("head");
  document.Excel().Range("B1").FormulaLocal("=1+2");
  const auto block = document.Excel().Range("A1:C1").FormulaLocalBlock();
  EXPECT_EQ(Variant("head"), block->At(0, 0));
  EXPECT_EQ(Variant("=1+2"), block->At(0, 1));
  EXPECT_EQ(Variant(""), block->At(0, 2));
}

}  // namespace
}  // namespace pellora::test
