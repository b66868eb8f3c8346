#include "Hands.h"
#include "SampleForm.h"
#include "platform/windows/forms/ListItems.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows {
namespace {

using Events = std::vector<std::string>;

class Controls : public WindowsFormTest {
 protected:
  void Play(const std::function<void(Hands&)>& part) {
    const Player player([&](Hands& hands) {
      const auto window = hands.WaitFor(form);
      Until([&] { return hands.Has(*form.ActiveControl()); });
      part(hands);
      hands.Close(window);
    });
    form.Show();
  }
  std::wstring TextIn(const Control& control) { return TextOf(Hands::Of(control)); }
  SampleForm form{toolkit};
};

TEST_F(Controls, TypingIsHeardLetterByLetter) {
  Play([&](Hands& hands) {
    hands.Type(L'a');
    hands.Type(L'b');
  });
  EXPECT_EQ(form.events, (Events{"txt:a", "txt:ab"}));
}

TEST_F(Controls, ATextSetByCodeIsHeardOnce) {
  form.Load();
  form.txt.Text("set");
  EXPECT_EQ(TextIn(form.txt), L"set");
  EXPECT_EQ(form.events, Events{"txt:set"});
}

TEST_F(Controls, AClickTicksTheBoxOnce) {
  Play([&](Hands& hands) { hands.Click(form.chk); });
  EXPECT_EQ(form.chk.Value(), 1);
  EXPECT_EQ(form.events, Events{"chk"});
}

TEST_F(Controls, AGreyedBoxShowsGreyedAndAClickUnticksIt) {
  form.chk.Value(2);
  form.events.clear();
  LRESULT shown = 0;
  Play([&](Hands& hands) {
    shown = ::SendMessageW(hands.Of(form.chk), BM_GETCHECK, 0, 0);
    hands.Click(form.chk);
  });
  EXPECT_EQ(shown, BST_INDETERMINATE);
  EXPECT_EQ(form.chk.Value(), 0);
}

TEST_F(Controls, AClickOnAnOptionSelectsItAlone) {
  form.optOne.Value(true);
  form.events.clear();
  LRESULT first = 1;
  Play([&](Hands& hands) {
    hands.Click(form.optTwo);
    Until([&] { return form.optTwo.Value(); });
    first = ::SendMessageW(hands.Of(form.optOne), BM_GETCHECK, 0, 0);
  });
  EXPECT_EQ(first, BST_UNCHECKED);
  EXPECT_EQ(form.events, Events{"two"});
}

TEST_F(Controls, TypingInAComboCompletesFromItsItems) {
  form.com.SetFocus();
  DWORD selection = 0;
  Play([&](Hands& hands) {
    hands.Type(L'n');
    hands.Type(L'a');
    Until([&] { return form.com.Text() == "naSDAQ"; });
    selection = static_cast<DWORD>(::SendMessageW(hands.Of(form.com), CB_GETEDITSEL, 0, 0));
  });
  EXPECT_EQ(form.events, (Events{"com:nYSE", "com:naSDAQ"}));
  EXPECT_EQ(LOWORD(selection), 2);
  EXPECT_EQ(HIWORD(selection), 6);
}

TEST_F(Controls, ATextThatNoItemBeginsWithStays) {
  form.com.SetFocus();
  Play([&](Hands& hands) { hands.Type(L'x'); });
  EXPECT_EQ(form.com.Text(), "x");
}

TEST_F(Controls, DeletingTheCompletionIsNotUndone) {
  form.com.SetFocus();
  Play([&](Hands& hands) {
    hands.Type(L'S');
    Until([&] { return form.com.Text() == "SMART"; });
    hands.Press(VK_DELETE);
    Until([&] { return form.com.Text() == "S"; });
  });
  EXPECT_EQ(form.com.Text(), "S");
}

TEST_F(Controls, AChosenItemShowsInTheCombo) {
  form.Load();
  form.com.ListIndex(2);
  EXPECT_EQ(TextIn(form.com), L"NASDAQ");
}

TEST_F(Controls, ArrowsChooseInAList) {
  form.lst.ListIndex(0);
  form.events.clear();
  form.lst.SetFocus();
  Play([&](Hands& hands) {
    Until([&] { return hands.Has(form.lst); });
    hands.Press(VK_DOWN);
  });
  EXPECT_EQ(form.lst.ListIndex(), 1);
  EXPECT_EQ(form.events, Events{"lst"});
}

TEST_F(Controls, ItemsMovedByCodeAreShown) {
  form.Load();
  form.lst.ListIndex(2);
  form.lst.AddItem("NASDAQ", 0);
  form.lst.RemoveItem(3);
  wchar_t text[20] = L"";
  ::SendMessageW(Hands::Of(form.lst), LB_GETTEXT, 0, reinterpret_cast<LPARAM>(text));
  EXPECT_STREQ(text, L"NASDAQ");
  EXPECT_EQ(::SendMessageW(Hands::Of(form.lst), LB_GETCOUNT, 0, 0), 3);
}

TEST_F(Controls, ArrowsMoveTheGridsCurrentRow) {
  form.grd.Row(2);
  form.events.clear();
  form.grd.SetFocus();
  Play([&](Hands& hands) {
    Until([&] { return hands.Has(form.grd); });
    hands.Press(VK_DOWN);
    Until([&] { return form.grd.Row() == 3; });
  });
  EXPECT_EQ(form.events, Events{"row3"});
}

TEST_F(Controls, ARowMadeCurrentByCodeIsHeardOnceAndShown) {
  form.Load();
  form.grd.Row(4);
  EXPECT_EQ(form.events, Events{"row4"});
  EXPECT_EQ(::SendMessageW(Hands::Of(form.grd), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 3);
}

TEST_F(Controls, TheGridShowsTheControlsTexts) {
  form.Load();
  form.grd.Text(2, 1, "STK");
  wchar_t text[20] = L"";
  LVITEMW item{};
  item.iSubItem = 1;
  item.pszText = text;
  item.cchTextMax = 20;
  ::SendMessageW(Hands::Of(form.grd), LVM_GETITEMTEXTW, 1, reinterpret_cast<LPARAM>(&item));
  EXPECT_STREQ(text, L"STK");
}

TEST_F(Controls, AHundredThousandRowsAreOnlyCounted) {
  form.Load();
  form.grd.Rows(100001);
  EXPECT_EQ(::SendMessageW(Hands::Of(form.grd), LVM_GETITEMCOUNT, 0, 0), 100000);
}

TEST_F(Controls, ADisabledFrameDisablesWhatStandsInIt) {
  form.Load();
  form.fra.Enabled(false);
  EXPECT_FALSE(::IsWindowEnabled(Hands::Of(form.optOne)));
  EXPECT_TRUE(::IsWindowEnabled(Hands::Of(form.txt)));
}

TEST_F(Controls, AHiddenControlIsHiddenInTheWindow) {
  form.Load();
  form.chk.Visible(false);
  EXPECT_FALSE(::GetWindowLongPtrW(Hands::Of(form.chk), GWL_STYLE) & WS_VISIBLE);
}

TEST(NativeCaption, UnderlinesTheFirstOccurrenceOfTheKey) {
  EXPECT_EQ(NativeCaption("Insert >>", 'n'), L"I&nsert >>");
  EXPECT_EQ(NativeCaption("Insert && new", 'N'), L"I&nsert && new");
  EXPECT_EQ(NativeCaption("Insert && new", 0), L"Insert && new");
}

TEST(NativeCaption, AppendsAKeyThatTheCaptionLacks) { EXPECT_EQ(NativeCaption("...", 'e'), L"... (&E)"); }

TEST(ListItems, OnlyWhatDiffersIsChanged) {
  ListItems items;
  std::vector<std::string> calls;
  const auto follow = [&](const std::vector<std::string>& wanted) {
    calls.clear();
    items.Follow(
        wanted, [&](int i) { calls.push_back("-" + std::to_string(i)); },
        [&](int i, const std::string& item) { calls.push_back("+" + std::to_string(i) + item); });
  };
  follow({"a", "b", "c"});
  EXPECT_EQ(calls, (Events{"+0a", "+1b", "+2c"}));
  follow({"a", "x", "c"});
  EXPECT_EQ(calls, (Events{"-1", "+1x"}));
  follow({"a", "x", "c"});
  EXPECT_EQ(calls, Events{});
}

}  // namespace
}  // namespace pellora::windows
