#include "Desk.h"
#include "core/TextServices.h"

namespace pellora::test {
namespace {

class Addresses : public Desk {
 protected:
  void Start() {
    Workbook().Instrument(Stock("XYZ")).Instrument(Stock("ABC"));
    book.AddSheet("Sheet2");
    dialog->Load();
  }
  std::string Modified(std::string_view text) {
    dialog->txtAddress.Text(text);
    return dialog->modifyAddress();
  }
  std::size_t Entries() { return Handler().CallStackDepth(); }
};
class MyIntersect : public Addresses {};
class GivMyLink : public Addresses {};
class ModifyAddress : public Addresses {};
class ChechAddressRange : public Addresses {};
class CheckAddressIntersect : public Addresses {
 protected:
  void Recorded(std::string_view row, std::string_view name, std::string_view range) {
    if (!dialog->LinkAddresses()) dialog->LinkAddresses(std::make_shared<cLinkAddresseses>());
    const auto tape = dialog->LinkAddresses()->ItemADD(row)->ItemADD(name);
    tape->Name(name);
    tape->DataRange(range);
  }
};

TEST_F(Addresses, AFullAddressIsSplitIntoSheetAndArea) {
  const std::string table[][3] = {
      {"Sheet1!B3", "Sheet1", "B3"}, {"B3", "TWS_Quotes", "B3"}, {"'My Sheet'!A1", "'My Sheet'", "A1"}};
  for (const auto& [full, sheet, area] : table) {
    std::string gotSheet = "junk", gotArea = "junk";
    dialog->ReturnNameSheetAndAddress(gotSheet, gotArea, full);
    EXPECT_EQ(gotSheet, sheet);
    EXPECT_EQ(gotArea, area);
  }
}

TEST_F(MyIntersect, SheetNamesThatDifferOnlyInCaseAreTheSameSheet) {
  EXPECT_EQ(dialog->myIntersect("Sheet1", "A1:B5", "SHEET1", "B2:C9"), "$B$2:$B$5");
  EXPECT_EQ(dialog->myIntersect("Größe", "A1", "GRÖßE", "A1"), "$A$1");
}

TEST_F(MyIntersect, AreasOnDifferentSheetsNeverIntersect) {
  EXPECT_EQ(dialog->myIntersect("Sheet1", "A1", "Sheet2", "A1"), "");
}

TEST_F(MyIntersect, AreasThatTouchDoNotIntersectAndNothingIsReported) {
  EXPECT_EQ(dialog->myIntersect("S", "A1:A5", "S", "B1:B5"), "");
  EXPECT_TRUE(platform.user().ErrorTexts().empty());
}

TEST_F(MyIntersect, PlainAddressesAnswerExactlyWhatTheSpreadsheetAnswers) {
  const excel::Application excel(application);
  const char* const areas[] = {"A1",    "$B$2:$D$9", "C3:A1", "$E:$E",   "B:D",        "3:5",
                               "$7:$7", "XFD1",      "A:XFD", "A2:XFD2", "A1:A1048576"};
  for (const auto* one : areas)
    for (const auto* other : areas) {
      const auto common = excel.Intersect(excel.Range(one), excel.Range(other));
      EXPECT_EQ(dialog->myIntersect("S", one, "S", other), common ? common.Address() : "") << one << " " << other;
    }
}

TEST_F(MyIntersect, PlainAddressesAreNotAskedFor) {
  const auto calls = excel::CallCount();
  dialog->myIntersect("S", "A1:B5", "S", "$B:$B");
  EXPECT_EQ(excel::CallCount(), calls);
}

TEST_F(MyIntersect, OtherAddressesAreLeftToTheSpreadsheet) {
  Start();
  book.AddName("Corner", "Sheet1!$A$1:$B$2");
  EXPECT_EQ(dialog->myIntersect("S", "Corner", "S", "B2:C3"), "$B$2");
}

TEST_F(MyIntersect, AFailureIsSilentAndAnswersNothing) {
  Start();
  EXPECT_EQ(dialog->myIntersect("S", "no such name", "S", "A1"), "");
  dialog->Owner(nullptr);
  EXPECT_EQ(dialog->myIntersect("S", "no such name", "S", "A1"), "");
  EXPECT_TRUE(platform.user().ErrorTexts().empty());
}

TEST_F(MyIntersect, LeavesItsEntryOnTheCallStackByIntentionHoweverItEnds) {
  dialog->myIntersect("S", "A1", "S", "A1");
  dialog->myIntersect("S", "A1", "T", "A1");
  dialog->myIntersect("S", "bad", "S", "A1");
  EXPECT_EQ(Entries(), 3u);
  EXPECT_EQ(Handler().CallStackRuns(), 1u);
}

TEST_F(Addresses, ColumnAddressIsTheWholeColumnOfAName) {
  Start();
  EXPECT_EQ(dialog->ColumnAddress("TWS_Last_Price"), "$N:$N");
}

TEST_F(Addresses, ColumnAddressOfAnUnknownNameIsReported) {
  Start();
  platform.user().ExpectErrorDialog("btnAbort");
  EXPECT_EQ(dialog->ColumnAddress("Nothing"), "");
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"ColumnAddress"}));
}

TEST_F(GivMyLink, IsTheCellWhereTheCurrentRowCrossesTheChosenField) {
  Start();
  struct {
    OptionButton& option;
    std::string_view link;
  } const table[] = {{dialog->OptBidPrice, "$J$3"}, {dialog->OptAskPrice, "$L$3"}, {dialog->OptLastPrice, "$N$3"},
                     {dialog->OptHigh, "$P$3"},     {dialog->OptLow, "$Q$3"},      {dialog->OptVolume, "$R$3"},
                     {dialog->OptClose, "$S$3"}};
  dialog->VSFExcel.Row(2);
  for (const auto& [option, link] : table) {
    option.Value(true);
    std::string row = "junk";
    EXPECT_EQ(dialog->GivMyLink(row), link);
    EXPECT_EQ(row, "$A$3:$S$3");
  }
}

TEST_F(GivMyLink, WithNoFieldSelectedThereIsNoLink) {
  Start();
  dialog->OptLastPrice.Value(false);
  std::string row;
  EXPECT_EQ(dialog->GivMyLink(row), "");
  EXPECT_EQ(row, "$A$2:$S$2");
}

TEST_F(GivMyLink, ADisabledFieldDoesNotCount) {
  Start();
  dialog->OptLastPrice.Enabled(false);
  std::string row;
  EXPECT_EQ(dialog->GivMyLink(row), "");
}

TEST_F(Addresses, ATapeHasThreeColumnsOnlyWithTheSizeOfItsOwnPrice) {
  Start();
  EXPECT_EQ(dialog->ReturnColumnsCount(), 2);
  dialog->chkLastSize.Value(1);
  EXPECT_EQ(dialog->ReturnColumnsCount(), 3);
  dialog->chkLastSize.Enabled(false);
  EXPECT_EQ(dialog->ReturnColumnsCount(), 2);
  dialog->OptAskPrice.Value(true);
  EXPECT_EQ(dialog->ReturnColumnsCount(), 2);
  dialog->chkAskSize.Value(1);
  EXPECT_EQ(dialog->ReturnColumnsCount(), 3);
  for (auto* option : {&dialog->OptHigh, &dialog->OptLow, &dialog->OptVolume, &dialog->OptClose}) {
    option->Value(true);
    EXPECT_EQ(dialog->ReturnColumnsCount(), 2);
  }
}

TEST_F(ModifyAddress, AB3WithLastPriceAndItsSizeBecomesB3ToD22) {
  Start();
  dialog->chkLastSize.Value(1);
  EXPECT_EQ(Modified("B3"), "B3:D22");
  EXPECT_EQ(Modified("Sheet1!B3"), "Sheet1!B3:D22");
}

TEST_F(ModifyAddress, ThreeRowsOnSheet2WithCloseStayAsTheyAre) {
  Start();
  dialog->OptClose.Value(true);
  EXPECT_EQ(Modified("Sheet2!B3:C5"), "Sheet2!B3:C5");
}

TEST_F(ModifyAddress, TwoRowsBecomeTwenty) {
  Start();
  EXPECT_EQ(Modified("B3:B4"), "B3:C22");
}

TEST_F(ModifyAddress, AWiderAreaIsCutAndANarrowerOneWidened) {
  Start();
  EXPECT_EQ(Modified("Sheet2!$B$3:$H$12"), "Sheet2!B3:C12");
  EXPECT_EQ(Modified("Sheet2!B3:B12"), "Sheet2!B3:C12");
}

TEST_F(ModifyAddress, EmptyOrRejectedTextIsAnsweredWithNothingAndNoMessage) {
  Start();
  EXPECT_EQ(Modified(""), "");
  EXPECT_EQ(Modified("Sheet1!ZZZ"), "");
  EXPECT_EQ(Modified("Nowhere!A1"), "");
  EXPECT_TRUE(platform.user().Messages().empty());
}

TEST_F(ModifyAddress, TheSheetPartStaysAsWritten) {
  Start();
  book.AddSheet("My Sheet");
  EXPECT_EQ(Modified("'My Sheet'!B3"), "'My Sheet'!B3:C22");
}

TEST_F(ModifyAddress, AnAreaThatDoesNotFitOnTheSheetIsReported) {
  Start();
  platform.user().ExpectErrorDialog("btnAbort");
  EXPECT_EQ(Modified("Sheet1!XFD1"), "");
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"modifyAddress"}));
}

TEST_F(ChechAddressRange, ThreeRowsByTwoColumnsSufficeForTwoColumnsAndNotForThree) {
  Start();
  EXPECT_TRUE(dialog->ChechAddressRange("B3:C5"));
  dialog->chkLastSize.Value(1);
  EXPECT_FALSE(dialog->ChechAddressRange("B3:C5"));
  EXPECT_TRUE(dialog->ChechAddressRange("B3:D5"));
}

TEST_F(ChechAddressRange, TwoRowsAreNeverEnough) {
  Start();
  EXPECT_FALSE(dialog->ChechAddressRange("B3:H4"));
}

TEST_F(ChechAddressRange, WhatIsNoRangeIsReported) {
  Start();
  platform.user().ExpectErrorDialog("btnAbort");
  EXPECT_FALSE(dialog->ChechAddressRange("Nowhere!A1"));
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"ChechAddressRange"}));
}

TEST_F(CheckAddressIntersect, AFreeAreaIsAnsweredWithNothing) {
  EXPECT_EQ(dialog->CheckAddressIntersect("Sheet1!B3:C9"), "");
  Recorded("$A$2", "one", "Sheet1!D3:E9");
  Recorded("$A$2", "two", "Sheet2!B3:C9");
  EXPECT_EQ(dialog->CheckAddressIntersect("Sheet1!B3:C9"), "");
}

TEST_F(CheckAddressIntersect, TheOverlappedTapeIsNamed) {
  Recorded("$A$2", "XYZ", "Sheet1!$C$9:$D$20");
  EXPECT_EQ(dialog->CheckAddressIntersect("sheet1!B3:C9"), "'Name'=XYZ  'Data Range'=Sheet1!$C$9:$D$20");
}

TEST_F(CheckAddressIntersect, TheFirstInCollectionOrderIsReportedWhenSeveralOverlap) {
  Recorded("$A$2", "one", "Sheet1!Z1");
  Recorded("$A$3", "two", "Sheet1!B3");
  Recorded("$A$2", "three", "Sheet1!C3");
  EXPECT_EQ(dialog->CheckAddressIntersect("Sheet1!B3:C9"), "'Name'=three  'Data Range'=Sheet1!C3");
}

TEST_F(CheckAddressIntersect, AnAreaWithoutASheetIsOnTheQuoteSheet) {
  Recorded("$A$2", "one", "TWS_Quotes!B3");
  EXPECT_NE(dialog->CheckAddressIntersect("B3"), "");
}

TEST_F(CheckAddressIntersect, PlainAreasAreComparedWithoutTheSpreadsheet) {
  for (int i = 0; i < 100; ++i) Recorded("$A$2", "tape" + std::to_string(i), "Sheet1!Z" + std::to_string(i + 1));
  const auto calls = excel::CallCount();
  dialog->CheckAddressIntersect("Sheet1!B3:C9");
  EXPECT_EQ(excel::CallCount(), calls);
}

TEST_F(Addresses, EveryBadSymbolBecomesAnUnderscore) {
  EXPECT_EQ(OpenRibbon::BadSymbols.size(), 29u);
  EXPECT_EQ(dialog->remove_bad_symbols(std::string(OpenRibbon::BadSymbols), OpenRibbon::BadSymbols),
            std::string(29, '_'));
  EXPECT_EQ(dialog->remove_bad_symbols("a b=c/d", OpenRibbon::BadSymbols), "a b_c_d");
  EXPECT_EQ(dialog->remove_bad_symbols(1.5, "."), "1_5");
}

TEST_F(Addresses, ATapeOfTheBidPriceWithItsSizeHasThreeColumns) {
  Start();
  dialog->OptBidPrice.Value(true);
  EXPECT_EQ(dialog->ReturnColumnsCount(), 2);
  dialog->chkBidSize.Value(1);
  EXPECT_EQ(dialog->ReturnColumnsCount(), 3);
}

TEST_F(Addresses, TheBadSymbolsStandInTheirOrderThreeOfThemTwiceByIntention) {
  std::string symbols;
  for (const int code : {0x3D, 0x7E, 0x40, 0x23, 0x24, 0x25, 0x5E, 0x26, 0x2A, 0x28, 0x29, 0x2D, 0x2B, 0x5C, 0x2F,
                         0x2E, 0x2C, 0x27, 0x3B, 0x60, 0x22, 0x21, 0x3A, 0x5C, 0x2F, 0x3F, 0x2A, 0x5B, 0x5D})
    symbols += static_cast<char>(code);
  EXPECT_EQ(OpenRibbon::BadSymbols, symbols);
}

TEST_F(Addresses, RetryingTheColumnOfANameDoesNotAskForTheNameAgain) {
  Start();
  Watch();
  witness.Fail("Range(TWS_Last_Price).Column()", 1);
  platform.user().ExpectErrorDialog("btnRetry");
  EXPECT_EQ(dialog->ColumnAddress("TWS_Last_Price"), "$N:$N");
  EXPECT_EQ(witness.Calls("Range(TWS_Last_Price)").size(), 1u);
}

/// Text services that fail at whatever compares texts.
class FailingTexts : public TextServices {
 public:
  std::string Upper(std::string_view) const override { throw Error(errors::OutOfMemory); }
  std::optional<double> ParseNumber(std::string_view text) const override { return m_good.ParseNumber(text); }
  std::string NumberText(double value) const override { return m_good.NumberText(value); }
  std::optional<double> ParseDate(std::string_view text) const override { return m_good.ParseDate(text); }
  std::string DateText(double days) const override { return m_good.DateText(days); }
  std::string ShortDate(double days) const override { return m_good.ShortDate(days); }
  std::string LongTime(double days) const override { return m_good.LongTime(days); }
  std::string ToSystemCodePage(std::string_view text) const override { return m_good.ToSystemCodePage(text); }
  std::string FromSystemCodePage(std::string_view bytes) const override { return m_good.FromSystemCodePage(bytes); }

 private:
  const TextServices& m_good = PortableTextServices();
};

TEST_F(MyIntersect, AFailureWhileTheSheetsAreComparedIsSilentToo) {
  const auto& before = CurrentTextServices();
  const FailingTexts failing;
  InstallTextServices(&failing);
  std::string common = "junk";
  EXPECT_NO_THROW(common = dialog->myIntersect("Größe", "A1", "GRÖSSE", "A1"));
  InstallTextServices(&before);
  EXPECT_EQ(common, "");
  EXPECT_TRUE(platform.user().ErrorTexts().empty());
  EXPECT_EQ(Entries(), 1u);
}

TEST_F(GivMyLink, LeavesOneEntryOnTheCallStackByIntentionBecauseItsEndTakesOffTheIntersections) {
  Start();
  std::string row;
  const auto before = Entries();
  dialog->GivMyLink(row);
  EXPECT_EQ(Entries(), before + 1);
  dialog->OptLastPrice.Value(false);
  dialog->GivMyLink(row);
  EXPECT_EQ(Entries(), before + 1) << "without a field there is no intersection";
}

TEST_F(CheckAddressIntersect, LeavesAnEntryForEachComparisonOnTheCallStackByIntention) {
  for (int i = 0; i < 3; ++i) Recorded("$A$2", "tape" + std::to_string(i), "Sheet1!Z" + std::to_string(i + 1));
  dialog->CheckAddressIntersect("Sheet1!B3:C9");
  EXPECT_EQ(Entries(), 3u);
  dialog->CheckAddressIntersect("Sheet1!Z1");
  EXPECT_EQ(Entries(), 4u) << "it stops at the first that overlaps";
}

TEST_F(CheckAddressIntersect, ASheetIsTheSameWithAndWithoutItsApostrophes) {
  Recorded("$A$2", "one", "'Sheet1'!B3:D22");
  EXPECT_NE(dialog->CheckAddressIntersect("Sheet1!B3:D22"), "");
  Recorded("$A$2", "one", "Sheet1!B3:D22");
  EXPECT_EQ(dialog->CheckAddressIntersect("'Sheet1'!B3:D22"), "'Name'=one  'Data Range'=Sheet1!B3:D22");
  EXPECT_EQ(dialog->CheckAddressIntersect("'Sheet2'!B3:D22"), "");
}

}  // namespace
}  // namespace pellora::test
