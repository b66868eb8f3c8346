#include "Desk.h"

namespace pellora::workbook {
namespace {

class Finding : public Desk {
 protected:
  static constexpr std::int32_t kByRows = 1, kByColumns = 2, kNext = 1, kPrevious = 2;

  DispatchPtr Find(const Variant& what, std::int32_t order = kByRows, std::int32_t direction = kNext,
                   std::string_view range = "A1:Z100") {
    const Variant missing = Variant::Missing();
    return Object(Range(range), "Find", {what, missing, missing, missing, order, direction});
  }
  DispatchPtr LastCell() { return Object(Object(app, "Cells"), "SpecialCells", {11}); }
};

TEST_F(Finding, TheLastRowAndColumnThatHoldAnything) {
  document.Set("Sheet1", "H2", 1.0);
  document.Set("Sheet1", "A9", "x");
  EXPECT_EQ(Address(Find("*", kByRows, kPrevious)), "$A$9");
  EXPECT_EQ(Address(Find("*", kByColumns, kPrevious)), "$H$2");
  EXPECT_EQ(Address(Find("*", kByRows, kNext)), "$H$2");
  EXPECT_EQ(Address(Find("*", kByColumns, kNext)), "$A$9");
}

TEST_F(Finding, TheFirstCellIsSearchedLast) {
  document.Set("Sheet1", "A1", "x");
  EXPECT_EQ(Address(Find("*", kByRows, kPrevious)), "$A$1");
  document.Set("Sheet1", "B1", "x");
  EXPECT_EQ(Address(Find("x")), "$B$1");
}

TEST_F(Finding, NothingWhenThereIsNone) {
  EXPECT_EQ(Find("*", kByRows, kPrevious), nullptr);
  document.Set("Sheet1", "A1", "abc");
  EXPECT_EQ(Find("abd"), nullptr);
}

TEST_F(Finding, AFormulaCountsAsContent) {
  document.Set("Sheet1", "C3", "=A1");
  EXPECT_EQ(Address(Find("*", kByRows, kPrevious)), "$C$3");
}

TEST_F(Finding, PatternsAndLetterCase) {
  document.Set("Sheet1", "B2", "Газпил 3*4");
  for (const char* what : {"газ", "ГАЗПИЛ*4", "3~*4", "Г?зпил"}) EXPECT_NE(Find(what), nullptr) << what;
  for (const char* what : {"газ?4", "~?", "3~*5"}) EXPECT_EQ(Find(what), nullptr) << what;
}

TEST_F(Finding, StartsAfterTheGivenCell) {
  document.Set("Sheet1", "B2", "x");
  document.Set("Sheet1", "B5", "x");
  EXPECT_EQ(Address(Object(Range("A1:C9"), "Find", {"x", Range("B2")})), "$B$5");
  EXPECT_EQ(Address(Object(Range("A1:C9"), "Find", {"x", Range("B5")})), "$B$2");
}

TEST_F(Finding, TheLastCellOfAnEmptySheetIsTheFirst) { EXPECT_EQ(Address(LastCell()), "$A$1"); }

TEST_F(Finding, TheLastCellTakesTheLastRowAndTheLastColumn) {
  document.Set("Sheet1", "H2", 1.0);
  document.Set("Sheet1", "A9", "x");
  EXPECT_EQ(Address(LastCell()), "$H$9");
}

TEST_F(Finding, ALookAloneMovesTheLastCell) {
  document.Set("Sheet1", "A1", 1.0);
  Put(Object(Range("C12"), "Interior"), "ColorIndex", 15);
  EXPECT_EQ(Address(LastCell()), "$C$12");
  EXPECT_EQ(Address(Object(Object(app, "ActiveSheet"), "UsedRange")), "$A$1:$C$12");
}

TEST_F(Finding, OtherSpecialCellsAreRefused) {
  EXPECT_EQ(NumberOf([&] { Get(Object(app, "Cells"), "SpecialCells", {4}); }), 1004);
}

}  // namespace
}  // namespace pellora::workbook
