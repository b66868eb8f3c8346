#include "Hands.h"
#include "SampleForm.h"

namespace pellora::windows {
namespace {

class PlacementOnScreen : public WindowsFormTest {
 protected:
  Placement Now() const { return form.GetPlacement().value(); }
  SampleForm form{toolkit};
};

TEST_F(PlacementOnScreen, ASizableFormStartsLargerThanItsLeast) {
  form.Load();
  const auto first = form.WindowPeer()->OuterSize();
  auto tiny = Now();
  tiny.normal = {100, 100, 101, 101};
  form.SetPlacement(tiny);
  const auto least = form.WindowPeer()->OuterSize();
  EXPECT_GT(first.width, least.width);
  EXPECT_GT(first.height, least.height);
}

TEST_F(PlacementOnScreen, WhatIsSetIsAnsweredAgain) {
  form.Load();
  auto wanted = Now();
  wanted.normal = {50, 60, 850, 760};
  form.SetPlacement(wanted);
  EXPECT_EQ(Now(), wanted);
}

TEST_F(PlacementOnScreen, SettingAPlacementDoesNotShowTheForm) {
  form.Load();
  form.SetPlacement(Now());
  EXPECT_FALSE(::IsWindowVisible(::GetParent(Hands::Of(form.txt))));
}

TEST_F(PlacementOnScreen, APlaceOffEveryDisplayIsMovedBack) {
  form.Load();
  auto away = Now();
  away.normal = {20000, 20000, 20600, 20600};
  form.SetPlacement(away);
  const auto desktop = form.WindowPeer()->Desktop();
  EXPECT_LE(Now().normal.right, desktop.right);
  EXPECT_LE(Now().normal.bottom, desktop.bottom);
}

TEST_F(PlacementOnScreen, ACaptionAboveTheDisplayIsMovedBack) {
  form.Load();
  auto above = Now();
  above.normal = {100, -300, 900, 500};
  form.SetPlacement(above);
  EXPECT_EQ(Now().normal.top, form.WindowPeer()->Desktop().top);
}

TEST_F(PlacementOnScreen, AMinimisedPlacementComesUpNormal) {
  form.Load();
  auto minimised = Now();
  minimised.showCommand = SW_SHOWMINIMIZED;
  form.SetPlacement(minimised);
  std::atomic<bool> iconic = true;
  {
    const Player player([&](Hands& hands) {
      iconic = ::IsIconic(hands.WaitFor(form)) != FALSE;
      hands.Click(form.butOk);
    });
    form.Show();
  }
  EXPECT_FALSE(iconic);
}

TEST_F(PlacementOnScreen, TheNextShowingIsWhereTheLastOneWas) {
  form.Load();
  auto wanted = Now();
  wanted.normal = {50, 60, 850, 760};
  form.SetPlacement(wanted);
  for (int round = 0; round < 2; ++round) {
    const Player player([&](Hands& hands) {
      hands.WaitFor(form);
      hands.Click(form.butOk);
    });
    form.Show();
  }
  EXPECT_EQ(Now().normal, wanted.normal);
}

TEST_F(PlacementOnScreen, AtOneAndAHalfTimesTheScaleAFormNeedsMoreRoom) {
  form.Load();
  const auto usual = form.WindowPeer()->OuterSize();
  toolkit.ForceDpi(144);
  SampleForm large(toolkit);
  large.Load();
  EXPECT_GT(large.WindowPeer()->OuterSize().width, usual.width * 5 / 4);
}

}  // namespace
}  // namespace pellora::windows
