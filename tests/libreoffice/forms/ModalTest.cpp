#include <gmock/gmock.h>

#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <memory>

#include "platform/libreoffice/forms/Form.h"
#include "tests/forms/SampleForm.h"
#include "tests/libreoffice/forms/Hands.h"
#include "tests/libreoffice/runner/Runner.h"

namespace pellora::libreoffice {
namespace {

using test::SampleForm;
using testing::ElementsAre;

uno::Reference<com::sun::star::frame::XDesktop2> Desktop() {
  return com::sun::star::frame::Desktop::create(test::Office());
}

uno::Reference<com::sun::star::util::XCloseable> NewDocument() {
  return {Desktop()->loadComponentFromURL("private:factory/scalc", "_blank", 0, {}), uno::UNO_QUERY_THROW};
}

/// Everything else works on a bare display; the close box is the window manager's.
bool HasWindowManager() {
  return RunProgram("xprop -root _NET_SUPPORTING_WM_CHECK").find("window id") != std::string::npos;
}

class Modal : public OfficeFormTest {
 protected:
  SampleForm form{toolkit};
};

TEST_F(Modal, AFormHiddenWhileItComesUpReturns) {
  struct : SampleForm {
    using SampleForm::SampleForm;
    void OnActivate() override { Hide(); }
  } hasty{toolkit};
  hasty.Show();
  EXPECT_FALSE(hasty.Shown());
}

TEST_F(Modal, FormsThatWereNeverShownAreGivenUp) {
  for (int i = 0; i < 5; ++i) {
    SampleForm unseen(toolkit);
    unseen.Load();
    // Scrolling its table back to the top is what the toolkit finishes later.
    unseen.grd.Rows(100);
    unseen.grd.Row(90);
    unseen.grd.Row(1);
    unseen.Unload();
  }
  WithEventsPast();
  form.Load();
  EXPECT_TRUE(form.Loaded());
}

TEST_F(Modal, AFormIsActivatedOnceWhenItComesUp) {
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    OnMainThread([&] { form.Hide(); });
  });
  EXPECT_EQ(form.activations, 1);
}

TEST_F(Modal, AFormCanBeShownAgain) {
  for (int i = 0; i < 3; ++i)
    Show(form, [&](Hands& hands) {
      EXPECT_TRUE(hands.FormIsUp());
      hands.Press("Return");
    });
  EXPECT_THAT(form.events, ElementsAre("ok", "ok", "ok"));
}

TEST_F(Modal, ClosingTheWindowUnloadsTheFormByTheUser) {
  if (!HasWindowManager()) GTEST_SKIP() << "no window manager";
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.CloseWindow();
    EXPECT_TRUE(hands.Until([&] { return !form.Shown(); }));
  });
  EXPECT_EQ(form.closeMode, kUnloadByUser);
  EXPECT_FALSE(form.Loaded());
}

TEST_F(Modal, AFormThatIsNotToBeClosedComesUpAgain) {
  if (!HasWindowManager()) GTEST_SKIP() << "no window manager";
  form.refusals = 1;
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.CloseWindow();
    EXPECT_TRUE(hands.Until([&] { return form.closeMode == kUnloadByUser; }));
    EXPECT_TRUE(hands.FormIsUp());
    EXPECT_TRUE(form.Shown());
    hands.Press("Return");
    EXPECT_TRUE(hands.Until([&] { return !form.Shown(); }));
  });
}

TEST_F(Modal, AFormOverAFormTakesTheKeyboardAndGivesItBack) {
  SampleForm second(toolkit, "Second");
  form.butOk.Click = [&] { second.Show(); };
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.Press("Return");
    EXPECT_TRUE(hands.IsUp(second));
    hands.Press("Escape");
    EXPECT_TRUE(hands.Until([&] { return !second.Shown(); }));
    EXPECT_TRUE(hands.FormIsUp());
    EXPECT_TRUE(hands.Until([&] { return form.activations == 2; }));
    hands.Press("Escape");
  });
  EXPECT_THAT(second.events, ElementsAre("cancel"));
  EXPECT_THAT(form.events, ElementsAre("cancel"));
}

TEST_F(Modal, AMessageOverAFormIsAnswered) {
  MessageAnswer answer = MessageAnswer::Abort;
  form.butOk.Click = [&] { answer = toolkit.ShowMessage({"The text", "The title"}); };
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.Press("Return");
    EXPECT_FALSE(hands.WindowTitled("The title").empty());
    hands.Press("Return");
    EXPECT_TRUE(hands.Until([&] { return answer == MessageAnswer::Ok; }));
    EXPECT_TRUE(form.Shown());
    hands.Press("Escape");
  });
}

TEST_F(Modal, EscapeAnswersAMessageThatCanOnlyBeConfirmed) {
  MessageAnswer answer = MessageAnswer::Abort;
  form.butOk.Click = [&] { answer = toolkit.ShowMessage({"The text", "The title"}); };
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.Press("Return");
    EXPECT_FALSE(hands.WindowTitled("The title").empty());
    hands.Press("Escape");
    EXPECT_TRUE(hands.Until([&] { return answer == MessageAnswer::Ok; }));
    hands.Press("Escape");
  });
}

class Answers : public Modal, public testing::WithParamInterface<std::pair<int, MessageAnswer>> {};

TEST_P(Answers, AreThoseOfTheButtonPressed) {
  std::optional<MessageAnswer> answer;
  form.butOk.Click = [&] {
    answer = toolkit.ShowMessage({"Again?", "The title", MessageButtons::AbortRetryIgnore, true});
  };
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.Press("Return");
    EXPECT_FALSE(hands.WindowTitled("The title").empty());
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const std::string keys[] = {"alt+a", "alt+r", "alt+i"};
    hands.Press(keys[GetParam().first]);
    EXPECT_TRUE(hands.Until([&] { return answer.has_value(); }));
    hands.Press("Escape");
  });
  EXPECT_EQ(answer, GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Message, Answers,
                         testing::Values(std::pair{0, MessageAnswer::Abort}, std::pair{1, MessageAnswer::Retry},
                                         std::pair{2, MessageAnswer::Ignore}));

TEST_F(Modal, OtherDocumentsCannotBeUsedMeanwhileAndCanAfterwards) {
  const auto document = NewDocument();
  const uno::Reference<com::sun::star::frame::XModel> model(document, uno::UNO_QUERY_THROW);
  const auto frame = model->getCurrentController()->getFrame();
  const uno::Reference<awt::XWindow2> window(frame->getContainerWindow(), uno::UNO_QUERY_THROW);
  bool meanwhile = true;
  SampleForm over(toolkit);
  NewDocument();
  Show(over, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    OnMainThread([&] { meanwhile = window->isEnabled(); });
    hands.Press("Escape");
  });
  EXPECT_FALSE(meanwhile);
  EXPECT_TRUE(window->isEnabled());
  document->close(true);
}

TEST_F(Modal, AFormEndsWithTheDocumentItBelongsTo) {
  const uno::Reference<com::sun::star::frame::XModel> document(NewDocument(), uno::UNO_QUERY_THROW);
  const auto frame = document->getCurrentController()->getFrame();
  SampleForm over(toolkit);
  frame->activate();
  Show(over, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    // The program itself refuses to close a document with a dialog over it; taking its window away it does not.
    OnMainThread([&] { frame->dispose(); });
    EXPECT_TRUE(hands.Until([&] { return !over.Shown(); }));
  });
  EXPECT_EQ(over.closeMode, kUnloadByUser);
}

}  // namespace
}  // namespace pellora::libreoffice
