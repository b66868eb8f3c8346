#include <gtest/gtest.h>

#include <optional>

#include "platform/libreoffice/forms/Form.h"
#include "tests/libreoffice/forms/Hands.h"
#include "tests/libreoffice/forms/SampleForm.h"

namespace pellora::libreoffice {
namespace {

class Placing : public OfficeFormTest {
 protected:
  UnoFormPeer& Peer() { return static_cast<UnoFormPeer&>(*form.WindowPeer()); }
  void Resize(Size client) { Peer().GetWindow().get()->setOutputSize({client.width, client.height}); }
  Size Client() {
    const auto size = Peer().GetWindow().get()->getOutputSize();
    return {static_cast<int>(size.Width), static_cast<int>(size.Height)};
  }
  SampleForm form{toolkit};
};

TEST_F(Placing, AFormComesUpWhereItWas) {
  Placement wanted;
  wanted.normal = {200, 50, 900, 1000};
  form.SetPlacement(wanted);
  for (int i = 0; i < 3; ++i)
    Show(form, [&](Hands& hands) {
      EXPECT_TRUE(hands.FormIsUp());
      std::this_thread::sleep_for(std::chrono::milliseconds(200));
      hands.Press("Escape");
    });
  const auto place = form.GetPlacement().value_or(Placement{}).normal;
  EXPECT_NEAR(place.left, 200, 4);
  EXPECT_NEAR(place.top, 50, 4);
  EXPECT_NEAR(place.Width(), 700, 8);
  EXPECT_NEAR(place.Height(), 950, 30);
}

TEST_F(Placing, AnEnlargedFormIsLaidOutAgain) {
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    Size before;
    OnMainThread([&] {
      before = Client();
      Resize({before.width + 200, before.height + 100});
    });
    EXPECT_TRUE(hands.Until([&] { return form.butCancel.Bounds().bottom > before.height; }));
    EXPECT_TRUE(hands.Until([&] { return form.txt.Bounds().right > before.width; }));
    hands.Press("Escape");
  });
}

TEST_F(Placing, AFormIsNeverLeftSmallerThanItsContent) {
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    OnMainThread([&] { Resize({60, 60}); });
    EXPECT_TRUE(hands.Until([&] { return Client().height >= form.butCancel.Bounds().bottom; }));
    EXPECT_TRUE(hands.Until([&] { return Client().width >= form.grd.Bounds().right; }));
    hands.Press("Escape");
  });
}

TEST_F(Placing, AMaximisedFormGetsTheWholeDesktop) {
  Placement wanted;
  wanted.showCommand = 3;
  wanted.normal = {200, 150, 900, 900};
  form.SetPlacement(wanted);
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    OnMainThread([&] { EXPECT_GE(form.WindowPeer()->OuterSize().width, form.WindowPeer()->Desktop().Width()); });
    hands.Press("Escape");
  });
  EXPECT_EQ(form.WindowState(), WindowState::Maximized);
}

TEST_F(Placing, AMaximisedFormIsSaidToBeMaximisedWhileItIsShown) {
  Placement wanted;
  wanted.showCommand = 3;
  wanted.normal = {200, 150, 900, 900};
  form.SetPlacement(wanted);
  std::optional<Placement> shown;
  form.butOk.Click = [&] { shown = form.GetPlacement(); };
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.Press("Return");
    EXPECT_TRUE(hands.Until([&] { return shown.has_value(); }));
    hands.Press("Escape");
  });
  EXPECT_EQ(shown->showCommand, 3);
}

TEST_F(Placing, AFormEnlargedToTheWholeDesktopIsSaidToBeMaximised) {
  std::optional<Placement> shown;
  form.butOk.Click = [&] { shown = form.GetPlacement(); };
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    RunProgram("xdotool windowsize " + hands.WindowTitled("Sample") + " 100% 100%");
    EXPECT_TRUE(hands.Until([&] { return Client().width > 1500 && Client().height > 1100; }));
    hands.Press("Return");
    EXPECT_TRUE(hands.Until([&] { return shown.has_value(); }));
    hands.Press("Escape");
  });
  EXPECT_EQ(shown->showCommand, 3);
  EXPECT_LT(shown->normal.Height(), 1100) << "the size to go back to";
}

/// The windows that are not where their controls are, in a form that is shown.
std::string Misplaced(Form& form) {
  std::string misplaced;
  for (auto* control : form.Descendants()) {
    const auto& window = static_cast<const UnoControlPeer*>(control->Peer())->GetWindow();
    if (!window || !control->Usable()) continue;
    const auto has = window.get()->getPosSize();
    const auto& wants = control->Bounds();
    const auto same = has.X == wants.left && has.Y == wants.top && has.Width == wants.Width() && has.Width > 0;
    // A list with a field is as high as the toolkit wants it.
    if (!same || (control->Kind() != ControlKind::ComboBox && has.Height != wants.Height()))
      misplaced += control->Name() + " ";
  }
  return misplaced;
}

TEST_F(Placing, ControlsStandWhereTheyAreEveryTimeAFormIsShown) {
  for (int i = 0; i < 3; ++i)
    Show(form, [&](Hands& hands) {
      ASSERT_TRUE(hands.FormIsUp());
      std::string misplaced;
      EXPECT_TRUE(hands.Until([&] { return (misplaced = Misplaced(form)).empty(); })) << misplaced;
      OnMainThread([&] { form.Hide(); });
    });
}

}  // namespace
}  // namespace pellora::libreoffice
