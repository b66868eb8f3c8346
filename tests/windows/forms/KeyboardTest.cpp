#include "SampleFormTest.h"

namespace pellora::windows {
namespace {

class Keyboard : public SampleFormTest {};

TEST_F(Keyboard, TheFirstControlHasTheFocus) {
  bool has = false;
  Play([&](Hands& hands) { has = Until([&] { return hands.Has(form.txt); }); });
  EXPECT_TRUE(has);
}

TEST_F(Keyboard, AControlFocusedBeforeShowingHasTheFocus) {
  form.grd.SetFocus();
  bool has = false;
  Play([&](Hands& hands) { has = Until([&] { return hands.Has(form.grd); }); });
  EXPECT_TRUE(has);
}

TEST_F(Keyboard, TabVisitsTheFormsTabOrder) {
  std::vector<Control*> visited;
  Play([&](Hands& hands) {
    for (std::size_t i = 0; i < 10; ++i) {
      const auto before = form.ActiveControl();
      visited.push_back(before);
      hands.Press(VK_TAB);
      if (!Until([&] { return form.ActiveControl() != before; })) return;
    }
  });
  const std::vector<Control*> expected = {&form.txt, &form.com, &form.drop,  &form.lst,   &form.optOne,
                                          &form.chk, &form.grd, &form.notes, &form.butOk, &form.butCancel};
  EXPECT_EQ(visited, expected);
}

TEST_F(Keyboard, TabIntoOptionsSelectsNone) {
  Play([&](Hands& hands) {
    form.chk.Peer();
    for (int i = 0; i < 4; ++i) {
      const auto before = form.ActiveControl();
      hands.Press(VK_TAB);
      if (!Until([&] { return form.ActiveControl() != before; })) return;
    }
  });
  EXPECT_EQ(form.ActiveControl(), &form.optOne);
  EXPECT_FALSE(form.optOne.Value());
}

TEST_F(Keyboard, ArrowsSelectTheNextOption) {
  form.optOne.SetFocus();
  Play([&](Hands& hands) {
    Until([&] { return hands.Has(form.optOne); });
    hands.Press(VK_DOWN);
    Until([&] { return hands.Has(form.optTwo); });
  });
  EXPECT_TRUE(form.optTwo.Value());
  EXPECT_EQ(form.events, std::vector<std::string>{"two"});
}

TEST_F(Keyboard, EnterPressesTheDefaultButton) {
  Play([&](Hands& hands) { hands.Press(VK_RETURN); });
  EXPECT_EQ(form.events, std::vector<std::string>{"ok"});
}

TEST_F(Keyboard, EnterPressesTheButtonWithTheFocus) {
  form.butCancel.SetFocus();
  Play([&](Hands& hands) {
    Until([&] { return hands.Has(form.butCancel); });
    hands.Press(VK_RETURN);
  });
  EXPECT_EQ(form.events, std::vector<std::string>{"cancel"});
}

TEST_F(Keyboard, AHeldEnterPressesNothing) {
  Play([&](Hands& hands) { ::PostMessageW(hands.Focus(), WM_KEYDOWN, VK_RETURN, LPARAM{1} << 30); });
  EXPECT_EQ(form.events, std::vector<std::string>{});
}

TEST_F(Keyboard, EscapePressesTheCancelButton) {
  Play([&](Hands& hands) { hands.Press(VK_ESCAPE); });
  EXPECT_EQ(form.events, std::vector<std::string>{"cancel"});
}

TEST_F(Keyboard, AControlHearsItsKeysFirst) {
  std::vector<Key> heard;
  form.txt.KeyDown = [&](const KeyPress& press) {
    heard.push_back(press.key);
    return true;
  };
  Play([&](Hands& hands) {
    for (const auto key : {VK_RETURN, VK_ESCAPE, VK_DELETE, VK_UP, VK_DOWN}) hands.Press(static_cast<WPARAM>(key));
  });
  EXPECT_EQ(heard, (std::vector{Key::Enter, Key::Escape, Key::Delete, Key::Up, Key::Down}));
  EXPECT_EQ(form.events, std::vector<std::string>{});
}

TEST_F(Keyboard, ShiftTabVisitsTheTabOrderBackwards) {
  std::vector<Control*> visited;
  Play([&](Hands& hands) {
    for (int i = 0; i < 4; ++i) {
      const auto before = form.ActiveControl();
      visited.push_back(before);
      hands.PressWithShift(VK_TAB);
      if (!Until([&] { return form.ActiveControl() != before; })) return;
    }
  });
  const std::vector<Control*> expected = {&form.txt, &form.butCancel, &form.butOk, &form.notes};
  EXPECT_EQ(visited, expected);
}

TEST_F(Keyboard, AltAndALabelsLetterGoToTheControlBehindIt) {
  form.grd.SetFocus();
  bool came = false;
  Play([&](Hands& hands) {
    Until([&] { return hands.Has(form.grd); });
    hands.TypeAlt('t');
    came = Until([&] { return hands.Has(form.txt); });
  });
  EXPECT_TRUE(came);
  EXPECT_EQ(form.events, std::vector<std::string>{});
}

TEST_F(Keyboard, AltAndAButtonsLetterPressIt) {
  Play([&](Hands& hands) { hands.TypeAlt('o'); });
  EXPECT_EQ(form.events, std::vector<std::string>{"ok"});
}

TEST_F(Keyboard, AltAndALetterOfADisabledButtonDoNothing) {
  form.butOk.Enabled(false);
  Play([&](Hands& hands) { hands.TypeAlt('o'); });
  EXPECT_EQ(form.events, std::vector<std::string>{});
}

TEST_F(Keyboard, AControlHearsAltAndAnArrow) {
  std::vector<KeyPress> heard;
  form.lst.KeyDown = [&](const KeyPress& press) {
    heard.push_back(press);
    return true;
  };
  form.lst.ListIndex(1);
  form.lst.SetFocus();
  Play([&](Hands& hands) {
    Until([&] { return hands.Has(form.lst); });
    hands.PressAlt(VK_UP);
    hands.PressAlt(VK_DOWN);
    Until([&] { return heard.size() == 2; });
  });
  ASSERT_EQ(heard.size(), 2u);
  EXPECT_EQ(heard[0].key, Key::Up);
  EXPECT_EQ(heard[1].key, Key::Down);
  EXPECT_TRUE(heard[0].alt && heard[1].alt);
  EXPECT_EQ(form.lst.ListIndex(), 1) << "the list itself must not use the keys";
}

TEST_F(Keyboard, AltAndDownDropAComboDownAndAltAndUpCloseIt) {
  form.com.SetFocus();
  bool dropped = false, closed = false;
  Play([&](Hands& hands) {
    const auto isOpen = [&] { return ::SendMessageW(hands.Of(form.com), CB_GETDROPPEDSTATE, 0, 0) != 0; };
    Until([&] { return ::IsChild(hands.Of(form.com), hands.Focus()) != FALSE; });
    hands.PressAlt(VK_DOWN);
    dropped = Until(isOpen);
    hands.PressAlt(VK_UP);
    closed = Until([&] { return !isOpen(); });
  });
  EXPECT_TRUE(dropped);
  EXPECT_TRUE(closed);
}

TEST_F(Keyboard, TheFocusLeavesAControlThatIsDisabled) {
  form.txt.Change = [&] { form.txt.Enabled(false); };
  bool left = false;
  Play([&](Hands& hands) {
    hands.Type(L'x');
    left = Until([&] { return hands.Focus() && !hands.Has(form.txt); });
  });
  EXPECT_TRUE(left);
  EXPECT_EQ(form.ActiveControl(), &form.com);
}

}  // namespace
}  // namespace pellora::windows
