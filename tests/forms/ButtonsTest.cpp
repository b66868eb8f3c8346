#include <gtest/gtest.h>

#include "forms/CheckBox.h"
#include "forms/CommandButton.h"
#include "forms/Frame.h"
#include "forms/OptionButton.h"
#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;
using test::PlainForm;
using test::RecordingPeer;

class Buttons : public testing::Test {
 protected:
  std::vector<Aspect> told;
  int clicks = 0;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
};

class CheckBoxTest : public Buttons {
 protected:
  CheckBoxTest() {
    box.Click = [this] { ++clicks; };
  }
  CheckBox box{form, "chkOne", "One"};
};

TEST_F(CheckBoxTest, BeginsUnchecked) { EXPECT_EQ(box.Value(), 0); }

TEST_F(CheckBoxTest, CodeThatChangesTheValueRaisesClick) {
  box.Value(1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(CheckBoxTest, TheSameValueRaisesNothing) {
  box.Value(1);
  box.Value(1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(CheckBoxTest, TheEventFindsTheNewValueStoredAndThePeerTold) {
  box.AttachPeer(std::make_unique<RecordingPeer>(told));
  std::int16_t seen = -1;
  std::size_t toldBefore = 0;
  box.Click = [&] {
    seen = box.Value();
    toldBefore = told.size();
  };
  box.Value(2);
  EXPECT_EQ(seen, 2);
  EXPECT_EQ(toldBefore, 1u);
}

TEST_F(CheckBoxTest, OtherValuesAreRefusedAndTheOldOneStays) {
  box.Value(1);
  EXPECT_EQ(NumberRaisedBy([&] { box.Value(3); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { box.Value(-1); }), 380);
  EXPECT_EQ(box.Value(), 1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(CheckBoxTest, AUsersClickChecksUnchecksAndTakesGreyAway) {
  box.PeerClick();
  EXPECT_EQ(box.Value(), 1);
  box.PeerClick();
  EXPECT_EQ(box.Value(), 0);
  box.Value(2);
  box.PeerClick();
  EXPECT_EQ(box.Value(), 0);
  EXPECT_EQ(clicks, 4);
}

TEST_F(CheckBoxTest, ADisabledOneIgnoresTheUserButNotCode) {
  box.Enabled(false);
  box.PeerClick();
  EXPECT_EQ(box.Value(), 0);
  box.Value(1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(CheckBoxTest, AHandlerMayReplaceItself) {
  box.Click = [this] {
    box.Click = nullptr;
    ++clicks;
  };
  box.Value(1);
  box.Value(0);
  EXPECT_EQ(clicks, 1);
}

class OptionButtonTest : public Buttons {
 protected:
  OptionButtonTest() {
    first.Click = [this] { raised += "first "; };
    second.Click = [this] { raised += "second "; };
  }
  std::string raised;
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

TEST_F(Buttons, ACommandButtonRaisesClickWhenPressed) {
  CommandButton button(form, "ButOne", "One");
  button.Click = [this] { ++clicks; };
  button.PeerClick();
  EXPECT_EQ(clicks, 1);
}

TEST_F(Buttons, ACommandButtonThatCannotBeUsedIgnoresPresses) {
  CommandButton button(form, "ButOne", "One");
  button.Click = [this] { ++clicks; };
  button.Enabled(false);
  button.PeerClick();
  EXPECT_EQ(clicks, 0);
}

}  // namespace
}  // namespace pellora
