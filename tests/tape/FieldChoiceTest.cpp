#include "Desk.h"

namespace pellora::test {
namespace {

using headless::UserAtForm;

class FieldChoice : public Desk {
 protected:
  void Start(std::string_view missing = {}) {
    auto fields = kAllFields;
    std::erase(fields, missing);
    Workbook(fields).Instrument(Stock("XYZ"));
    dialog->Load();
  }
};
class ViewChkName : public FieldChoice {};
class EnableOptionButton : public FieldChoice {};

TEST_F(FieldChoice, LastPriceIsChosenWhenTheDialogOpens) {
  Start();
  EXPECT_TRUE(dialog->OptLastPrice.Value());
  EXPECT_TRUE(dialog->chkLastSize.Enabled());
  EXPECT_FALSE(dialog->chkAskSize.Enabled());
  EXPECT_FALSE(dialog->chkBidSize.Enabled());
  EXPECT_FALSE(dialog->txtNameSize.Enabled());
}

TEST_F(FieldChoice, ChoosingAFieldIsShownInTheTipAndLabelOfTheHeaderBox) {
  Start();
  struct {
    OptionButton& option;
    std::string_view tip;
  } const table[] = {{dialog->OptAskPrice, "Tape header for ask price"},
                     {dialog->OptBidPrice, "Tape header for bid price"},
                     {dialog->OptLow, "Tape header for low"},
                     {dialog->OptHigh, "Tape header for high"},
                     {dialog->OptClose, "Tape header for close"},
                     {dialog->OptVolume, "Tape header for volume"},
                     {dialog->OptLastPrice, "Tape header for last price"}};
  for (const auto& [option, tip] : table) {
    option.Value(true);
    EXPECT_EQ(dialog->txtName.ToolTip(), tip);
    EXPECT_EQ(dialog->lblName.Caption(), tip);
  }
}

TEST_F(FieldChoice, APriceOffersItsOwnSizeOnly) {
  Start();
  struct {
    OptionButton& option;
    CheckBox& size;
    std::string_view tip;
  } const table[] = {{dialog->OptAskPrice, dialog->chkAskSize, "Tape header for ask size"},
                     {dialog->OptBidPrice, dialog->chkBidSize, "Tape header for bid size"},
                     {dialog->OptLastPrice, dialog->chkLastSize, "Tape header for last size"}};
  for (const auto& [option, size, tip] : table) {
    option.Value(true);
    for (const auto* box : {&dialog->chkAskSize, &dialog->chkBidSize, &dialog->chkLastSize})
      EXPECT_EQ(box->Enabled(), box == &size);
    EXPECT_EQ(dialog->txtNameSize.ToolTip(), tip);
    EXPECT_EQ(dialog->lblNameSize.Caption(), tip);
  }
}

TEST_F(FieldChoice, CloseAfterAskPriceDisablesAllSizesAndEmptiesAndDisablesTheSizeHeader) {
  Start();
  dialog->OptAskPrice.Value(true);
  dialog->chkAskSize.Value(1);
  ASSERT_EQ(dialog->txtNameSize.Text(), "XYZ");
  dialog->OptClose.Value(true);
  for (const auto* box : {&dialog->chkAskSize, &dialog->chkBidSize, &dialog->chkLastSize}) EXPECT_FALSE(box->Enabled());
  EXPECT_EQ(dialog->txtNameSize.Text(), "");
  EXPECT_FALSE(dialog->txtNameSize.Enabled());
  EXPECT_EQ(dialog->txtNameSize.ToolTip(), "Tape header for ...");
}

TEST_F(FieldChoice, TickingASizeEnablesTheSizeHeaderAndUntickingDisablesIt) {
  Start();
  dialog->chkLastSize.Value(1);
  EXPECT_TRUE(dialog->txtNameSize.Enabled());
  EXPECT_EQ(dialog->txtNameSize.Text(), "XYZ");
  dialog->chkLastSize.Value(0);
  EXPECT_FALSE(dialog->txtNameSize.Enabled());
}

TEST_F(FieldChoice, ASizeTickedBeforeIsFollowedWhenItsPriceIsChosenAgain) {
  Start();
  dialog->chkLastSize.Value(1);
  dialog->OptClose.Value(true);
  dialog->OptLastPrice.Value(true);
  EXPECT_TRUE(dialog->txtNameSize.Enabled());
}

TEST_F(FieldChoice, AWorkbookWithoutAskSizeLeavesItsBoxDisabledAndTheSizeHeaderAsItWas) {
  Start("TWS_Ask_Size");
  dialog->chkLastSize.Value(1);
  dialog->OptAskPrice.Value(true);
  EXPECT_FALSE(dialog->chkAskSize.Enabled());
  EXPECT_TRUE(dialog->txtNameSize.Enabled());
  EXPECT_EQ(dialog->txtNameSize.ToolTip(), "Tape header for last size");
  EXPECT_TRUE(platform.user().Messages().empty());
}

TEST_F(FieldChoice, ChoosingAFieldBringsTheLocationToItsSize) {
  Start();
  dialog->txtAddress.Text("Sheet1!B3");
  dialog->chkLastSize.Value(1);
  EXPECT_EQ(dialog->txtAddress.Text(), "Sheet1!B3:D22");
  dialog->OptVolume.Value(true);
  EXPECT_EQ(dialog->txtAddress.Text(), "Sheet1!B3:C22");
}

TEST_F(FieldChoice, TheEventOfAChoiceThatIsNotSelectedDoesNothing) {
  Start();
  dialog->OptVolume.Click();
  EXPECT_EQ(dialog->txtName.ToolTip(), "Tape header for last price");
}

TEST_F(ViewChkName, WithoutTheFieldNameTheHeadersAreTheTickerAndTickingItShowsTheFieldAtOnce) {
  Start();
  dialog->chkLastSize.Value(1);
  EXPECT_EQ(dialog->txtName.Text(), "XYZ");
  EXPECT_EQ(dialog->txtNameSize.Text(), "XYZ");
  dialog->chkAddName.Value(1);
  EXPECT_EQ(dialog->txtName.Text(), "XYZ(last price)");
  EXPECT_EQ(dialog->txtNameSize.Text(), "XYZ(last size)");
  dialog->chkAddName.Value(0);
  EXPECT_EQ(dialog->txtName.Text(), "XYZ");
}

TEST_F(ViewChkName, EveryFieldHasItsCaptionInTheHeader) {
  Start();
  dialog->chkAddName.Value(1);
  for (OptionButton* option : {&dialog->OptAskPrice, &dialog->OptBidPrice, &dialog->OptHigh, &dialog->OptLow,
                               &dialog->OptVolume, &dialog->OptClose}) {
    option->Value(true);
    EXPECT_EQ(dialog->txtName.Text(), "XYZ(" + option->Caption() + ")");
  }
}

TEST_F(ViewChkName, ADisabledHeaderBoxIsLeftAlone) {
  Start();
  dialog->txtName.Text("mine");
  dialog->txtName.Enabled(false);
  dialog->ViewChkName();
  EXPECT_EQ(dialog->txtName.Text(), "mine");
}

TEST_F(ViewChkName, WhenSeveralSizesAreTickedTheLastOneOfLastBidAskWins) {
  Start();
  dialog->chkAddName.Value(1);
  for (CheckBox* box : {&dialog->chkLastSize, &dialog->chkBidSize, &dialog->chkAskSize}) {
    box->Enabled(true);
    box->Value(1);
  }
  EXPECT_EQ(dialog->txtNameSize.Text(), "XYZ(ask size)");
  dialog->chkAskSize.Value(0);
  dialog->txtNameSize.Enabled(true);
  dialog->ViewChkName();
  EXPECT_EQ(dialog->txtNameSize.Text(), "XYZ(bid size)");
}

TEST_F(EnableOptionButton, DoesNothingWithoutAQuoteFieldSet) {
  Start();
  dialog->OptHigh.Enabled(false);
  dialog->EnableOptionButton();
  EXPECT_FALSE(dialog->OptHigh.Enabled());
  EXPECT_TRUE(dialog->OptLow.Enabled());
}

TEST_F(EnableOptionButton, FollowsEachFlagOfTheSet) {
  Start();
  struct {
    bool QuoteFieldSet::*flag;
    OptionButton& option;
  } const table[] = {{&QuoteFieldSet::LastPrice, dialog->OptLastPrice}, {&QuoteFieldSet::AskPrice, dialog->OptAskPrice},
                     {&QuoteFieldSet::BidPrice, dialog->OptBidPrice},   {&QuoteFieldSet::LowTick, dialog->OptLow},
                     {&QuoteFieldSet::HighTick, dialog->OptHigh},       {&QuoteFieldSet::Volume, dialog->OptVolume},
                     {&QuoteFieldSet::ClosePrice, dialog->OptClose}};
  for (const auto& wanted : table) {
    QuoteFieldSet set;
    set.*wanted.flag = true;
    dialog->QuoteFields(set);
    dialog->EnableOptionButton();
    for (const auto& each : table) EXPECT_EQ(each.option.Enabled(), &each == &wanted);
  }
}

TEST_F(EnableOptionButton, TicksTheSizesOfTheSetAndMatchesTheSizeHeaderToTheChosenPrice) {
  Start();
  QuoteFieldSet set;
  set.LastPrice = set.AskSize = true;
  dialog->QuoteFields(set);
  dialog->EnableOptionButton();
  EXPECT_EQ(dialog->chkAskSize.Value(), 1);
  EXPECT_EQ(dialog->chkLastSize.Value(), 0);
  EXPECT_EQ(dialog->chkBidSize.Value(), 0);
  EXPECT_FALSE(dialog->txtNameSize.Enabled());
  set.LastSize = true;
  dialog->QuoteFields(set);
  dialog->EnableOptionButton();
  EXPECT_TRUE(dialog->txtNameSize.Enabled());
  EXPECT_EQ(dialog->txtNameSize.ToolTip(), "Tape header for last size");
}

TEST_F(FieldChoice, EnableGroupSwitchesItsSevenControlsTogether) {
  for (const bool flag : {false, true}) {
    dialog->EnableGroup(flag);
    for (const Control* control : std::initializer_list<const Control*>{
             &dialog->txtName, &dialog->txtNameSize, &dialog->txtAddress, &dialog->chkAddName, &dialog->ButGetAddress,
             &dialog->ButInsert, &dialog->ButInsertNew})
      EXPECT_EQ(control->Enabled(), flag) << control->Name();
    EXPECT_TRUE(dialog->ButCancel.Enabled());
  }
}

TEST_F(FieldChoice, TickingASizeShowsItsCaptionInTheTipOfTheSizeHeader) {
  Start();
  struct {
    OptionButton& option;
    CheckBox& size;
    std::string_view tip;
  } const table[] = {{dialog->OptLastPrice, dialog->chkLastSize, "Tape header for last size"},
                     {dialog->OptAskPrice, dialog->chkAskSize, "Tape header for ask size"},
                     {dialog->OptBidPrice, dialog->chkBidSize, "Tape header for bid size"}};
  for (const auto& [option, size, tip] : table) {
    option.Value(true);
    dialog->txtNameSize.ToolTip("");
    size.Value(1);
    EXPECT_EQ(dialog->txtNameSize.ToolTip(), tip);
    EXPECT_EQ(dialog->lblNameSize.Caption(), tip);
  }
}

}  // namespace
}  // namespace pellora::test
