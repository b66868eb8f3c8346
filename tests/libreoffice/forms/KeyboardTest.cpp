#include <gmock/gmock.h>

#include "platform/libreoffice/forms/Control.h"
#include "tests/forms/SampleForm.h"
#include "tests/libreoffice/forms/Hands.h"

namespace pellora::libreoffice {
namespace {

using test::SampleForm;
using testing::ElementsAre;

class Keyboard : public OfficeFormTest {
 protected:
  SampleForm form{toolkit};
};

TEST_F(Keyboard, TabGoesThroughTheTabOrderAndRound) {
  Show(form, [&](Hands& hands) {
    ASSERT_TRUE(hands.FormIsUp());
    std::vector<Control*> order;
    OnMainThread([&] { order = form.TabOrder(); });
    for (auto* control : order) {
      EXPECT_TRUE(hands.HasFocus(*control)) << control->Name();
      hands.Press("Tab");
    }
    EXPECT_TRUE(hands.HasFocus(*order.front()));
    hands.Press("shift+Tab");
    EXPECT_TRUE(hands.HasFocus(*order.back()));
    OnMainThread([&] { form.Hide(); });
  });
}

TEST_F(Keyboard, ReturnPressesTheDefaultButton) {
  Show(form, [&](Hands& hands) {
    ASSERT_TRUE(hands.FormIsUp());
    hands.Press("Return");
    EXPECT_TRUE(hands.Until([&] { return !form.Shown(); }));
  });
  EXPECT_THAT(form.events, ElementsAre("ok"));
}

TEST_F(Keyboard, ReturnPressesTheButtonWithTheKeyboard) {
  Show(form, [&](Hands& hands) {
    ASSERT_TRUE(hands.FormIsUp());
    hands.Press("shift+Tab");
    ASSERT_TRUE(hands.HasFocus(form.butCancel));
    hands.Press("Return");
    EXPECT_TRUE(hands.Until([&] { return !form.Shown(); }));
  });
  EXPECT_THAT(form.events, ElementsAre("cancel"));
}

TEST_F(Keyboard, EscapePressesTheCancelButton) {
  Show(form, [&](Hands& hands) {
    ASSERT_TRUE(hands.FormIsUp());
    hands.Press("Escape");
    EXPECT_TRUE(hands.Until([&] { return !form.Shown(); }));
  });
  EXPECT_THAT(form.events, ElementsAre("cancel"));
}

TEST_F(Keyboard, AControlHearsAKeyBeforeTheToolkit) {
  int heard = 0;
  form.txt.KeyDown = [&](const KeyPress& press) {
    if (press.key != Key::Delete) return false;
    ++heard;
    return true;
  };
  form.txt.Text("abc");
  Show(form, [&](Hands& hands) {
    ASSERT_TRUE(hands.FormIsUp());
    hands.Press("Home");
    hands.Press("Delete");
    EXPECT_TRUE(hands.Until([&] { return heard == 1; }));
    OnMainThread([&] { form.Hide(); });
  });
  EXPECT_EQ(form.txt.Text(), "abc");
}

TEST_F(Keyboard, AnAccessKeyClicksItsCheckBoxAndMovesTheKeyboardThere) {
  Show(form, [&](Hands& hands) {
    ASSERT_TRUE(hands.FormIsUp());
    hands.Press("alt+c");
    EXPECT_TRUE(hands.HasFocus(form.chk));
    EXPECT_TRUE(hands.Until([&] { return form.chk.Value() == 1; }));
    hands.Press("alt+t");
    EXPECT_TRUE(hands.HasFocus(form.txt)) << "the control behind the label";
    hands.Press("alt+o");
    EXPECT_TRUE(hands.Until([&] { return !form.Shown(); }));
  });
  EXPECT_THAT(form.events, ElementsAre("chk:1", "ok"));
}

TEST_F(Keyboard, TheToolkitDoesNotChooseAccessKeysOfItsOwn) {
  rtl::OUString caption;
  Show(form, [&](Hands& hands) {
    ASSERT_TRUE(hands.FormIsUp());
    OnMainThread([&] {
      static_cast<UnoControlPeer*>(form.butCancel.Peer())->GetWindow().Get("Label") >>= caption;
      form.Hide();
    });
  });
  EXPECT_EQ(caption, "Cancel");
}

TEST_F(Keyboard, AControlFocusedByCodeHasTheKeyboard) {
  form.lst.SetFocus();
  Show(form, [&](Hands& hands) {
    ASSERT_TRUE(hands.FormIsUp());
    EXPECT_TRUE(hands.HasFocus(form.lst)) << "chosen before the form was shown";
    OnMainThread([&] { form.grd.SetFocus(); });
    EXPECT_TRUE(hands.HasFocus(form.grd));
    OnMainThread([&] { form.Hide(); });
  });
}

TEST_F(Keyboard, AClickedControlIsTheActiveOne) {
  Show(form, [&](Hands& hands) {
    ASSERT_TRUE(hands.FormIsUp());
    for (auto* control : std::vector<Control*>{&form.com, &form.lst, &form.grd, &form.notes, &form.txt}) {
      hands.Click(*control, {20, 12});
      EXPECT_TRUE(hands.Until([&] { return form.ActiveControl() == control; })) << control->Name();
    }
    OnMainThread([&] { form.Hide(); });
  });
}

}  // namespace
}  // namespace pellora::libreoffice
