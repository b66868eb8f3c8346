#include <gtest/gtest.h>

#include <stdexcept>

#include "forms/CheckBox.h"
#include "forms/ComboBox.h"
#include "forms/CommandButton.h"
#include "forms/Frame.h"
#include "forms/Grid.h"
#include "forms/Label.h"
#include "forms/ListBox.h"
#include "forms/OptionButton.h"
#include "forms/TextBox.h"
#include "platform/headless/Headless.h"
#include "tests/forms/FormParts.h"

namespace pellora::headless {
namespace {

using test::PlainForm;

class UserAtFormTest : public testing::Test {
 protected:
  UserAtFormTest() {
    for (const auto* item : {"SMART", "NYSE", "NASDAQ"}) {
      list.AddItem(item);
      combo.AddItem(item);
    }
    grid.Rows(4);
    button.Click = [this] { ++clicks; };
  }
  /// Shows the form for the length of an act; hides it afterwards.
  void AtForm(std::function<void(UserAtForm&)> act) {
    toolkit.user.ExpectForm("frmPlain", [&](UserAtForm& user) {
      act(user);
      user.form().Hide();
    });
    form.Show();
    EXPECT_EQ(toolkit.user.Verify(), "");
  }
  /// True when the user cannot do an act.
  bool Refuses(std::function<void(UserAtForm&)> act) {
    bool refused = false;
    AtForm([&](UserAtForm& user) {
      try {
        act(user);
      } catch (const std::logic_error&) {
        refused = true;
      }
    });
    return refused;
  }

  int clicks = 0;
  HeadlessToolkit toolkit;
  PlainForm form{toolkit};
  Label label{form, "lblOne", "Symbol"};
  TextBox text{form, "txtOne"};
  CheckBox box{form, "chkOne", "One"};
  Frame frame{form, "fraOne", "Options"};
  OptionButton first{frame, "OptFirst", "First"};
  OptionButton second{frame, "OptSecond", "Second"};
  OptionButton third{frame, "OptThird", "Third"};
  ListBox list{form, "lstOne"};
  ComboBox combo{form, "ComOne", ComboStyle::DropDown};
  Grid grid{form, "VSFOne", {{"Ticker", 64}, {"Type", 64}}};
  CommandButton button{form, "ButOne", "Go"};
};

TEST_F(UserAtFormTest, ClicksGiveTheFocusFirst) {
  std::string focused;
  AtForm([&](UserAtForm& user) {
    user.Click("ButOne");
    focused = user.FocusedName();
  });
  EXPECT_EQ(focused, "ButOne");
  EXPECT_EQ(clicks, 1);
}

TEST_F(UserAtFormTest, BoxesAndOptionsAreClickedLikeButtons) {
  AtForm([](UserAtForm& user) {
    user.Click("chkOne");
    user.Click("OptSecond");
  });
  EXPECT_EQ(box.Value(), 1);
  EXPECT_TRUE(second.Value());
}

TEST_F(UserAtFormTest, WhatCannotBeUsedCannotBeClicked) {
  button.Enabled(false);
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.Click("ButOne"); }));
  EXPECT_EQ(clicks, 0);
}

TEST_F(UserAtFormTest, HiddenControlsAndUnknownNamesAreRefused) {
  text.Visible(false);
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.Type("txtOne", "x"); }));
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.Click("ButUnknown"); }));
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.Get<TextBox>("ButOne"); }));
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.Click("lblOne"); }));
}

TEST_F(UserAtFormTest, AHiddenFormCannotBeUsed) {
  EXPECT_TRUE(Refuses([](UserAtForm& user) {
    user.form().Hide();
    user.Click("ButOne");
  }));
}

TEST_F(UserAtFormTest, TypingReplacesTheText) {
  text.Text("old");
  int changes = 0;
  text.Change = [&] { ++changes; };
  AtForm([](UserAtForm& user) {
    user.Type("txtOne", "IBM");
    user.Type("ComOne", "ISLAND");
  });
  EXPECT_EQ(text.Text(), "IBM");
  EXPECT_EQ(combo.Text(), "ISLAND");
  EXPECT_EQ(changes, 1);
}

TEST_F(UserAtFormTest, AReadOnlyTextCannotBeTypedInto) {
  text.ReadOnly(true);
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.Type("txtOne", "x"); }));
}

TEST_F(UserAtFormTest, ItemsAreChosenByTheirText) {
  AtForm([](UserAtForm& user) {
    user.Choose("lstOne", "NYSE");
    user.Choose("ComOne", "NASDAQ");
  });
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(combo.Text(), "NASDAQ");
}

TEST_F(UserAtFormTest, AnItemThatIsNotThereCannotBeChosen) {
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.Choose("lstOne", "GLOBEX"); }));
}

TEST_F(UserAtFormTest, RowsAreSelectedWithinTheData) {
  AtForm([](UserAtForm& user) { user.SelectRow("VSFOne", 2, 1); });
  EXPECT_EQ(grid.Row(), 2);
  EXPECT_EQ(grid.Col(), 1);
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.SelectRow("VSFOne", 4); }));
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.SelectRow("VSFOne", 0); }));
}

TEST_F(UserAtFormTest, TabGoesThroughTheFormAndAround) {
  std::string order;
  AtForm([&](UserAtForm& user) {
    for (int step = 0; step < 8; ++step, user.PressTab()) order += user.FocusedName() + " ";
  });
  EXPECT_EQ(order, "txtOne chkOne OptFirst lstOne ComOne VSFOne ButOne txtOne ");
}

TEST_F(UserAtFormTest, ShiftTabGoesBackwards) {
  std::string order;
  AtForm([&](UserAtForm& user) {
    for (int step = 0; step < 3; ++step, user.PressTab(true)) order += user.FocusedName() + " ";
  });
  EXPECT_EQ(order, "txtOne ButOne VSFOne ");
}

TEST_F(UserAtFormTest, TabLeavesAnOptionThatIsNoTabStopItself) {
  std::string focused;
  AtForm([&](UserAtForm& user) {
    third.SetFocus();
    user.PressTab();
    focused = user.FocusedName();
  });
  EXPECT_EQ(focused, "lstOne");
}

TEST_F(UserAtFormTest, ArrowsMoveAndSelectInAnOptionGroup) {
  second.Enabled(false);
  AtForm([](UserAtForm& user) {
    user.Click("OptFirst");
    user.PressKey({Key::Down});
  });
  EXPECT_TRUE(third.Value());
  AtForm([](UserAtForm& user) { user.PressKey({Key::Down}); });
  EXPECT_TRUE(first.Value());
}

TEST_F(UserAtFormTest, ArrowsMoveInListsAndGridsAndStopAtTheEnds) {
  AtForm([](UserAtForm& user) {
    user.Choose("lstOne", "NYSE");
    for (int press = 0; press < 3; ++press) user.PressKey({Key::Down});
    user.SelectRow("VSFOne", 2);
    for (int press = 0; press < 3; ++press) user.PressKey({Key::Up});
  });
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_EQ(grid.Row(), 1);
}

TEST_F(UserAtFormTest, AKeyThatTheControlUsesMovesNothing) {
  list.KeyDown = [](const KeyPress&) { return true; };
  AtForm([](UserAtForm& user) {
    user.Choose("lstOne", "SMART");
    user.PressKey({Key::Down});
  });
  EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(UserAtFormTest, SpaceClicksWhatHasTheFocus) {
  AtForm([&](UserAtForm& user) {
    box.SetFocus();
    user.PressSpace();
    button.SetFocus();
    user.PressSpace();
  });
  EXPECT_EQ(box.Value(), 1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(UserAtFormTest, EnterAndEscapePressTheFormsButtons) {
  CommandButton cancel(form, "ButCancel", "Cancel");
  std::string pressed;
  cancel.Click = [&] { pressed += "cancel "; };
  form.DefaultButton(button);
  form.CancelButton(cancel);
  AtForm([](UserAtForm& user) {
    user.PressEnter();
    user.PressEscape();
  });
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(pressed, "cancel ");
}

TEST_F(UserAtFormTest, TypingHereReachesTheControlWithTheFocus) {
  AtForm([](UserAtForm& user) {
    user.TypeHere("IBM");
    user.PressTab();
    user.PressTab();
    user.PressTab();
    user.TypeHere("na");
  });
  EXPECT_EQ(text.Text(), "IBM");
  EXPECT_EQ(list.ListIndex(), 2);
}

TEST_F(UserAtFormTest, DeleteEmptiesASelectedText) {
  text.Text("old");
  text.SelectAll();
  AtForm([](UserAtForm& user) { user.PressKey({Key::Delete}); });
  EXPECT_EQ(text.Text(), "");
}

TEST_F(UserAtFormTest, AccessKeysReachControls) {
  label.AccessKey('y');
  button.AccessKey('g');
  std::string focused;
  AtForm([&](UserAtForm& user) {
    user.PressAccessKey('g');
    user.PressAccessKey('y');
    focused = user.FocusedName();
  });
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(focused, "txtOne");
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.PressAccessKey('q'); }));
}

TEST_F(UserAtFormTest, ASizableFormIsLaidOutAgainWhenResized) {
  form.BorderStyle(BorderStyle::Sizable);
  form.Layout(Column({LayoutNode(list).Stretch()}));
  int before = 0;
  AtForm([&](UserAtForm& user) {
    before = list.Bounds().Height();
    user.Resize({600, 500});
  });
  EXPECT_LT(before, list.Bounds().Height());
  EXPECT_EQ(list.Bounds(), (Rect{11, 11, 589, 489}));
}

TEST_F(UserAtFormTest, AFormIsNeverSmallerThanItsContent) {
  form.BorderStyle(BorderStyle::Sizable);
  form.Layout(Column({button}));
  AtForm([](UserAtForm& user) { user.Resize({1, 1}); });
  EXPECT_EQ(button.Bounds(), (Rect{11, 11, 86, 34}));
}

TEST_F(UserAtFormTest, AFixedDialogCannotBeResized) {
  EXPECT_TRUE(Refuses([](UserAtForm& user) { user.Resize({600, 500}); }));
}

TEST_F(UserAtFormTest, AFormIsLaidOutAgainWhenAControlIsHidden) {
  form.Layout(Column({text, button}));
  int before = 0;
  AtForm([&](UserAtForm&) {
    before = button.Bounds().top;
    text.Visible(false);
  });
  EXPECT_EQ(before, 41);
  EXPECT_EQ(button.Bounds().top, 11);
}

TEST_F(UserAtFormTest, LongerCaptionsGetTheirRoom) {
  form.Layout(Column({Row({button})}));
  AtForm([&](UserAtForm&) { button.Caption("A caption that is much longer"); });
  EXPECT_GE(button.Bounds().Width(), 29 * 6);
}

TEST_F(UserAtFormTest, TheScaleOfTheDisplayIsFollowed) {
  toolkit.dpi = 192;
  form.Layout(Row({button}));
  AtForm([](UserAtForm&) {});
  EXPECT_EQ(button.Bounds(), (Rect{22, 22, 172, 68}));
}

}  // namespace
}  // namespace pellora::headless
