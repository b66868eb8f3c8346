#include "Desk.h"

namespace pellora::test {
namespace {

using headless::UserAtForm;

class CheckField : public Desk {
 protected:
  void Start() {
    Workbook().Instrument(Stock("XYZ")).Tape("Old", "=TWS_Quotes!$N$2", "", "Sheet1!$F$3:$G$9");
    dialog->Load();
  }
  bool Check(std::string_view location) {
    dialog->txtAddress.Text(location);
    return dialog->CheckField();
  }
  void Refused(std::string_view location, std::string_view message) {
    platform.user().ExpectMessage(message);
    EXPECT_FALSE(Check(location));
    EXPECT_EQ(dialog->ActiveControl(), &dialog->txtAddress);
    EXPECT_EQ(dialog->txtAddress.Text(), location);
    EXPECT_EQ(Value("Ticker_tape_settings", "A3"), Variant());
  }
};

TEST_F(CheckField, WithAllBoxesEmptyOnlyTheFirstIsNamed) {
  Start();
  dialog->chkLastSize.Value(1);
  dialog->txtName.Text("");
  dialog->txtNameSize.Text("");
  platform.user().ExpectMessage("Please fill in the 'Tape header for last price' field ");
  EXPECT_FALSE(Check(""));
  EXPECT_EQ(dialog->ActiveControl(), &dialog->txtName);
}

TEST_F(CheckField, AnEmptySizeHeaderIsNamedByItsTip) {
  Start();
  dialog->OptAskPrice.Value(true);
  dialog->chkAskSize.Value(1);
  dialog->txtNameSize.Text("");
  platform.user().ExpectMessage("Please fill in the 'Tape header for ask size' field ");
  EXPECT_FALSE(Check(""));
  EXPECT_EQ(dialog->ActiveControl(), &dialog->txtNameSize);
}

TEST_F(CheckField, AnEmptySizeHeaderThatIsDisabledIsNotAskedFor) {
  Start();
  dialog->OptClose.Value(true);
  ASSERT_EQ(dialog->txtNameSize.Text(), "");
  EXPECT_TRUE(Check("Sheet1!B3:C9"));
}

TEST_F(CheckField, AnEmptyLocationIsNamed) {
  Start();
  Refused("", "Please fill in the 'Tape location' field ");
}

TEST_F(CheckField, ALocationWithoutASheetIsRefused) {
  Start();
  Refused("B5", "You must select Sheet name for the Range");
}

TEST_F(CheckField, ALocationThatIsNoRangeIsRefused) {
  Start();
  Refused("Sheet1!ZZZ", "Range Address Error");
}

TEST_F(CheckField, ALocationOnASheetThatIsNotThereIsRefused) {
  Start();
  Refused("Nowhere!A1:B9", "Range Address Error");
}

TEST_F(CheckField, ALocationWithABlankInTheWayOfItsSheetIsRefused) {
  Start();
  for (const auto* location : {" Sheet1!B3:C9", "Sheet1 !B3:C9"}) Refused(location, "Range Address Error");
}

TEST_F(CheckField, TooSmallALocationIsRefusedWithTheSizeItNeeds) {
  Start();
  Refused("Sheet1!A1:B1", "Error: 'Tape location'  = 'Sheet1!A1:B1'. The range must be row>=3 and Column>=2");
}

TEST_F(CheckField, EveryTwoOfTheMessageIsReplacedThoseOfTheLocationTooByIntention) {
  Start();
  dialog->chkLastSize.Value(1);
  Refused("Sheet1!$A$2", "Error: 'Tape location'  = 'Sheet1!$A$3'. The range must be row>=3 and Column>=3");
}

TEST_F(CheckField, AnOverlapNamesTheTapeThatIsHitAndWritesNothing) {
  Start();
  Refused("Sheet1!G8:H20",
          "The ranges of 'Tape location' and ''Name'=Old  'Data Range'=Sheet1!$F$3:$G$9' intersect with each other.");
  EXPECT_EQ(Value("Sheet1", "G8"), Variant());
}

TEST_F(CheckField, AHeaderOfBlanksPasses) {
  Start();
  dialog->txtName.Text("  ");
  EXPECT_TRUE(Check("Sheet1!B3:C9"));
}

TEST_F(CheckField, ASuccessfulInsertEmptiesTheLocationSoInsertingAgainAtOnceAsksForIt) {
  Start();
  EXPECT_TRUE(Check("Sheet1!B3:C9"));
  EXPECT_EQ(dialog->txtAddress.Text(), "");
  platform.user().ExpectMessage("Please fill in the 'Tape location' field ");
  EXPECT_FALSE(dialog->CheckField());
}

TEST_F(CheckField, AnInsertedTapeIsInTheWayOfTheNextOne) {
  Start();
  EXPECT_TRUE(Check("Sheet1!B3:C9"));
  platform.user().ExpectMessage(
      "The ranges of 'Tape location' and ''Name'=XYZ  'Data Range'=Sheet1!B3:C9' intersect with each other.");
  EXPECT_FALSE(Check("Sheet1!C9:D20"));
}

TEST_F(CheckField, MessagesHaveTheStopIconOneButtonAndTheProductsTitle) {
  Start();
  platform.user().ExpectMessage("Please fill in the 'Tape location' field ");
  Check("");
  const auto& message = platform.user().Messages().front();
  EXPECT_EQ(message.title, "Vantix");
  EXPECT_EQ(message.buttons, MessageButtons::Ok);
  EXPECT_TRUE(message.critical);
}

TEST_F(CheckField, AFailureInItsOwnBodyIsReportedUnderItsNameAndInsertsNothing) {
  Start();
  dialog->txtName.Text("");
  dialog->txtName.Enabled(false);
  platform.user().ExpectMessage("Please fill in the 'Tape header for last price' field ");
  platform.user().ExpectErrorDialog("btnAbort");
  EXPECT_FALSE(Check("Sheet1!B3:C9"));
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"CheckField"}));
}

TEST_F(CheckField, ASpreadsheetThatRefusesACallInTheMiddleOfTheCheckIsReportedAndNothingIsInserted) {
  Start();
  const auto before = Picture(book);
  witness.FailWhen() = [](std::string_view member, std::uint64_t) { return member == "Rows"; };
  platform.user().ExpectErrorDialog("btnAbort");
  platform.user().ExpectMessage("Error: 'Tape location'  = 'Sheet1!B3:C9'. The range must be row>=3 and Column>=2");
  EXPECT_FALSE(Check("Sheet1!B3:C9"));
  witness.FailWhen() = {};
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"ChechAddressRange"}));
  EXPECT_EQ(Picture(book), before);
  EXPECT_EQ(dialog->txtAddress.Text(), "Sheet1!B3:C9");
}

TEST_F(CheckField, AWriterThatWasAbortedStillCountsAsInsertedByIntention) {
  Start();
  book.DeleteSheet("Ticker_tape_settings");
  platform.user().ExpectErrorDialog("btnAbort");
  EXPECT_TRUE(Check("Sheet1!B3:C9"));
  EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"AddSymbolToSheet"}));
}

TEST_F(CheckField, AWriterThatFoundNoPlaceForTheRecordStillCountsAsInsertedByIntention) {
  Start();
  const auto before = Picture(book);
  witness.FailWhen() = [](std::string_view member, std::uint64_t) {
    return member == "SpecialCells" || member == "Find";
  };
  platform.user().ExpectErrorDialog("btnAbort");
  EXPECT_TRUE(Check("Sheet1!B3:C9"));
  witness.FailWhen() = {};
  EXPECT_EQ(Picture(book), before);
}

}  // namespace
}  // namespace pellora::test
