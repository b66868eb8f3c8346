#include "tape/Area.h"

#include <gtest/gtest.h>

namespace pellora {
namespace {

TEST(ParseArea, ReadsCellsAndCornersInAnyOrderAndCase) {
  EXPECT_EQ(ParseArea("B3"), (Area{3, 2, 3, 2}));
  EXPECT_EQ(ParseArea("$A$5:$R$5"), (Area{5, 1, 5, 18}));
  EXPECT_EQ(ParseArea("d22:b3"), (Area{3, 2, 22, 4}));
  EXPECT_EQ(ParseArea("B22:D3"), (Area{3, 2, 22, 4}));
  EXPECT_EQ(ParseArea("XFD1048576"), (Area{1048576, 16384, 1048576, 16384}));
}

TEST(ParseArea, ReadsWholeColumnsAndRows) {
  EXPECT_EQ(ParseArea("$E:$E"), (Area{1, 5, 1048576, 5}));
  EXPECT_EQ(ParseArea("5:3"), (Area{3, 1, 5, 16384}));
}

TEST(ParseArea, LeavesEverythingElseToTheSpreadsheet) {
  for (const auto text :
       {"",      "$",   "A",     "5",         "A0",   "A$",   "$A$",      "A1:",   ":A1",       "A1:B2:C3",
        "A1,B2", "A:5", "A1:B",  "Sheet1!A1", "=A1",  "XFE1", "A1048577", "ABCD1", "A00000001", "TWS_Bid_Price",
        " A1",   "A1 ", "R1C1x", "A-1",       "A1.5", "Ä1"})
    EXPECT_EQ(ParseArea(text), std::nullopt) << text;
}

TEST(ParseAreas, ReadsPlainAreasJoinedByCommas) {
  EXPECT_EQ(ParseAreas("$A$1,$C$3:$D$4"), (std::vector<Area>{{1, 1, 1, 1}, {3, 3, 4, 4}}));
  EXPECT_EQ(ParseAreas("$A$1,name"), std::nullopt);
  EXPECT_EQ(ParseAreas(""), std::nullopt);
}

TEST(Intersection, IsTheCommonAreaOrNothing) {
  EXPECT_EQ(Intersection(*ParseArea("A1:C3"), *ParseArea("B2:D9")), ParseArea("B2:C3"));
  EXPECT_EQ(Intersection(*ParseArea("$A$7:$S$7"), *ParseArea("$E:$E")), ParseArea("E7"));
  EXPECT_EQ(Intersection(*ParseArea("A1:A5"), *ParseArea("B1:B5")), std::nullopt);
  EXPECT_EQ(Intersection(*ParseArea("A1:A5"), *ParseArea("A6")), std::nullopt);
}

TEST(AbsoluteAddress, IsWrittenAsTheSpreadsheetWritesIt) {
  for (const auto text : {"$B$3", "$B$3:$D$22", "$E:$E", "$AA:$ZZ", "$3:$5", "$XFD$1048576"})
    EXPECT_EQ(AbsoluteAddress(*ParseArea(text)), text);
  EXPECT_EQ(AbsoluteAddress(*ParseArea("A1:A1048576")), "$A:$A");
  EXPECT_EQ(AbsoluteAddress(*ParseArea("A2:XFD2")), "$2:$2");
  EXPECT_EQ(AbsoluteAddress(*ParseArea("A:XFD")), "$1:$1048576");
}

TEST(RelativeAddress, HasNoDollarSigns) {
  EXPECT_EQ(RelativeAddress(*ParseArea("$B$3:$D$22")), "B3:D22");
  EXPECT_EQ(RelativeAddress(*ParseArea("$Z$1:$AB$9")), "Z1:AB9");
}

}  // namespace
}  // namespace pellora
