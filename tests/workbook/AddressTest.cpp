#include "Desk.h"
#include "core/Text.h"

namespace pellora::workbook {
namespace {

class Addresses : public Desk {
 protected:
  Addresses() {
    document.AddSheet("My Sheet");
    document.AddSheet("It's");
    document.AddSheet("Лист");
    document.AddSheet("TWS_Quotes");
    document.AddName("TWS_Symbol", "=TWS_Quotes!$A:$A");
    document.AddName("Ränge", "'My Sheet'!$B$3:$D$22");
    document.AddName("Ring", "=Ring");
    document.AddName("Gone", "=#REF!");
  }
};

TEST_F(Addresses, PlainNotationsReadBackAbsolute) {
  const std::pair<const char*, const char*> pairs[] = {
      {"b3", "$B$3"},           {"$B$3:D5", "$B$3:$D$5"}, {"D5:B3", "$B$3:$D$5"}, {"E:E", "$E:$E"},
      {"C:A", "$A:$C"},         {"5:7", "$5:$7"},         {"A1,C3", "$A$1,$C$3"}, {"XFD1048576", "$XFD$1048576"},
      {"A1:A1", "$A$1"},        {" B3 ", "$B$3"},         {"$E5:E$5", "$E$5"},    {"B2:B4, 3:3", "$B$2:$B$4,$3:$3"},
      {"A:XFD", "$1:$1048576"},
  };
  for (const auto& [text, address] : pairs) EXPECT_EQ(Address(text), address) << text;
}

TEST_F(Addresses, SheetNamesLeadToTheirSheet) {
  const std::pair<const char*, const char*> pairs[] = {{"'My Sheet'!A1", "My Sheet"},
                                                       {"'it''S'!B2:C3", "It's"},
                                                       {"лист!A1", "Лист"},
                                                       {"TWS_Quotes!$E:$E", "TWS_Quotes"},
                                                       {"'sheet1'!A1", "Sheet1"}};
  for (const auto& [text, sheet] : pairs)
    EXPECT_EQ(Get(Object(Range(text), "Worksheet"), "Name"), Variant(sheet)) << text;
}

TEST_F(Addresses, UnqualifiedOnesAreOnTheActiveSheet) {
  Get(Sheet("My Sheet"), "Select");
  EXPECT_EQ(Get(Object(Range("B3"), "Parent"), "Name"), Variant("My Sheet"));
}

TEST_F(Addresses, WorkbookNamesResolveInAnyLetterCase) {
  EXPECT_EQ(Address("tws_SYMBOL"), "$A:$A");
  EXPECT_EQ(Address("RÄNGE"), "$B$3:$D$22");
}

TEST_F(Addresses, EverythingElseIsRefused) {
  for (const char* text : {"",
                           "ZZZ",
                           "A0",
                           "A1048577",
                           "XFE1",
                           "A1:",
                           ":A1",
                           "A1:B",
                           "nosuch!A1",
                           "My Sheet!A1",
                           "'My Sheet'A1",
                           "'My Sheet!A1",
                           "'",
                           "'My Sheet'!",
                           "A1,,B2",
                           "Ring",
                           "Gone",
                           "1",
                           "A1B2",
                           "$",
                           "A$",
                           "-1",
                           "A1;B2",
                           "Sheet1!A1,TWS_Quotes!A1",
                           "99999999999999999999:1",
                           "!A1"})
    EXPECT_EQ(NumberOf([&] { Range(text); }), 1004) << text;
}

TEST_F(Addresses, NamesThatMultiplyAreRefusedAtOnce) {
  for (int i = 1; i < 16; ++i) {
    const std::string next = "Many_" + std::to_string(i + 1);
    document.AddName("Many_" + std::to_string(i), Replace("=N,N,N,N,N,N,N,N", "N", next));
  }
  document.AddName("Many_16", "=Sheet1!$A$1");
  EXPECT_EQ(NumberOf([&] { Range("Many_1"); }), 1004);
}

TEST_F(Addresses, ASheetRefusesWhatLiesOnAnother) {
  EXPECT_EQ(NumberOf([&] { Object(Sheet("Sheet1"), "Range", {"TWS_Quotes!A1"}); }), 1004);
  EXPECT_EQ(NumberOf([&] { Object(Sheet("Sheet1"), "Range", {"TWS_Symbol"}); }), 1004);
  EXPECT_EQ(Address(Object(Sheet("TWS_Quotes"), "Range", {"TWS_Symbol"})), "$A:$A");
}

TEST_F(Addresses, TwoCornersMakeAnArea) {
  EXPECT_EQ(Address(Object(app, "Range", {Range("D5"), Range("B3")})), "$B$3:$D$5");
  EXPECT_EQ(Address(Object(app, "Range", {"A1", "C3"})), "$A$1:$C$3");
}

TEST_F(Addresses, RelativeFormsLeaveTheDollarsOut) {
  EXPECT_EQ(Get(Range("B3:D22"), "Address", {false, false}), Variant("B3:D22"));
  EXPECT_EQ(Get(Range("B3"), "Address", {true, false}), Variant("B$3"));
  EXPECT_EQ(Get(Range("B3"), "Address", {false, true}), Variant("$B3"));
  EXPECT_EQ(Get(Range("E:E"), "Address", {false, false}), Variant("E:E"));
  EXPECT_EQ(Get(Range("5:6"), "Address", {Variant::Missing(), false}), Variant("$5:$6"));
}

TEST_F(Addresses, CellsMayLieOutsideTheirRange) {
  EXPECT_EQ(Address(Object(Range("B3:D22"), "Cells", {0, 0})), "$A$2");
  EXPECT_EQ(Address(Object(Range("TWS_Symbol"), "Cells", {2, 9})), "$I$2");
  EXPECT_EQ(NumberOf([&] { Object(Range("B3"), "Cells", {-2, 1}); }), 1004);
  EXPECT_EQ(NumberOf([&] { Object(Range("B3"), "Cells", {2147483647, 2147483647}); }), 1004);
}

TEST_F(Addresses, OneIndexCountsAlongTheRows) { EXPECT_EQ(Address(Object(Range("B3:D22"), "Cells", {4})), "$B$4"); }

TEST_F(Addresses, ResizeAndOffsetMoveAndMeasure) {
  EXPECT_EQ(Address(Object(Range("B3"), "Resize", {20, 3})), "$B$3:$D$22");
  EXPECT_EQ(Address(Object(Range("B3:C9"), "Resize", {Variant::Missing(), 5})), "$B$3:$F$9");
  EXPECT_EQ(Address(Object(Range("B3:C4"), "Offset", {-2, 1})), "$C$1:$D$2");
  EXPECT_EQ(NumberOf([&] { Object(Range("B3"), "Resize", {0, 3}); }), 1004);
  EXPECT_EQ(NumberOf([&] { Object(Range("XFD1"), "Resize", {1, 2}); }), 1004);
}

TEST_F(Addresses, LinesOfARangeAreCountedAsLines) {
  EXPECT_EQ(Get(Object(Range("B3:D22"), "Rows"), "Count"), Variant(20));
  EXPECT_EQ(Get(Object(Range("B3:D22"), "Columns"), "Count"), Variant(3));
  EXPECT_EQ(Get(Range("B3:D22"), "Count"), Variant(60));
  EXPECT_EQ(Address(Object(Range("B3:D22"), "Columns", {2})), "$C$3:$C$22");
  EXPECT_EQ(Address(Object(app, "Columns", {5})), "$E:$E");
  EXPECT_EQ(Address(Object(app, "Columns", {"A:D"})), "$A:$D");
  EXPECT_EQ(Address(Object(Range("A1,D4:E5"), "EntireColumn")), "$A:$A,$D:$E");
  EXPECT_EQ(Address(Object(Range("D4:E5"), "EntireRow")), "$4:$5");
}

TEST_F(Addresses, AWholeColumnHasAllItsRowsAndMakesNoCell) {
  EXPECT_EQ(Get(Range("A:A"), "Count"), Variant(1048576));
  EXPECT_TRUE(document.sheets[0]->cells.empty());
}

TEST_F(Addresses, TheCellsOfASheetAreTooManyToCount) {
  EXPECT_EQ(NumberOf([&] { Get(Object(app, "Cells"), "Count"); }), 6);
}

TEST_F(Addresses, IntersectionIsWhatIsCommon) {
  EXPECT_EQ(Address(Object(app, "Intersect", {Range("$A$7:$R$7"), Range("$E:$E")})), "$E$7");
  EXPECT_EQ(Address(Object(app, "Intersect", {Range("A1:C3"), Range("B2:D4")})), "$B$2:$C$3");
}

TEST_F(Addresses, TouchingAreasHaveNothingInCommon) {
  EXPECT_EQ(Object(app, "Intersect", {Range("A1:A5"), Range("B1:B5")}), nullptr);
}

TEST_F(Addresses, AreasOfDifferentSheetsDoNotIntersect) {
  EXPECT_EQ(NumberOf([&] { Get(app, "Intersect", {Range("A1"), Range("TWS_Quotes!A1")}); }), 1004);
  EXPECT_EQ(NumberOf([&] { Get(app, "Intersect", {Range("A1"), "A1"}); }), 13);
}

}  // namespace
}  // namespace pellora::workbook
