#include "Hands.h"
#include "tests/forms/SampleForm.h"

namespace pellora::windows {
namespace {

using test::SampleForm;

class PlacementOnScreen : public WindowsFormTest {
 protected:
  /// Shows the form; the user gives the window's menu a command, unless it is 0, and presses OK. True when the window
  /// came up maximised.
  bool ShowAndCommand(WPARAM command) {
    std::atomic<bool> cameUpMaximised = false;
    const Player player([&](Hands& hands) {
      const auto window = hands.WaitFor(form);
      cameUpMaximised = ::IsZoomed(window) != FALSE;
      if (command) ::PostMessageW(window, WM_SYSCOMMAND, command, 0);
      hands.Click(form.butOk);
    });
    form.Show();
    return cameUpMaximised;
  }
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

TEST_F(PlacementOnScreen, AFormThatIsTooLargeForAPlaceAtTheEdgeOfTheDisplayIsAllOnIt) {
  form.Load();
  const auto desktop = form.WindowPeer()->Desktop();
  auto corner = Now();
  corner.normal = {desktop.right - 50, desktop.bottom - 50, desktop.right, desktop.bottom};
  form.SetPlacement(corner);
  EXPECT_LE(Now().normal.right, desktop.right);
  EXPECT_LE(Now().normal.bottom, desktop.bottom);
}

TEST_F(PlacementOnScreen, AFormAtTheEdgeOfTheDisplayStaysOnItWhenItsTextsGrow) {
  form.Load();
  const auto desktop = form.WindowPeer()->Desktop();
  const auto size = form.WindowPeer()->OuterSize();
  auto corner = Now();
  corner.normal = {desktop.right - size.width, desktop.bottom - size.height, desktop.right, desktop.bottom};
  form.SetPlacement(corner);
  Placement shown;
  {
    const Player player([&](Hands& hands) {
      hands.WaitFor(form);
      shown = Now();
      hands.Click(form.butOk);
    });
    form.lab.Caption(std::string(200, 'x'));
    form.Show();
  }
  EXPECT_GT(shown.normal.Width(), size.width);
  EXPECT_LE(shown.normal.right, desktop.right);
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

TEST_F(PlacementOnScreen, AFormMaximisedByTheUserIsRememberedSoAfterItIsHidden) {
  ShowAndCommand(SC_MAXIMIZE);
  EXPECT_EQ(Now().showCommand, SW_SHOWMAXIMIZED);
  EXPECT_EQ(form.WindowState(), WindowState::Maximized);
}

TEST_F(PlacementOnScreen, AFormMaximisedByTheUserComesUpSoAgain) {
  ShowAndCommand(SC_MAXIMIZE);
  EXPECT_TRUE(ShowAndCommand(0));
}

TEST_F(PlacementOnScreen, AMaximisedFormKeepsThePlaceItGoesBackTo) {
  form.Load();
  auto wanted = Now();
  wanted.normal = {50, 60, 850, 760};
  form.SetPlacement(wanted);
  ShowAndCommand(SC_MAXIMIZE);
  EXPECT_EQ(Now().normal, wanted.normal);
}

TEST_F(PlacementOnScreen, AFormRestoredByTheUserIsRememberedAsNormal) {
  form.Load();
  auto maximised = Now();
  maximised.showCommand = SW_SHOWMAXIMIZED;
  form.SetPlacement(maximised);
  form.WindowState(WindowState::Maximized);
  EXPECT_TRUE(ShowAndCommand(SC_RESTORE));
  EXPECT_EQ(Now().showCommand, SW_SHOWNORMAL);
  EXPECT_FALSE(ShowAndCommand(0));
}

TEST_F(PlacementOnScreen, AFormThatIsNeverShownKeepsItsShowCommand) {
  form.Load();
  auto maximised = Now();
  maximised.showCommand = SW_SHOWMAXIMIZED;
  form.SetPlacement(maximised);
  form.Unload();
  EXPECT_EQ(Now().showCommand, SW_SHOWMAXIMIZED);
}

/// Sizable, but with nothing that would show more in more room.
class FieldsForm : public Form {
 public:
  explicit FieldsForm(Toolkit& toolkit) : Form(toolkit, "frmFields") {
    BorderStyle(pellora::BorderStyle::Sizable);
    Layout(Column({LayoutNode(txt).Stretch(), com}));
  }

 private:
  TextBox txt{*this, "txt"};
  ComboBox com{*this, "com", ComboStyle::DropDown};
};

TEST_F(PlacementOnScreen, ASizableFormWithoutListsStartsAtItsLeast) {
  FieldsForm fields(toolkit);
  fields.Load();
  const auto first = fields.WindowPeer()->OuterSize();
  auto tiny = fields.GetPlacement().value();
  tiny.normal = {100, 100, 101, 101};
  fields.SetPlacement(tiny);
  EXPECT_EQ(first, fields.WindowPeer()->OuterSize());
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
