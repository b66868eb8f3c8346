#include "forms/Form.h"

#include <gtest/gtest.h>

#include "forms/CheckBox.h"
#include "forms/TextBox.h"
#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using headless::HeadlessToolkit;
using headless::UserAtForm;
using test::NumberRaisedBy;
using test::PlainForm;

class FormLife : public testing::Test {
 protected:
  /// Expects the form once and plays a part at it.
  void Expect(std::function<void(UserAtForm&)> part) { toolkit.user.ExpectForm("frmPlain", std::move(part)); }
  void ExpectAndHide() {
    Expect([](UserAtForm& user) { user.form().Hide(); });
  }

  HeadlessToolkit toolkit;
  PlainForm form{toolkit};
};

TEST_F(FormLife, AFormBeginsUnloadedAndWithoutAPeer) {
  EXPECT_FALSE(form.Loaded());
  EXPECT_FALSE(form.Shown());
  EXPECT_EQ(form.WindowPeer(), nullptr);
}

TEST_F(FormLife, LoadingMakesThePeerBeforeTheLoadEvent) {
  bool hadPeer = false;
  form.Loads = [&] { hadPeer = form.WindowPeer() != nullptr; };
  form.Load();
  EXPECT_TRUE(hadPeer);
  EXPECT_TRUE(form.Loaded());
  EXPECT_FALSE(form.Shown());
}

TEST_F(FormLife, LoadingTwiceRunsTheLoadEventOnce) {
  form.Load();
  form.Load();
  EXPECT_EQ(form.loads, 1);
}

TEST_F(FormLife, ShowingLoadsAFormThatIsNotLoaded) {
  ExpectAndHide();
  form.Show();
  EXPECT_EQ(form.loads, 1);
  EXPECT_EQ(toolkit.user.Verify(), "");
}

TEST_F(FormLife, ShownIsTrueOnlyMeanwhile) {
  bool shownAtLoad = false, shownMeanwhile = false, shownAfterHide = true;
  form.Loads = [&] { shownAtLoad = form.Shown(); };
  Expect([&](UserAtForm& user) {
    shownMeanwhile = user.form().Shown();
    user.form().Hide();
    shownAfterHide = user.form().Shown();
  });
  form.Show();
  EXPECT_TRUE(shownAtLoad);
  EXPECT_TRUE(shownMeanwhile);
  EXPECT_FALSE(shownAfterHide);
}

TEST_F(FormLife, ThePeerIsDroppedWhenTheFormIsHidden) {
  CheckBox box(form, "chkOne", "One");
  bool hadPeer = false;
  Expect([&](UserAtForm& user) {
    hadPeer = box.Peer() != nullptr;
    user.form().Hide();
  });
  form.Show();
  EXPECT_TRUE(hadPeer);
  EXPECT_EQ(form.WindowPeer(), nullptr);
  EXPECT_EQ(box.Peer(), nullptr);
  EXPECT_EQ(toolkit.formPeers, 0);
}

TEST_F(FormLife, StateOutlivesThePeer) {
  TextBox box(form, "txtOne");
  Expect([](UserAtForm& user) {
    user.Type("txtOne", "kept");
    user.form().Hide();
  });
  form.Show();
  EXPECT_EQ(box.Text(), "kept");
  EXPECT_TRUE(form.Loaded());
}

TEST_F(FormLife, TheNextShowingMakesThePeerAgainWithoutLoadingAgain) {
  ExpectAndHide();
  ExpectAndHide();
  form.Show();
  form.Show();
  EXPECT_EQ(form.loads, 1);
  EXPECT_EQ(toolkit.user.Verify(), "");
}

TEST_F(FormLife, ThePlaceOutlivesThePeer) {
  Placement moved;
  moved.normal = {10, 20, 300, 400};
  Expect([&](UserAtForm& user) {
    user.form().WindowPeer()->SetPlacement(moved);
    user.form().Hide();
  });
  form.Show();
  EXPECT_EQ(form.GetPlacement(), moved);
}

TEST_F(FormLife, AStoredPlacementIsAppliedToTheNextPeer) {
  Placement stored;
  stored.normal = {10, 20, 300, 400};
  form.SetPlacement(stored);
  EXPECT_EQ(form.GetPlacement(), stored);
  form.Load();
  EXPECT_EQ(form.WindowPeer()->GetPlacement(), stored);
}

TEST_F(FormLife, AFormThatNeverHadAPeerTellsNoPlacement) { EXPECT_EQ(form.GetPlacement(), std::nullopt); }

TEST_F(FormLife, APlatformThatRefusesTellsNoPlacement) {
  form.Load();
  toolkit.refusesPlacement = true;
  EXPECT_EQ(form.GetPlacement(), std::nullopt);
}

TEST_F(FormLife, AFormHiddenWhileItLoadsIsNotShown) {
  form.Loads = [&] { form.Hide(); };
  form.Show();
  EXPECT_EQ(toolkit.user.Verify(), "");
  EXPECT_TRUE(form.Loaded());
  EXPECT_EQ(toolkit.formPeers, 0);
}

TEST_F(FormLife, AFormUnloadedWhileItLoadsIsNotShown) {
  form.Loads = [&] { form.Unload(); };
  form.Show();
  EXPECT_EQ(toolkit.user.Verify(), "");
  EXPECT_FALSE(form.Loaded());
  EXPECT_EQ(toolkit.formPeers, 0);
}

TEST_F(FormLife, AFailingLoadLeavesNothingBehind) {
  form.Loads = [] { throw Error(errors::OutOfMemory); };
  EXPECT_EQ(NumberRaisedBy([&] { form.Show(); }), errors::OutOfMemory);
  EXPECT_FALSE(form.Loaded());
  EXPECT_FALSE(form.Shown());
  EXPECT_EQ(toolkit.formPeers, 0);
}

TEST_F(FormLife, AFormLoadsAgainAfterAFailure) {
  form.Loads = [this] {
    if (form.loads == 1) throw Error(errors::OutOfMemory);
  };
  NumberRaisedBy([&] { form.Load(); });
  form.Load();
  EXPECT_TRUE(form.Loaded());
}

TEST_F(FormLife, AToolkitThatMakesNoPeerLeavesTheFormUnloaded) {
  toolkit.refusesPeer = errors::OutOfMemory;
  EXPECT_EQ(NumberRaisedBy([&] { form.Show(); }), errors::OutOfMemory);
  EXPECT_FALSE(form.Loaded());
  EXPECT_FALSE(form.Shown());
  EXPECT_EQ(form.loads, 0);
}

TEST_F(FormLife, AFormThatIsShownRefusesToBeShownAgain) {
  std::int32_t number = 0;
  Expect([&](UserAtForm& user) {
    number = NumberRaisedBy([&] { user.form().Show(); });
    user.form().Hide();
  });
  form.Show();
  EXPECT_EQ(number, 400);
  EXPECT_EQ(toolkit.user.Verify(), "");
}

TEST_F(FormLife, AFormThatShowsItselfWhileItLoadsIsShownOnce) {
  form.Loads = [this] { form.Show(); };
  ExpectAndHide();
  form.Show();
  EXPECT_EQ(toolkit.user.Verify(), "");
  EXPECT_EQ(form.loads, 1);
  EXPECT_EQ(toolkit.formPeers, 0);
}

TEST_F(FormLife, AFormHiddenWhileItComesUpEndsItsShowing) {
  form.Activates = [this] { form.Hide(); };
  form.Show();
  EXPECT_EQ(toolkit.user.Verify(), "");
  EXPECT_EQ(toolkit.formPeers, 0);
}

TEST_F(FormLife, AFailingShowingLeavesTheFormLoadedAndHidden) {
  form.Activates = [] { throw Error(errors::OutOfMemory); };
  EXPECT_EQ(NumberRaisedBy([&] { form.Show(); }), errors::OutOfMemory);
  EXPECT_FALSE(form.Shown());
  EXPECT_TRUE(form.Loaded());
  EXPECT_EQ(toolkit.formPeers, 0);
  EXPECT_EQ(toolkit.shown, 0);
}

TEST_F(FormLife, AFailingUnloadEventStillUnloads) {
  form.Unloads = [] { throw Error(errors::OutOfMemory); };
  form.Load();
  EXPECT_EQ(NumberRaisedBy([&] { form.Unload(); }), errors::OutOfMemory);
  EXPECT_FALSE(form.Loaded());
  EXPECT_EQ(toolkit.formPeers, 0);
}

TEST_F(FormLife, HidingAFormThatIsNotShownDoesNothing) {
  form.Load();
  form.Hide();
  EXPECT_NE(form.WindowPeer(), nullptr);
  EXPECT_TRUE(form.Loaded());
}

TEST_F(FormLife, UnloadingByCodeAsksWithTheModeOfCode) {
  form.Load();
  form.Unload();
  EXPECT_EQ(form.unloadModes, std::vector<std::int16_t>{kUnloadByCode});
  EXPECT_EQ(form.unloads, 1);
  EXPECT_FALSE(form.Loaded());
  EXPECT_EQ(toolkit.formPeers, 0);
}

TEST_F(FormLife, UnloadingAFormThatIsNotLoadedAsksNothing) {
  form.Unload();
  EXPECT_TRUE(form.unloadModes.empty());
  EXPECT_EQ(form.unloads, 0);
}

TEST_F(FormLife, TheCloseBoxUnloadsWhenNothingCancels) {
  Expect([](UserAtForm& user) { user.CloseBox(); });
  form.Show();
  EXPECT_EQ(form.unloadModes, std::vector<std::int16_t>{kUnloadByUser});
  EXPECT_EQ(form.unloads, 1);
  EXPECT_FALSE(form.Loaded());
  EXPECT_EQ(toolkit.formPeers, 0);
  EXPECT_EQ(toolkit.user.Verify(), "");
}

TEST_F(FormLife, ACloseBoxThatIsCancelledLeavesTheFormShown) {
  form.QueriesUnload = [](std::int16_t& cancel, std::int16_t&) { cancel = 1; };
  bool shown = false;
  Expect([&](UserAtForm& user) {
    user.CloseBox();
    shown = user.form().Shown();
    user.form().Hide();
  });
  form.Show();
  EXPECT_TRUE(shown);
  EXPECT_EQ(form.unloads, 0);
  EXPECT_TRUE(form.Loaded());
}

TEST_F(FormLife, ACloseBoxMayCancelAndOnlyHide) {
  form.QueriesUnload = [this](std::int16_t& cancel, std::int16_t&) {
    cancel = 1;
    form.Hide();
  };
  Expect([](UserAtForm& user) { user.CloseBox(); });
  form.Show();
  EXPECT_TRUE(form.Loaded());
  EXPECT_EQ(form.unloads, 0);
  EXPECT_EQ(toolkit.user.Verify(), "");
}

TEST_F(FormLife, AnUnloadInsideTheUnloadEventsIsTheSameUnload) {
  form.QueriesUnload = [this](std::int16_t&, std::int16_t&) { form.Unload(); };
  form.Unloads = [this] { form.Unload(); };
  form.Load();
  form.Unload();
  EXPECT_EQ(form.unloads, 1);
  EXPECT_EQ(form.unloadModes.size(), 1u);
}

TEST_F(FormLife, AFormUnloadedByItsOwnButtonKeepsItsPeerUntilTheHandlerReturns) {
  CommandButton button(form, "ButGo", "Go");
  bool hadPeer = false;
  button.Click = [&] {
    form.Unload();
    hadPeer = button.Peer() != nullptr;
  };
  Expect([](UserAtForm& user) { user.Click("ButGo"); });
  form.Show();
  EXPECT_TRUE(hadPeer);
  EXPECT_EQ(toolkit.formPeers, 0);
  EXPECT_EQ(toolkit.user.Verify(), "");
}

TEST_F(FormLife, AnUnloadedFormLoadsAgain) {
  form.Load();
  form.Unload();
  form.Load();
  EXPECT_EQ(form.loads, 2);
}

TEST_F(FormLife, DestroyingAFormRaisesNothing) {
  int unloads = 0;
  {
    PlainForm passing(toolkit);
    CheckBox box(passing, "chkOne", "One");
    passing.Unloads = [&] { ++unloads; };
    passing.QueriesUnload = [&](std::int16_t&, std::int16_t&) { ++unloads; };
    passing.Load();
  }
  EXPECT_EQ(unloads, 0);
  EXPECT_EQ(toolkit.formPeers, 0);
}

TEST_F(FormLife, ActivationIsRaisedWhenTheFormComesUp) {
  int activations = 0;
  form.Activates = [&] { ++activations; };
  form.Load();
  EXPECT_EQ(activations, 0);
  ExpectAndHide();
  form.Show();
  EXPECT_EQ(activations, 1);
}

TEST(Form, CriticalMessagesHaveOneButtonAndTheProductsTitle) {
  HeadlessToolkit toolkit;
  PlainForm form(toolkit);
  toolkit.user.ExpectMessage("Wrong.");
  form.ShowCritical("Wrong.");
  ASSERT_EQ(toolkit.user.Messages().size(), 1u);
  const auto& message = toolkit.user.Messages().front();
  EXPECT_EQ(message.title, "Vantix");
  EXPECT_EQ(message.buttons, MessageButtons::Ok);
  EXPECT_TRUE(message.critical);
  EXPECT_EQ(toolkit.user.Verify(), "");
}

TEST(Form, TagAndCaptionAreKept) {
  HeadlessToolkit toolkit;
  PlainForm form(toolkit);
  form.Tag("2");
  form.Caption("Error");
  EXPECT_EQ(form.Tag(), "2");
  EXPECT_EQ(form.Caption(), "Error");
}

}  // namespace
}  // namespace pellora
