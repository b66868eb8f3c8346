#include "Desk.h"

namespace pellora::workbook {
namespace {

class Look : public Desk {
 protected:
  DispatchPtr Border(std::string_view range, int index) { return Object(Range(range), "Borders", {index}); }
  Variant Style(std::string_view range, int index) { return Get(Border(range, index), "LineStyle"); }
  void Draw(std::string_view range, int index) { Put(Border(range, index), "LineStyle", 5); }
  const BorderLine& Line(const char* address, int index) {
    static CellFormat format;
    format = document.Format("Sheet1", address);
    return format.borders[index - 5];
  }
};

TEST_F(Look, OuterEdgesAreDrawnOnTheOuterCells) {
  for (const int index : {7, 8, 9, 10}) Draw("B3:D5", index);
  EXPECT_EQ(Line("B3", 7).style, 5);
  EXPECT_EQ(Line("D4", 10).style, 5);
  EXPECT_EQ(Line("C3", 8).style, 5);
  EXPECT_EQ(Line("C5", 9).style, 5);
  for (const int index : {7, 8, 9, 10}) EXPECT_EQ(Line("C4", index).style, -4142) << index;
}

TEST_F(Look, InsideLinesAreDrawnBetweenTheCells) {
  Draw("B3:D5", 11);
  EXPECT_EQ(Style("B3:D5", 11), Variant(5));
  EXPECT_EQ(Style("B3:D5", 10), Variant(-4142));
  EXPECT_EQ(Style("B3", 10), Variant(5));
  EXPECT_EQ(Style("C4", 7), Variant(5));
}

TEST_F(Look, AnEdgeReadsTheSameFromBothSides) {
  Draw("B3", 10);
  EXPECT_EQ(Style("C3", 7), Variant(5));
  Put(Border("C3", 7), "LineStyle", -4142);
  EXPECT_EQ(Style("B3", 10), Variant(-4142));
}

TEST_F(Look, RemovingAllBordersLeavesNone) {
  for (int index = 5; index <= 12; ++index) Draw("B3:D5", index);
  for (int index = 5; index <= 12; ++index) Put(Border("B3:D5", index), "LineStyle", -4142);
  for (int index = 5; index <= 12; ++index) EXPECT_EQ(Style("B3:D5", index), Variant(-4142)) << index;
}

TEST_F(Look, BordersOfAWholeColumnAreRemovedWithoutMakingCells) {
  Draw("B3", 7);
  Put(Border("B:B", 7), "LineStyle", -4142);
  EXPECT_EQ(Style("B3", 7), Variant(-4142));
  EXPECT_EQ(document.sheets[0]->cells.size(), 1u);
}

TEST_F(Look, WeightAndColourReadBack) {
  Draw("B3:D5", 8);
  Put(Border("B3:D5", 8), "Weight", 2);
  Put(Border("B3:D5", 8), "ColorIndex", 16);
  EXPECT_EQ(Get(Border("B3:D5", 8), "Weight"), Variant(2));
  EXPECT_EQ(Get(Border("B3:D5", 8), "ColorIndex"), Variant(16));
  EXPECT_EQ(Style("B3:D5", 8), Variant(5));
}

TEST_F(Look, MixedLinesReadNull) {
  Draw("B3", 8);
  EXPECT_TRUE(Style("B3:C3", 8).Is(Variant::Type::Null));
}

TEST_F(Look, UnknownBordersAndStylesAreRefused) {
  EXPECT_EQ(NumberOf([&] { Border("B3", 4); }), 1004);
  EXPECT_EQ(NumberOf([&] { Border("B3", 13); }), 1004);
  EXPECT_EQ(NumberOf([&] { Put(Border("B3", 7), "LineStyle", 3); }), 1004);
  EXPECT_EQ(NumberOf([&] { Put(Border("B3", 7), "ColorIndex", 57); }), 1004);
  EXPECT_EQ(NumberOf([&] { Put(Border("B3", 7), "Weight", 3); }), 1004);
}

TEST_F(Look, TheBackgroundReadsBackAndMixedIsNull) {
  Put(Object(Range("A2:D2"), "Interior"), "ColorIndex", 15);
  EXPECT_EQ(Get(Object(Range("A2:D2"), "Interior"), "ColorIndex"), Variant(15));
  EXPECT_TRUE(Get(Object(Range("A1:D2"), "Interior"), "ColorIndex").Is(Variant::Type::Null));
  EXPECT_EQ(Get(Object(Range("A1"), "Interior"), "ColorIndex"), Variant(-4142));
  EXPECT_EQ(NumberOf([&] { Put(Object(Range("A1"), "Interior"), "ColorIndex", 57); }), 1004);
}

TEST_F(Look, MixedWidthsReadNull) {
  EXPECT_EQ(Get(Range("A1"), "ColumnWidth"), Variant(8.43));
  Put(Range("B3:C5"), "ColumnWidth", 10);
  EXPECT_EQ(document.ColumnWidth("Sheet1", "C"), 10);
  EXPECT_EQ(Get(Range("B1:C1"), "ColumnWidth"), Variant(10.0));
  EXPECT_TRUE(Get(Range("A1:B1"), "ColumnWidth").Is(Variant::Type::Null));
  EXPECT_EQ(NumberOf([&] { Put(Range("A1"), "ColumnWidth", 256); }), 1004);
}

TEST_F(Look, FittingWidensAColumnToItsLongestText) {
  document.Set("Sheet1", "A1", "Tape header for Ticker");
  document.Set("Sheet1", "B1", "Лента");
  Get(Object(Range("A:D"), "EntireColumn"), "AutoFit");
  EXPECT_GE(document.ColumnWidth("Sheet1", "A"), 22);
  EXPECT_LT(document.ColumnWidth("Sheet1", "B"), 7);
  EXPECT_EQ(document.ColumnWidth("Sheet1", "C"), 8.43);
}

TEST_F(Look, FittingPlainCellsIsRefused) {
  EXPECT_EQ(NumberOf([&] { Get(Range("A1:B2"), "AutoFit"); }), 1004);
}

}  // namespace
}  // namespace pellora::workbook
