#include <gtest/gtest.h>

#include "forms/CheckBox.h"
#include "forms/CommandButton.h"
#include "forms/Frame.h"
#include "forms/Label.h"
#include "forms/OptionButton.h"
#include "forms/Pages.h"
#include "forms/TextBox.h"
#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::PlainForm;

/// A form with one of each kind that the keyboard treats differently.
class Keyboard : public testing::Test {
 protected:
  Keyboard() {
    form.DefaultButton(ok);
    form.CancelButton(cancel);
    ok.Click = [this] { pressed += "ok "; };
    cancel.Click = [this] { pressed += "cancel "; };
    other.Click = [this] { pressed += "other "; };
  }
  std::vector<std::string> TabNames() const {
    std::vector<std::string> names;
    for (const auto* control : form.TabOrder()) names.push_back(control->Name());
    return names;
  }

  std::string pressed;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
  Label label{form, "lblSymbol", "Symbol"};
  TextBox text{form, "txtSymbol"};
  Frame frame{form, "fraField", "Field"};
  OptionButton bid{frame, "OptBid", "Bid"};
  OptionButton ask{frame, "OptAsk", "Ask"};
  CheckBox size{form, "chkSize", "Size"};
  CommandButton ok{form, "ButOk", "OK"};
  CommandButton cancel{form, "ButCancel", "Cancel"};
  CommandButton other{form, "ButOther", "Other"};
};

TEST_F(Keyboard, TabOrderIsTheOrderOfMakingWithContainersFlattened) {
  EXPECT_EQ(TabNames(), (std::vector<std::string>{"txtSymbol", "OptBid", "chkSize", "ButOk", "ButCancel", "ButOther"}));
}

TEST_F(Keyboard, TabStopsAtTheSelectedOptionOfAGroup) {
  ask.Value(true);
  EXPECT_EQ(TabNames()[1], "OptAsk");
}

TEST_F(Keyboard, TabPassesOverWhatCannotBeUsed) {
  text.Enabled(false);
  frame.Visible(false);
  EXPECT_EQ(TabNames().front(), "chkSize");
}

TEST_F(Keyboard, TabGoesToTheNextStop) {
  text.SetFocus();
  EXPECT_EQ(form.NextTabStop(false), &bid);
}

TEST_F(Keyboard, BehindTheLastStopTabGoesToTheFirst) {
  other.SetFocus();
  EXPECT_EQ(form.NextTabStop(false), &text);
}

TEST_F(Keyboard, BackwardsTabGoesToTheStopBefore) {
  size.SetFocus();
  EXPECT_EQ(form.NextTabStop(true), &bid);
}

TEST_F(Keyboard, BeforeTheFirstStopTabGoesBackToTheLast) {
  text.SetFocus();
  EXPECT_EQ(form.NextTabStop(true), &other);
}

TEST_F(Keyboard, FromAnOptionThatIsNoStopTabGoesToWhatIsNextToIt) {
  ask.SetFocus();
  EXPECT_EQ(form.NextTabStop(false), &size);
  EXPECT_EQ(form.NextTabStop(true), &bid);
}

TEST_F(Keyboard, FromTheOnlyStopTabGoesToItAgain) {
  for (Control* control : {static_cast<Control*>(&frame), static_cast<Control*>(&size), static_cast<Control*>(&ok),
                           static_cast<Control*>(&cancel), static_cast<Control*>(&other)})
    control->Enabled(false);
  EXPECT_EQ(form.NextTabStop(false), &text);
}

TEST_F(Keyboard, WithoutAStopTabGoesNowhere) {
  PlainForm empty(toolkit);
  EXPECT_EQ(empty.NextTabStop(false), nullptr);
}

TEST_F(Keyboard, TheFirstTabStopIsActiveAtFirst) { EXPECT_EQ(form.ActiveControl(), &text); }

TEST_F(Keyboard, WhenTheActiveControlIsDisabledTheNextOneIsActive) {
  size.SetFocus();
  size.Enabled(false);
  EXPECT_EQ(form.ActiveControl(), &ok);
}

TEST_F(Keyboard, BehindTheLastControlTheFirstIsNext) {
  other.SetFocus();
  other.Visible(false);
  EXPECT_EQ(form.ActiveControl(), &text);
}

TEST_F(Keyboard, ADestroyedControlIsNotActive) {
  {
    CheckBox passing(form, "chkPassing", "Passing");
    passing.SetFocus();
  }
  EXPECT_EQ(form.ActiveControl(), &text);
}

TEST_F(Keyboard, AnOptionThatTabPassesOverCanStillHaveTheFocus) {
  ask.SetFocus();
  EXPECT_EQ(form.ActiveControl(), &ask);
}

TEST_F(Keyboard, NothingIsActiveOnAnEmptyForm) {
  PlainForm empty(toolkit);
  EXPECT_EQ(empty.ActiveControl(), nullptr);
}

TEST_F(Keyboard, EnterPressesTheDefaultButton) {
  EXPECT_TRUE(form.PeerKey({Key::Enter}));
  EXPECT_EQ(pressed, "ok ");
}

TEST_F(Keyboard, EnterAtAnotherButtonPressesThatButton) {
  other.SetFocus();
  form.PeerKey({Key::Enter});
  EXPECT_EQ(pressed, "other ");
}

TEST_F(Keyboard, TheButtonOfEnterIsTheOneWithTheFocusOtherwiseTheDefaultButton) {
  EXPECT_EQ(form.EnterButton(&other), &other);
  EXPECT_EQ(form.EnterButton(&text), &ok);
  EXPECT_EQ(form.EnterButton(nullptr), &ok);
}

TEST_F(Keyboard, EscapePressesTheCancelButtonWhereverTheFocusIs) {
  other.SetFocus();
  EXPECT_TRUE(form.PeerKey({Key::Escape}));
  EXPECT_EQ(pressed, "cancel ");
}

TEST_F(Keyboard, ADisabledDefaultButtonIsNotPressed) {
  ok.Enabled(false);
  EXPECT_FALSE(form.PeerKey({Key::Enter}));
  EXPECT_EQ(pressed, "");
}

TEST_F(Keyboard, TheControlWithTheFocusHearsKeysBeforeTheButtons) {
  text.KeyDown = [](const KeyPress& press) { return press.key == Key::Enter; };
  EXPECT_TRUE(form.PeerKey({Key::Enter}));
  EXPECT_EQ(pressed, "");
  form.PeerKey({Key::Escape});
  EXPECT_EQ(pressed, "cancel ");
}

TEST_F(Keyboard, AKeyThatTheControlDoesNotUseGoesToTheButtons) {
  KeyPress heard;
  text.KeyDown = [&](const KeyPress& press) {
    heard = press;
    return false;
  };
  form.PeerKey({.key = Key::Enter, .control = true});
  EXPECT_TRUE(heard.control);
  EXPECT_EQ(pressed, "ok ");
}

TEST_F(Keyboard, EnterIsALineBreakInATextOfSeveralLines) {
  text.MultiLine(true);
  EXPECT_FALSE(form.PeerKey({Key::Enter}));
  text.ReadOnly(true);
  EXPECT_TRUE(form.PeerKey({Key::Enter}));
  EXPECT_EQ(pressed, "ok ");
}

TEST_F(Keyboard, AnAccessKeyFocusesAndClicksAButton) {
  other.AccessKey('t');
  EXPECT_TRUE(form.PeerAccessKey('T'));
  EXPECT_EQ(pressed, "other ");
  EXPECT_EQ(form.ActiveControl(), &other);
}

TEST_F(Keyboard, ALabelsAccessKeyFocusesWhatFollowsWithoutClickingIt) {
  Label sizeLabel(form, "lblLast", "Last");
  CheckBox last(form, "chkLast", "");
  sizeLabel.AccessKey('l');
  EXPECT_TRUE(form.PeerAccessKey('l'));
  EXPECT_EQ(form.ActiveControl(), &last);
  EXPECT_EQ(last.Value(), 0);
}

TEST_F(Keyboard, ALabelsAccessKeyPassesOverWhatCannotBeUsed) {
  label.AccessKey('s');
  text.Enabled(false);
  form.PeerAccessKey('s');
  EXPECT_EQ(form.ActiveControl(), &bid);
}

TEST_F(Keyboard, AnAccessKeyChecksACheckBoxAndSelectsAnOption) {
  size.AccessKey('z');
  ask.AccessKey('k');
  form.PeerAccessKey('z');
  form.PeerAccessKey('k');
  EXPECT_EQ(size.Value(), 1);
  EXPECT_TRUE(ask.Value());
}

TEST_F(Keyboard, AnAccessKeyOfAControlThatCannotBeUsedDoesNothing) {
  other.AccessKey('t');
  other.Enabled(false);
  EXPECT_FALSE(form.PeerAccessKey('t'));
}

TEST_F(Keyboard, AnAccessKeyOfAPageShowsIt) {
  Pages pages(form, "tabAll");
  Page first(pages, "pagFirst", "First");
  Page second(pages, "pagSecond", "Second");
  second.AccessKey('e');
  EXPECT_TRUE(form.PeerAccessKey('e'));
  EXPECT_EQ(pages.CurrentPage(), 1);
}

TEST_F(Keyboard, OfEqualAccessKeysTheOneOnTheShownPageIsReached) {
  Pages pages(form, "tabAll");
  Page first(pages, "pagFirst", "First");
  CheckBox onFirst(first, "chkFirst", "Right");
  Page second(pages, "pagSecond", "Second");
  CheckBox onSecond(second, "chkSecond", "Right");
  onFirst.AccessKey('r');
  onSecond.AccessKey('r');
  pages.CurrentPage(1);
  form.PeerAccessKey('r');
  EXPECT_EQ(onFirst.Value(), 0);
  EXPECT_EQ(onSecond.Value(), 1);
}

}  // namespace
}  // namespace pellora
