#include <gtest/gtest.h>

#include <stdexcept>

#include "core/Error.h"
#include "forms/CommandButton.h"
#include "forms/TextBox.h"
#include "platform/headless/Headless.h"
#include "tests/forms/FormParts.h"

namespace pellora::headless {
namespace {

using test::PlainForm;

/// The error dialog as the toolkit sees it: by the names of its parts.
class ErrorDialog : public PlainForm {
 public:
  explicit ErrorDialog(Toolkit& toolkit) : PlainForm(toolkit, "frmErrorMessage") {
    txtErrorMessage.Text("It failed.");
    btnAbort.Click = [this] { Answer("ABORT"); };
    btnRetry.Click = [this] { Answer("RETRY"); };
    btnIgnore.Click = [this] { Answer("IGNORE"); };
  }
  void Answer(std::string_view answer) {
    Tag(answer);
    Hide();
  }
  TextBox txtErrorMessage{*this, "txtErrorMessage"};
  CommandButton btnAbort{*this, "btnAbort", "Abort"};
  CommandButton btnRetry{*this, "btnRetry", "Retry"};
  CommandButton btnIgnore{*this, "btnIgnore", "Ignore"};
};

class ScriptedUserTest : public testing::Test {
 protected:
  void ExpectAndHide(std::string_view name = "frmPlain") {
    user.ExpectForm(name, [](UserAtForm& at) { at.form().Hide(); });
  }

  HeadlessToolkit toolkit;
  ScriptedUser& user = toolkit.user;
  PlainForm form{toolkit};
};

TEST_F(ScriptedUserTest, NothingExpectedAndNothingShownIsWell) { EXPECT_EQ(user.Verify(), ""); }

TEST_F(ScriptedUserTest, AnExpectedFormThatAppearsIsWell) {
  ExpectAndHide();
  form.Show();
  EXPECT_EQ(user.Verify(), "");
}

TEST_F(ScriptedUserTest, AnExpectedFormThatDoesNotAppearIsTold) {
  ExpectAndHide();
  EXPECT_EQ(user.Verify(), "form frmPlain was expected and did not appear");
}

TEST_F(ScriptedUserTest, AnUnexpectedFormIsAFaultAndIsClosed) {
  form.Show();
  EXPECT_EQ(user.Verify(), "form frmPlain appeared where nothing was expected");
  EXPECT_EQ(form.unloadModes, std::vector<std::int16_t>{kUnloadByUser});
  EXPECT_FALSE(form.Shown());
}

TEST_F(ScriptedUserTest, AnUnexpectedFormThatRefusesToCloseIsHidden) {
  form.QueriesUnload = [](std::int16_t& cancel, std::int16_t&) { cancel = 1; };
  form.Show();
  EXPECT_FALSE(form.Shown());
  EXPECT_TRUE(form.Loaded());
  EXPECT_NE(user.Verify(), "");
}

TEST_F(ScriptedUserTest, FormsInTheWrongOrderAreAFault) {
  ExpectAndHide("frmOther");
  form.Show();
  EXPECT_EQ(user.Verify(), "form frmPlain appeared where form frmOther was expected");
}

TEST_F(ScriptedUserTest, APartThatLeavesTheFormShownIsAFault) {
  user.ExpectForm("frmPlain", [](UserAtForm&) {});
  form.Show();
  EXPECT_EQ(user.Verify(), "form frmPlain was still shown after its part");
  EXPECT_FALSE(form.Shown());
}

TEST_F(ScriptedUserTest, APartThatDoesWhatNobodyCanIsAFault) {
  user.ExpectForm("frmPlain", [](UserAtForm& at) { at.Click("ButMissing"); });
  form.Show();
  EXPECT_EQ(user.Verify(), "form frmPlain: the user cannot find a control of that kind named ButMissing");
  EXPECT_FALSE(form.Shown());
}

TEST_F(ScriptedUserTest, AFailureThatLeavesAHandlerIsAFault) {
  CommandButton button(form, "ButFail", "Fail");
  button.Click = [] { throw Error(errors::Overflow); };
  user.ExpectForm("frmPlain", [](UserAtForm& at) { at.Click("ButFail"); });
  form.Show();
  EXPECT_EQ(user.Verify(), "form frmPlain: Overflow");
}

TEST_F(ScriptedUserTest, FormsShownByFormsArePlayedInside) {
  PlainForm inner(toolkit, "frmInner");
  CommandButton button(form, "ButInner", "Inner");
  int shownAtOnce = 0;
  button.Click = [&] { inner.Show(); };
  user.ExpectForm("frmPlain", [](UserAtForm& at) {
    at.Click("ButInner");
    at.form().Hide();
  });
  user.ExpectForm("frmInner", [&](UserAtForm& at) {
    shownAtOnce = toolkit.shown;
    at.form().Hide();
  });
  form.Show();
  EXPECT_EQ(user.Verify(), "");
  EXPECT_EQ(shownAtOnce, 2);
  EXPECT_EQ(toolkit.shown, 0);
}

TEST_F(ScriptedUserTest, APartMayExpectMore) {
  PlainForm inner(toolkit, "frmInner");
  user.ExpectForm("frmPlain", [&](UserAtForm& at) {
    for (int more = 0; more < 20; ++more) ExpectAndHide("frmInner");
    for (int more = 0; more < 20; ++more) inner.Show();
    at.form().Hide();
  });
  form.Show();
  EXPECT_EQ(user.Verify(), "");
}

TEST_F(ScriptedUserTest, AnExpectedMessageIsAnsweredAsTold) {
  user.ExpectMessage("Sure?", MessageAnswer::Retry);
  EXPECT_EQ(toolkit.ShowMessage({"Sure?", "Title", MessageButtons::AbortRetryIgnore, false}), MessageAnswer::Retry);
  EXPECT_EQ(user.Verify(), "");
}

TEST_F(ScriptedUserTest, AnotherTextIsAFaultAndIsAborted) {
  user.ExpectMessage("Sure?");
  EXPECT_EQ(toolkit.ShowMessage({"Really?", "Title", MessageButtons::AbortRetryIgnore, false}), MessageAnswer::Abort);
  EXPECT_EQ(user.Verify(), "message \"Really?\" appeared where message \"Sure?\" was expected");
}

TEST_F(ScriptedUserTest, AnUnexpectedMessageIsAFaultAndIsKept) {
  EXPECT_EQ(toolkit.ShowMessage({"Well", "Title", MessageButtons::Ok, false}), MessageAnswer::Ok);
  EXPECT_EQ(user.Verify(), "message \"Well\" appeared where nothing was expected");
  EXPECT_EQ(user.Messages().size(), 1u);
}

TEST_F(ScriptedUserTest, AMessageThatDoesNotAppearIsTold) {
  user.ExpectMessage("Sure?");
  EXPECT_EQ(user.Verify(), "message \"Sure?\" was expected and did not appear");
}

TEST_F(ScriptedUserTest, AnExpectedErrorDialogIsAnsweredByItsButton) {
  ErrorDialog dialog(toolkit);
  user.ExpectErrorDialog("btnRetry");
  dialog.Show();
  EXPECT_EQ(dialog.Tag(), "RETRY");
  EXPECT_EQ(user.ErrorTexts(), std::vector<std::string>{"It failed."});
  EXPECT_EQ(user.Verify(), "");
}

TEST_F(ScriptedUserTest, AnUnexpectedErrorDialogIsAFaultThatQuotesIt) {
  ErrorDialog dialog(toolkit);
  dialog.Show();
  EXPECT_EQ(user.Verify(), "form frmErrorMessage appeared where nothing was expected: It failed.");
  EXPECT_FALSE(dialog.Shown());
}

TEST_F(ScriptedUserTest, ErrorDialogsMayAllBeAnsweredTheSameWay) {
  ErrorDialog dialog(toolkit);
  user.AnswerErrorDialogs("btnIgnore");
  user.ExpectErrorDialog("btnAbort");
  dialog.Show();
  EXPECT_EQ(dialog.Tag(), "ABORT");
  dialog.Show();
  EXPECT_EQ(dialog.Tag(), "IGNORE");
  EXPECT_EQ(user.ErrorTexts().size(), 2u);
  EXPECT_EQ(user.Verify(), "");
}

TEST_F(ScriptedUserTest, AnsweringErrorDialogsTheSameWayCanEnd) {
  ErrorDialog dialog(toolkit);
  user.AnswerErrorDialogs("btnIgnore");
  user.AnswerErrorDialogs("");
  dialog.Show();
  EXPECT_NE(user.Verify(), "");
}

TEST_F(ScriptedUserTest, ARetryThatNeverEndsIsAFault) {
  ErrorDialog dialog(toolkit);
  user.AnswerErrorDialogs("btnRetry");
  for (int again = 0; again < 1000; ++again) dialog.Show();
  EXPECT_EQ(user.Verify(), "");
  dialog.Show();
  EXPECT_NE(user.Verify(), "");
}

TEST_F(ScriptedUserTest, BeepsAreCounted) {
  toolkit.Beep();
  toolkit.Beep();
  EXPECT_EQ(user.Beeps(), 2);
}

}  // namespace
}  // namespace pellora::headless
