#include "forms/CheckBox.h"

#include <gtest/gtest.h>

#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;
using test::PlainForm;
using test::RecordingPeer;

class CheckBoxTest : public testing::Test {
 protected:
  CheckBoxTest() {
    box.Click = [this] { ++clicks; };
  }
  std::vector<Aspect> told;
  int clicks = 0;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
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

}  // namespace
}  // namespace pellora
