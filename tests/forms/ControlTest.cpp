#include "forms/Control.h"

#include <gtest/gtest.h>

#include <optional>

#include "forms/CheckBox.h"
#include "forms/Frame.h"
#include "forms/Label.h"
#include "forms/Pages.h"
#include "forms/TextBox.h"
#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;
using test::PlainForm;
using test::RecordingPeer;

class ControlTest : public testing::Test {
 protected:
  std::vector<Aspect> told;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
  Frame frame{form, "fraOne", "One"};
  TextBox box{frame, "txtOne"};
};

TEST_F(ControlTest, AControlKnowsItsFormThroughItsContainers) {
  EXPECT_EQ(&box.Owner(), &form);
  EXPECT_EQ(&frame.Owner(), &form);
  EXPECT_EQ(box.Parent(), &frame);
}

TEST_F(ControlTest, AControlIsWithinItselfAndAllThatIsAroundIt) {
  EXPECT_TRUE(box.IsWithin(box));
  EXPECT_TRUE(box.IsWithin(frame));
  EXPECT_TRUE(box.IsWithin(form));
}

TEST_F(ControlTest, AControlIsNotWithinWhatStandsInItOrBesideIt) {
  CheckBox beside(form, "chkBeside", "Beside");
  EXPECT_FALSE(frame.IsWithin(box));
  EXPECT_FALSE(beside.IsWithin(frame));
}

TEST_F(ControlTest, ADestroyedControlLeavesItsContainer) {
  { CheckBox passing(form, "chkPassing", "Passing"); }
  EXPECT_EQ(form.Children(), std::vector<Control*>{&frame});
}

TEST_F(ControlTest, DescendantsStandBehindTheirContainer) {
  CheckBox last(form, "chkLast", "Last");
  EXPECT_EQ(form.Descendants(), (std::vector<Control*>{&frame, &box, &last}));
}

TEST_F(ControlTest, NamesAreFoundWithoutRegardToCase) {
  EXPECT_EQ(form.FindControl("TXTone"), &box);
  EXPECT_EQ(form.FindControl("txtTwo"), nullptr);
}

TEST_F(ControlTest, SettersTellThePeerOnceAndOnlyOfChanges) {
  box.AttachPeer(std::make_unique<RecordingPeer>(told));
  for (int twice = 0; twice < 2; ++twice) {
    box.Enabled(false);
    box.Visible(false);
    box.ToolTip("tip");
    box.Caption("caption");
    box.Bounds({1, 2, 3, 4});
  }
  EXPECT_EQ(told,
            (std::vector<Aspect>{Aspect::Enabled, Aspect::Visible, Aspect::ToolTip, Aspect::Text, Aspect::Bounds}));
}

TEST_F(ControlTest, AControlIsUsableOnlyWithAllThatIsAroundIt) {
  EXPECT_TRUE(box.Usable());
  frame.Enabled(false);
  EXPECT_FALSE(box.Usable());
  EXPECT_TRUE(box.Enabled());
  frame.Enabled(true);
  frame.Visible(false);
  EXPECT_FALSE(box.Usable());
}

TEST_F(ControlTest, ADisabledContainerDisablesAControlAndDoesNotHideIt) {
  frame.Enabled(false);
  EXPECT_FALSE(box.EnabledByAll());
  EXPECT_TRUE(box.ShownByAll());
}

TEST_F(ControlTest, AHiddenContainerHidesAControlAndDoesNotDisableIt) {
  frame.Visible(false);
  EXPECT_FALSE(box.ShownByAll());
  EXPECT_TRUE(box.EnabledByAll());
}

TEST_F(ControlTest, AFormsOwnFlagsCountForUseOnly) {
  form.Enabled(false);
  form.Visible(false);
  EXPECT_FALSE(box.Usable());
  EXPECT_TRUE(box.EnabledByAll());
  EXPECT_TRUE(box.ShownByAll());
}

TEST_F(ControlTest, AControlIsShownWithItsPageOnly) {
  Pages pages(form, "tabAll");
  Page first(pages, "pagFirst", "First");
  Page second(pages, "pagSecond", "Second");
  CheckBox onSecond(second, "chkSecond", "Second");
  EXPECT_FALSE(onSecond.ShownByAll());
  pages.CurrentPage(1);
  EXPECT_TRUE(onSecond.ShownByAll());
}

TEST_F(ControlTest, AControlOnAPageThatIsNotShownIsNotUsable) {
  Pages pages(form, "tabAll");
  Page first(pages, "pagFirst", "First");
  Page second(pages, "pagSecond", "Second");
  CheckBox hidden(second, "chkHidden", "Hidden");
  EXPECT_FALSE(hidden.Usable());
  pages.CurrentPage(1);
  EXPECT_TRUE(hidden.Usable());
}

TEST_F(ControlTest, FocusMakesTheControlActiveAndTellsItsPeer) {
  int focused = 0;
  TextBox second(form, "txtTwo");
  second.AttachPeer(std::make_unique<RecordingPeer>(told, &focused));
  second.SetFocus();
  EXPECT_EQ(form.ActiveControl(), &second);
  EXPECT_EQ(focused, 1);
}

TEST_F(ControlTest, AControlThatCannotBeUsedRefusesTheFocus) {
  box.Enabled(false);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFocus(); }), 5);
  EXPECT_EQ(form.ActiveControl(), nullptr);
}

TEST_F(ControlTest, ALabelRefusesTheFocus) {
  Label label(form, "lblOne", "One");
  EXPECT_EQ(NumberRaisedBy([&] { label.SetFocus(); }), 5);
}

TEST_F(ControlTest, AccessibleNamesComeFromTheControlItsCaptionOrTheLabelBefore) {
  Label label(form, "lblBid", "Bid && ask");
  TextBox named(form, "txtBid");
  CheckBox captioned(form, "chkBid", "Bid price");
  EXPECT_EQ(named.AccessibleName(), "Bid & ask");
  EXPECT_EQ(captioned.AccessibleName(), "Bid price");
  named.AccessibleName("Bid price to watch");
  EXPECT_EQ(named.AccessibleName(), "Bid price to watch");
}

TEST_F(ControlTest, ACaptionStandsBeforeTheLabelAsAccessibleName) {
  Label label(form, "lblBid", "Bid");
  CheckBox captioned(form, "chkBid", "Show");
  EXPECT_EQ(captioned.AccessibleName(), "Show");
}

TEST_F(ControlTest, AControlWithoutLabelOrCaptionHasNoAccessibleName) { EXPECT_EQ(box.AccessibleName(), ""); }

TEST(DisplayText, DoubledAmpersandsShowOne) {
  EXPECT_EQ(DisplayText("Insert && new"), "Insert & new");
  EXPECT_EQ(DisplayText("S&P"), "S&P");
}

}  // namespace
}  // namespace pellora
