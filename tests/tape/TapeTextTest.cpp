#include <gtest/gtest.h>

#include "excel/Application.h"
#include "tape/RowData.h"
#include "tape/SheetAddress.h"
#include "tape/TypedText.h"
#include "tests/hosts/OnHost.h"

namespace pellora {
namespace {

TEST(RowData, IsTheFlagAndTheAddressOnTwoLines) {
  EXPECT_EQ(FormatRowData({true, "$A$5:$R$5"}), "1\r\n$A$5:$R$5");
  EXPECT_EQ(FormatRowData({false, "$A$5:$R$5"}), "0\r\n$A$5:$R$5");
}

TEST(RowData, ReadsBackWhatItWrote) {
  for (const bool complete : {true, false}) {
    const RowData data{complete, "$A$2:$S$2"};
    EXPECT_EQ(ParseRowData(FormatRowData(data)), data);
  }
}

TEST(RowData, NothingIsReadFromAnEmptyText) { EXPECT_EQ(ParseRowData(""), std::nullopt); }

TEST(SplitSheetAddress, AnAddressWithASheetIsSplitAtItsFirstMark) {
  EXPECT_EQ(SplitSheetAddress("Sheet1!B3"), (SheetAddress{"Sheet1", "B3"}));
  EXPECT_EQ(SplitSheetAddress("A!B!C"), (SheetAddress{"A", "B!C"}));
  EXPECT_EQ(SplitSheetAddress("!B3"), (SheetAddress{"", "B3"}));
}

TEST(SplitSheetAddress, AnAddressAloneIsOnTheQuoteSheet) {
  EXPECT_EQ(SplitSheetAddress("B3"), (SheetAddress{"TWS_Quotes", "B3"}));
}

TEST(SplitSheetAddress, AQuotedSheetKeepsItsApostrophes) {
  EXPECT_EQ(SplitSheetAddress("'My Sheet'!A1"), (SheetAddress{"'My Sheet'", "A1"}));
}

TEST(UnquotedSheet, IsTheNameOfTheSheetItself) {
  EXPECT_EQ(UnquotedSheet("'My Sheet'"), "My Sheet");
  EXPECT_EQ(UnquotedSheet("'Joe''s'"), "Joe's");
  EXPECT_EQ(UnquotedSheet("Sheet1"), "Sheet1");
  EXPECT_EQ(UnquotedSheet("'"), "'");
}

TEST(AsTypedText, OrdinaryHeadersAndLocationsAreWrittenAsTheyAre) {
  for (const auto text : {"", "XYZ", "XYZ(last price)", "Local Time", "Sheet1!B3:D22", " "})
    EXPECT_EQ(AsTypedText(text), text);
}

TEST(AsTypedText, WhatWouldBeReadAsSomethingElseIsMarkedAsText) {
  for (const std::string text : {"=A1", "+1", "-", "@x", "#N/A", "'quoted'!A1", "5", "1/2", "MAR1", "1E5", "50%", "(5)",
                                 "true", "FALSE ", "WAHR", "ИСТИНА", "\xEF\xBC\x95"})
    EXPECT_EQ(AsTypedText(text), "'" + text);
}

class TypedTextInACell : public test::OnHost {};

TEST_F(TypedTextInACell, ReadsBackAsItStood) {
  const auto cell = excel::Application(book.application()).Range("B2");
  for (const std::string text : {"'My Sheet'!A1:B20", "=SUM", "3M", "1E5", "2007-12-18", "TRUE", "#N/A", "007",
                                 "XYZ(last price)", "Sheet1!B3:D22", "''"}) {
    cell.Value(AsTypedText(text));
    EXPECT_EQ(book.Value("Sheet1", "B2"), Variant(text));
  }
}

TEST(ReplaceEach, EachCharacterIsReplacedEverywhere) {
  EXPECT_EQ(ReplaceEach("a=b~c=d", "=~", "_"), "a_b_c_d");
  EXPECT_EQ(ReplaceEach("aéb", "é", "_"), "a_b");
  EXPECT_EQ(ReplaceEach("abc", "", "_"), "abc");
}

}  // namespace
}  // namespace pellora
