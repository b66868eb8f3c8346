#include <gmock/gmock.h>

#include "tests/forms/SampleForm.h"
#include "tests/libreoffice/forms/Hands.h"

namespace pellora::libreoffice {
namespace {

using test::SampleForm;
using testing::ElementsAre;
using testing::IsEmpty;

class Controls : public OfficeFormTest {
 protected:
  /// Shows the form, plays the part once it is up, and hides it.
  void Use(const std::function<void(Hands&)>& part) {
    Show(form, [&](Hands& hands) {
      EXPECT_TRUE(hands.FormIsUp());
      part(hands);
      OnMainThread([&] { form.Hide(); });
    });
  }
  SampleForm form{toolkit};
};

TEST_F(Controls, ATextTypedIsTheControls) {
  Use([&](Hands& hands) {
    hands.Type("abc");
    EXPECT_TRUE(hands.Until([&] { return form.txt.Text() == "abc"; }));
  });
  EXPECT_THAT(form.events, ElementsAre("txt:a", "txt:ab", "txt:abc"));
}

TEST_F(Controls, ATextSetByCodeIsShownAndRaisesOneEvent) {
  Use([&](Hands& hands) {
    OnMainThread([&] {
      form.txt.Text("äß€");
      form.txt.SelectAll();
    });
    hands.Press("End");
    hands.Type("x");
    EXPECT_TRUE(hands.Until([&] { return form.txt.Text() == "äß€x"; }));
  });
  EXPECT_THAT(form.events, ElementsAre("txt:äß€", "txt:äß€x"));
}

TEST_F(Controls, ACheckBoxIsTickedAndUntickedByClicks) {
  Use([&](Hands& hands) {
    hands.Click(form.chk);
    EXPECT_TRUE(hands.Until([&] { return form.chk.Value() == 1; }));
    hands.Click(form.chk);
    EXPECT_TRUE(hands.Until([&] { return form.chk.Value() == 0; }));
  });
  EXPECT_THAT(form.events, ElementsAre("chk:1", "chk:0"));
}

TEST_F(Controls, AGreyedCheckBoxBecomesUntickedByAClick) {
  form.chk.Value(2);
  form.events.clear();
  Use([&](Hands& hands) {
    hands.Click(form.chk);
    EXPECT_TRUE(hands.Until([&] { return form.chk.Value() == 0; }));
  });
  EXPECT_THAT(form.events, ElementsAre("chk:0"));
}

TEST_F(Controls, AnOptionChosenDeselectsTheOther) {
  Use([&](Hands& hands) {
    hands.Click(form.optTwo);
    EXPECT_TRUE(hands.Until([&] { return form.optTwo.Value(); }));
    hands.Click(form.optOne);
    EXPECT_TRUE(hands.Until([&] { return form.optOne.Value() && !form.optTwo.Value(); }));
  });
  EXPECT_THAT(form.events, ElementsAre("two", "one"));
}

TEST_F(Controls, ArrowsMoveAmongOptionsAndSelect) {
  Use([&](Hands& hands) {
    hands.Click(form.optOne);
    EXPECT_TRUE(hands.HasFocus(form.optOne));
    hands.Press("Down");
    EXPECT_TRUE(hands.HasFocus(form.optTwo));
  });
  EXPECT_THAT(form.events, ElementsAre("one", "two"));
}

TEST_F(Controls, AnItemOfAListIsChosenByAClickAndByArrows) {
  Use([&](Hands& hands) {
    hands.Click(form.lst, {20, 8});
    EXPECT_TRUE(hands.Until([&] { return form.lst.ListIndex() == 0; }));
    hands.Press("Down");
    EXPECT_TRUE(hands.Until([&] { return form.lst.ListIndex() == 1; }));
  });
  EXPECT_THAT(form.events, ElementsAre("lst:0", "lst:1"));
}

TEST_F(Controls, TypingInAComboCompletesFromItsItems) {
  Use([&](Hands& hands) {
    hands.Click(form.com, {20, 10});
    EXPECT_TRUE(hands.HasFocus(form.com));
    hands.Type("na");
    EXPECT_TRUE(hands.Until([&] { return form.com.Text() == "naSDAQ"; }));
    hands.Press("Delete");
    EXPECT_TRUE(hands.Until([&] { return form.com.Text() == "na"; }));
  });
  EXPECT_THAT(form.events, ElementsAre("com:nYSE", "com:naSDAQ", "com:na"));
}

TEST_F(Controls, AnItemOfAnOpenComboIsChosenWithOneClickEvent) {
  Use([&](Hands& hands) {
    hands.Click(form.com, {20, 10});
    EXPECT_TRUE(hands.HasFocus(form.com));
    hands.Press("alt+Down");
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    hands.Press("Down");
    hands.Press("Down");
    hands.Press("Return");
    EXPECT_TRUE(hands.Until([&] { return !form.com.Text().empty(); }));
    EXPECT_TRUE(form.Shown()) << "Return in an open list is the list's";
  });
  EXPECT_EQ(form.com.ListIndex() >= 0, true);
}

TEST_F(Controls, EscapeClosesAnOpenListAndNotTheForm) {
  Use([&](Hands& hands) {
    hands.Click(form.drop);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    hands.Press("Escape");
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_TRUE(form.Shown());
  });
  EXPECT_THAT(form.events, IsEmpty());
}

TEST_F(Controls, AnItemOfADropDownListIsChosenByTheMouse) {
  Use([&](Hands& hands) {
    hands.Click(form.drop);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    OnMainThread([] {});
    hands.Click(form.drop, {20, static_cast<int>(form.drop.Bounds().Height()) + 24});
    EXPECT_TRUE(hands.Until([&] { return form.drop.ListIndex() == 1; }));
  });
  EXPECT_THAT(form.events, ElementsAre("drop:NYSE"));
}

TEST_F(Controls, ARowOfAGridIsChosenByKeysAndMouse) {
  Use([&](Hands& hands) {
    OnMainThread([&] { form.grd.SetFocus(); });
    hands.Press("Down");
    EXPECT_TRUE(hands.Until([&] { return form.grd.Row() == 1; }));
    hands.Press("End");
    EXPECT_TRUE(hands.Until([&] { return form.grd.Row() == 5; }));
    hands.Click(form.grd, {30, 60});
    EXPECT_TRUE(hands.Until([&] { return form.grd.Row() < 5; }));
  });
  EXPECT_EQ(form.events.size(), 3u);
}

TEST_F(Controls, AGridOfThousandsOfRowsComesUpAtOnce) {
  form.grd.Rows(200001);
  const auto begin = std::chrono::steady_clock::now();
  Use([&](Hands& hands) {
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
    OnMainThread([&] { form.grd.Row(200000); });
    OnMainThread([&] { form.grd.SetFocus(); });
    hands.Press("Up");
    EXPECT_TRUE(hands.Until([&] { return form.grd.Row() == 199999; }));
  });
}

TEST_F(Controls, AButtonThatCannotBeUsedIsNotPressed) {
  form.butOk.Enabled(false);
  Use([&](Hands& hands) {
    hands.Click(form.butOk);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_TRUE(form.Shown());
  });
  EXPECT_THAT(form.events, IsEmpty());
}

TEST_F(Controls, LinesAreBrokenByReturnAndEndInCarriageReturnAndLineFeed) {
  Use([&](Hands& hands) {
    hands.Click(form.notes);
    EXPECT_TRUE(hands.HasFocus(form.notes));
    hands.Type("a");
    hands.Press("Return");
    hands.Type("b");
    EXPECT_TRUE(hands.Until([&] { return form.notes.Text() == "a\r\nb"; }));
  });
}

TEST_F(Controls, AControlDisabledByCodeLosesTheKeyboardToTheNext) {
  Use([&](Hands& hands) {
    OnMainThread([&] { form.txt.Enabled(false); });
    EXPECT_TRUE(hands.HasFocus(form.com));
  });
}

}  // namespace
}  // namespace pellora::libreoffice
