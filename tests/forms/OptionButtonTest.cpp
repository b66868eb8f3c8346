#include "forms/OptionButton.h"

#include <gtest/gtest.h>

#include "forms/Frame.h"
#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::PlainForm;
using test::RecordingPeer;

class OptionButtonTest : public testing::Test {
 protected:
  OptionButtonTest() {
    first.Click = [this] { raised += "first "; };
    second.Click = [this] { raised += "second "; };
  }
  std::vector<Aspect> told;
  std::string raised;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
  Frame frame{form, "fraOptions", "Options"};
  OptionButton first{frame, "OptFirst", "First"};
  OptionButton second{frame, "OptSecond", "Second"};
  OptionButton apart{form, "OptApart", "Apart"};
};

TEST_F(OptionButtonTest, SelectingDeselectsTheOthersOfTheContainerOnly) {
  apart.Value(true);
  first.Value(true);
  second.Value(true);
  EXPECT_FALSE(first.Value());
  EXPECT_TRUE(second.Value());
  EXPECT_TRUE(apart.Value());
}

TEST_F(OptionButtonTest, OnlyTheOneThatBecomesSelectedRaisesClick) {
  first.Value(true);
  second.Value(true);
  EXPECT_EQ(raised, "first second ");
}

TEST_F(OptionButtonTest, TheOthersAreDeselectedBeforeTheEvent) {
  first.Value(true);
  bool firstStillSelected = true;
  second.Click = [&] { firstStillSelected = first.Value(); };
  second.Value(true);
  EXPECT_FALSE(firstStillSelected);
}

TEST_F(OptionButtonTest, DeselectingRaisesNothing) {
  first.Value(true);
  first.Value(false);
  EXPECT_EQ(raised, "first ");
}

TEST_F(OptionButtonTest, ClickingTheSelectedOneRaisesNothing) {
  first.PeerClick();
  first.PeerClick();
  EXPECT_EQ(raised, "first ");
}

TEST_F(OptionButtonTest, AnArrowKeyFocusesAndSelectsTheNextOneRoundAtTheEnds) {
  first.SetFocus();
  first.PeerStep(1);
  EXPECT_EQ(form.ActiveControl(), &second);
  EXPECT_TRUE(second.Value());
  second.PeerStep(1);
  EXPECT_EQ(form.ActiveControl(), &first);
  EXPECT_EQ(raised, "second first ");
}

TEST_F(OptionButtonTest, BackwardsFromTheFirstOneComesTheLast) {
  first.SetFocus();
  first.PeerStep(-1);
  EXPECT_TRUE(second.Value());
}

TEST_F(OptionButtonTest, AnArrowKeyPassesOverWhatCannotBeUsed) {
  OptionButton third(frame, "OptThird", "Third");
  second.Enabled(false);
  first.PeerStep(1);
  EXPECT_TRUE(third.Value());
}

TEST_F(OptionButtonTest, AnArrowKeyAtOneThatCannotBeUsedAnyMoreDoesNothing) {
  first.Enabled(false);
  first.PeerStep(1);
  EXPECT_FALSE(second.Value());
}

TEST_F(OptionButtonTest, BothPeersAreTold) {
  first.Value(true);
  first.AttachPeer(std::make_unique<RecordingPeer>(told));
  second.AttachPeer(std::make_unique<RecordingPeer>(told));
  second.Value(true);
  EXPECT_EQ(told, (std::vector<Aspect>{Aspect::Value, Aspect::Value}));
}

TEST_F(OptionButtonTest, TabStopsAtTheSelectedOne) {
  second.Value(true);
  EXPECT_FALSE(first.TabStop());
  EXPECT_TRUE(second.TabStop());
}

TEST_F(OptionButtonTest, TabStopsAtTheFirstUsableOneWhenNoneCanBeReachedOtherwise) {
  EXPECT_TRUE(first.TabStop());
  EXPECT_FALSE(second.TabStop());
  first.Value(true);
  first.Enabled(false);
  EXPECT_TRUE(second.TabStop());
}

}  // namespace
}  // namespace pellora
