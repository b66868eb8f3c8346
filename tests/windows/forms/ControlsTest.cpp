#include "SampleFormTest.h"
#include "forms/ListItems.h"
#include "forms/Pages.h"
#include "platform/windows/forms/Fonts.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows {
namespace {

using test::SampleForm;
using Events = std::vector<std::string>;

class Controls : public SampleFormTest {
 protected:
  std::wstring TextIn(const Control& control) { return TextOf(Hands::Of(control)); }
  static int Marked(const Control& combo) {
    const auto selection = static_cast<DWORD>(::SendMessageW(Hands::Of(combo), CB_GETEDITSEL, 0, 0));
    return HIWORD(selection) - LOWORD(selection);
  }
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
  EXPECT_EQ(form.events, Events{"chk:1"});
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
  EXPECT_EQ(form.events, Events{"lst:1"});
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

TEST_F(Controls, AComboThatComesUpWithoutTheFocusMarksNothing) {
  form.com.Text("SMART");
  Play([&](Hands&) { EXPECT_EQ(Marked(form.com), 0); });
}

TEST_F(Controls, ATextSetInAComboWithoutTheFocusIsNotMarked) {
  form.chk.Click = [&] { form.com.Text("SMART"); };
  Play([&](Hands& hands) {
    hands.Click(form.chk);
    Until([&] { return form.com.Text() == "SMART"; });
    EXPECT_EQ(Marked(form.com), 0);
  });
}

TEST_F(Controls, AnItemChosenByCodeInAComboWithoutTheFocusIsNotMarked) {
  form.chk.Click = [&] { form.com.ListIndex(2); };
  Play([&](Hands& hands) {
    hands.Click(form.chk);
    Until([&] { return form.com.Text() == "NASDAQ"; });
    EXPECT_EQ(Marked(form.com), 0);
  });
}

TEST_F(Controls, AComboThatIsResizedWithoutTheFocusMarksNothing) {
  form.com.Text("SMART");
  Play([&](Hands& hands) {
    const auto window = hands.WaitFor(form);
    ::SendMessageW(window, WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    EXPECT_TRUE(Until([&] { return ::IsZoomed(window) != FALSE; }));
    EXPECT_EQ(Marked(form.com), 0);
  });
}

TEST_F(Controls, TabMarksTheTextOfACombo) {
  form.com.Text("SMART");
  Play([&](Hands& hands) {
    hands.Press(VK_TAB);
    EXPECT_TRUE(Until([&] { return Marked(form.com) == 5; }));
  });
}

/// How many more pixels there are below an edit's line of text than above it, in the edit or the combo around it.
int OffCentre(HWND edit, HWND whole, int lineHeight) {
  POINT line{};
  RECT around{};
  ::ClientToScreen(edit, &line);
  ::GetWindowRect(whole, &around);
  return static_cast<int>((around.bottom - line.y - lineHeight) - (line.y - around.top));
}

TEST_F(Controls, TextStandsInTheMiddleOfBoxesAndCombosAtEveryScale) {
  for (const int dpi : {96, 120, 144, 192}) {
    toolkit.ForceDpi(dpi);
    SampleForm scaled(toolkit);
    scaled.Load();
    const auto height = Fonts(dpi).Measure("Ag", TextStyle::Normal).height;
    const auto box = Hands::Of(scaled.txt), combo = Hands::Of(scaled.com);
    EXPECT_LE(std::abs(OffCentre(box, box, height)), 1) << dpi;
    EXPECT_LE(std::abs(OffCentre(::GetWindow(combo, GW_CHILD), combo, height)), 1) << dpi;
  }
}

TEST_F(Controls, ABoxIsHitAboveItsTextToo) {
  form.Load();
  RECT place{};
  ::GetWindowRect(Hands::Of(form.txt), &place);
  const auto point = MAKELPARAM(place.left + 20, place.top + 3);
  EXPECT_EQ(::SendMessageW(Hands::Of(form.txt), WM_NCHITTEST, 0, point), HTCLIENT);
}

template <class Search>
BOOL CALLBACK IsTips(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  wchar_t name[80] = L"";
  ::GetClassNameW(window, name, 80);
  if (wcscmp(name, TOOLTIPS_CLASSW) != 0 || ::GetWindow(window, GW_OWNER) != search.form) return TRUE;
  search.tips = window;
  return FALSE;
}

/// The tip that a window of a form shows.
std::wstring TipOf(HWND window) {
  struct Search {
    HWND form, tips;
  } search{::GetAncestor(window, GA_ROOT), nullptr};
  ::EnumThreadWindows(::GetCurrentThreadId(), &IsTips<Search>, reinterpret_cast<LPARAM>(&search));
  wchar_t text[200] = L"";
  TOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.hwnd = search.form;
  tool.uId = reinterpret_cast<UINT_PTR>(window);
  tool.lpszText = text;
  ::SendMessageW(search.tips, TTM_GETTEXTW, 200, reinterpret_cast<LPARAM>(&tool));
  return text;
}

TEST_F(Controls, ATipGivenBeforeTheWindowIsShownByIt) {
  form.txt.ToolTip("Tape header & more");
  form.Load();
  EXPECT_EQ(TipOf(Hands::Of(form.txt)), L"Tape header & more");
}

TEST_F(Controls, ATipGivenLaterReplacesTheOldOne) {
  form.txt.ToolTip("Old");
  form.Load();
  form.txt.ToolTip("New");
  EXPECT_EQ(TipOf(Hands::Of(form.txt)), L"New");
}

TEST_F(Controls, TheEditInAComboShowsItsTip) {
  form.com.ToolTip("Exchange");
  form.Load();
  EXPECT_EQ(TipOf(::GetWindow(Hands::Of(form.com), GW_CHILD)), L"Exchange");
}

TEST_F(Controls, AnEmptyTipTakesItAway) {
  form.txt.ToolTip("Old");
  form.Load();
  form.txt.ToolTip("");
  EXPECT_EQ(TipOf(Hands::Of(form.txt)), L"");
}

/// Two pages with tabs.
class PagedForm : public Form {
 public:
  explicit PagedForm(Toolkit& toolkit) : Form(toolkit, "frmPaged") {
    Caption("Paged");
    two.AccessKey('p');
    Layout(Column({but, PageStack(pages, {txtOne, txtTwo})}));
  }
  CommandButton but{*this, "but", "First"};
  Pages pages{*this, "pages"};
  Page one{pages, "one", "Stock"};
  TextBox txtOne{one, "txtOne"};
  Page two{pages, "two", "Option"};
  TextBox txtTwo{two, "txtTwo"};
};

class Tabs : public WindowsFormTest {
 protected:
  void Play(const std::function<void(Hands&)>& part) {
    const Player player([&](Hands& hands) {
      const auto window = hands.WaitFor(form);
      Until([&] { return hands.Has(form.but); });
      part(hands);
      shown = Until(
          [&] { return ::IsWindowVisible(Hands::Of(form.txtTwo)) && !::IsWindowVisible(Hands::Of(form.txtOne)); });
      hands.Close(window);
    });
    form.Show();
  }
  PagedForm form{toolkit};
  std::atomic<bool> shown = false;
};

TEST_F(Tabs, AClickOnATabShowsItsPage) {
  Play([&](Hands& hands) {
    RECT tab{};
    ::SendMessageW(hands.Of(form.pages), TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&tab));
    const auto middle = MAKELPARAM((tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2);
    ::PostMessageW(hands.Of(form.pages), WM_LBUTTONDOWN, MK_LBUTTON, middle);
    ::PostMessageW(hands.Of(form.pages), WM_LBUTTONUP, 0, middle);
  });
  EXPECT_EQ(form.pages.CurrentPage(), 1);
  EXPECT_TRUE(shown);
}

TEST_F(Tabs, AltAndATabsLetterShowItsPage) {
  Play([&](Hands& hands) { hands.TypeAlt('p'); });
  EXPECT_EQ(form.pages.CurrentPage(), 1);
  EXPECT_TRUE(shown);
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
