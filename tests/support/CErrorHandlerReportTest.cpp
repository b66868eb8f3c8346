#include <gtest/gtest.h>

#include "core/Text.h"
#include "platform/headless/Headless.h"
#include "support/CErrorHandler.h"
#include "support/mGlobal.h"
#include "tests/support/Failure.h"

namespace pellora {
namespace {

using headless::UserAtForm;

constexpr char kText[] =
    "12/18/2007 - 9:30:00 AM\r\n"
    "\tError: 13, (Type mismatch)\r\n"
    "\tin Pellora.frmAddRibbon.ButInsert_Click at line 42\r\n"
    "\r\n"
    "The call stack is:\r\n"
    "                    Pellora.frmAddRibbon.ButInsert_Click()";

class CErrorHandlerReport : public ::testing::Test {
 protected:
  CErrorHandlerReport() {
    handler.Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
    handler.CallStackPush("Pellora.frmAddRibbon.ButInsert_Click", "");
  }
  ~CErrorHandlerReport() override { EXPECT_EQ(platform.user().Verify(), ""); }

  ErrorAction Report(std::int32_t wanted) {
    handler.ErrorHandlerActions(wanted);
    return handler.HandleError("", Error(13), 42);
  }
  /// The text that a failure leaves in the error log.
  std::string Logged(std::string_view procedure, const Error& error, std::int32_t line) {
    handler.ErrorHandlerActions(actions::ErrorLog);
    handler.HandleError(procedure, error, line);
    return ErrorLog();
  }
  std::string ErrorLog() { return platform.logFiles.files["Error Log.txt"]; }

  headless::HeadlessPlatform platform;
  CErrorHandler handler;
};

TEST_F(CErrorHandlerReport, KeepsTheFailuresNumberDescriptionAndLine) {
  Logged("", Error(errors::Component(100), "x", "what happened"), 7);
  EXPECT_EQ(handler.ErrorNumber(), -2147221404);
  EXPECT_EQ(handler.ErrorDescription(), "what happened");
  EXPECT_EQ(handler.ErrorLine(), 7);
}

TEST_F(CErrorHandlerReport, LogRecordIsTheTextAndALineEnd) {
  EXPECT_EQ(Logged("", Error(13), 42), std::string(kText) + "\r\n");
}

TEST_F(CErrorHandlerReport, LogRecordsFollowEachOther) {
  Logged("", Error(13), 42);
  EXPECT_EQ(Logged("", Error(13), 42), std::string(kText) + "\r\n" + kText + "\r\n");
}

TEST_F(CErrorHandlerReport, NumbersOfComponentsAreShownAsSignedDecimals) {
  const auto text = Logged("", Error(errors::Component(100), "", "cPellora component failure"), 0);
  EXPECT_NE(text.find("\tError: -2147221404, (cPellora component failure)\r\n"), std::string::npos) << text;
}

TEST_F(CErrorHandlerReport, RoutineWithoutLineNumbersIsAtLineZero) {
  const auto text = Logged("", Error(13), 0);
  EXPECT_NE(text.find("\tin Pellora.frmAddRibbon.ButInsert_Click at line 0\r\n"), std::string::npos) << text;
}

TEST_F(CErrorHandlerReport, RoutineThatIsNamedWinsOverTheCallStack) {
  const auto text = Logged("Pellora.X.Y", Error(13), 1);
  EXPECT_NE(text.find("\tin Pellora.X.Y at line 1\r\n"), std::string::npos) << text;
}

TEST_F(CErrorHandlerReport, RoutineIsUnknownWhileTheCallStackIsDisabled) {
  handler.CallStackEnabled(false);
  const auto text = Logged("", Error(13), 1);
  EXPECT_NE(text.find("\tin Unknown at line 1\r\n"), std::string::npos) << text;
}

TEST_F(CErrorHandlerReport, CallStackIsToldEvenWhileItIsDisabled) {
  handler.CallStackEnabled(false);
  const auto text = Logged("", Error(13), 1);
  EXPECT_NE(text.find("                    Pellora.frmAddRibbon.ButInsert_Click()"), std::string::npos) << text;
}

TEST_F(CErrorHandlerReport, RoutineIsUnknownOnAnEmptyCallStack) {
  handler.CallStackClear();
  EXPECT_EQ(Logged("", Error(13), 1),
            "12/18/2007 - 9:30:00 AM\r\n"
            "\tError: 13, (Type mismatch)\r\n"
            "\tin Unknown at line 1\r\n"
            "\r\n"
            "The call stack is:\r\n"
            "\r\n");
}

TEST_F(CErrorHandlerReport, CallStackIsToldFromTheTopDownWithParameters) {
  handler.CallStackPush("Pellora.A.B", "7, x", 2);
  handler.CallStackPush("Pellora.A.C", "");
  const auto text = Logged("", Error(13), 1);
  EXPECT_EQ(text.substr(text.find("The call stack is:")),
            "The call stack is:\r\n"
            "                    Pellora.A.C()\r\n"
            "                    Pellora.A.B(7, x)\r\n"
            "                    Pellora.A.B(7, x)\r\n"
            "                    Pellora.frmAddRibbon.ButInsert_Click()\r\n");
}

TEST_F(CErrorHandlerReport, TwentyThousandEntriesAreAllTold) {
  handler.CallStackPush("Pellora.A.B", "", 19'999);
  const auto text = Logged("", Error(13), 1);
  EXPECT_EQ(Split(text, "()\r\n").size(), 20'001u);
  EXPECT_EQ(text.find("more)"), std::string::npos);
}

TEST_F(CErrorHandlerReport, EntriesBeyondTwentyThousandAreCounted) {
  handler.CallStackPush("Pellora.A.B", "", 1'000'000);
  const auto text = Logged("", Error(13), 1);
  EXPECT_EQ(Split(text, "Pellora.A.B()\r\n").size(), 20'001u);
  const std::string last = "                    (980001 more)\r\n";
  EXPECT_EQ(text.substr(text.size() - last.size()), last);
}

TEST_F(CErrorHandlerReport, LoggingAloneShowsNothingAndAborts) {
  EXPECT_EQ(Report(actions::ErrorLog), ErrorAction::Abort);
  EXPECT_TRUE(platform.user().Messages().empty());
}

TEST_F(CErrorHandlerReport, EventLogGetsTheTextUnderTheProductsName) {
  Report(actions::EventLog);
  EXPECT_EQ(platform.eventLog.entries, std::vector{"Vantix|" + std::string(kText)});
}

TEST_F(CErrorHandlerReport, EventLogIsPassedOverWhenTheSystemHasNone) {
  platform.eventLog.available = false;
  CErrorHandler elsewhere;
  elsewhere.ErrorHandlerActions(actions::EventLog);
  EXPECT_EQ(elsewhere.HandleError("A", Error(13), 0), ErrorAction::Abort);
  EXPECT_TRUE(platform.eventLog.entries.empty());
}

TEST_F(CErrorHandlerReport, MessageBoxHasThreeButtonsAndNoTitle) {
  platform.user().ExpectMessage(kText, MessageAnswer::Abort);
  Report(actions::MessageBox);
  ASSERT_EQ(platform.user().Messages().size(), 1u);
  EXPECT_EQ(platform.user().Messages()[0].buttons, MessageButtons::AbortRetryIgnore);
  EXPECT_EQ(platform.user().Messages()[0].title, "");
}

TEST_F(CErrorHandlerReport, MessageBoxAnswersBecomeActions) {
  const std::pair<MessageAnswer, ErrorAction> rows[] = {{MessageAnswer::Abort, ErrorAction::Abort},
                                                        {MessageAnswer::Retry, ErrorAction::Retry},
                                                        {MessageAnswer::Ignore, ErrorAction::Ignore}};
  for (const auto& [answer, action] : rows) {
    platform.user().ExpectMessage(kText, answer);
    EXPECT_EQ(Report(actions::MessageBox), action);
  }
}

TEST_F(CErrorHandlerReport, DialogAnswersBecomeActions) {
  const std::pair<const char*, ErrorAction> rows[] = {
      {"btnAbort", ErrorAction::Abort}, {"btnRetry", ErrorAction::Retry}, {"btnIgnore", ErrorAction::Ignore}};
  for (const auto& [button, action] : rows) {
    platform.user().ExpectErrorDialog(button);
    EXPECT_EQ(Report(actions::Dialog), action);
  }
}

TEST_F(CErrorHandlerReport, DialogShowsTheTextAndTheVersion) {
  platform.user().ExpectErrorDialog("btnAbort");
  Report(actions::Dialog);
  EXPECT_EQ(platform.user().ErrorTexts(), std::vector{std::string(kText) + "\r\nVersion: 1.0.0"});
}

TEST_F(CErrorHandlerReport, DialogIsGoneAfterwards) {
  platform.user().ExpectErrorDialog("btnRetry");
  Report(actions::Dialog);
  EXPECT_EQ(platform.toolkit.formPeers, 0);
}

TEST_F(CErrorHandlerReport, DialogIsHandedTheSupportAddress) {
  handler.SupportMail("help@example.com");
  platform.user().ExpectForm("frmErrorMessage", [](UserAtForm& user) {
    user.Click("btnSend");
    user.Click("btnAbort");
  });
  Report(actions::Dialog);
  ASSERT_EQ(platform.shell.calls.size(), 1u);
  EXPECT_TRUE(platform.shell.calls[0].starts_with("open|mailto:help@example.com?subject="));
}

TEST_F(CErrorHandlerReport, ClosingTheDialogAborts) {
  platform.user().ExpectForm("frmErrorMessage", [](UserAtForm& user) { user.CloseBox(); });
  EXPECT_EQ(Report(actions::Dialog), ErrorAction::Abort);
}

TEST_F(CErrorHandlerReport, DialogsAnswerWinsOverTheMessageBox) {
  platform.user().ExpectMessage(kText, MessageAnswer::Ignore);
  platform.user().ExpectErrorDialog("btnRetry");
  EXPECT_EQ(Report(actions::MessageBox | actions::Dialog), ErrorAction::Retry);
}

TEST_F(CErrorHandlerReport, EachSetOfActionsDoesWhatItsBitsSay) {
  for (std::int32_t wanted = 1; wanted <= 15; ++wanted) {
    SCOPED_TRACE(wanted);
    platform.logFiles.files.clear();
    platform.eventLog.entries.clear();
    const auto messages = platform.user().Messages().size();
    const auto dialogs = platform.user().ErrorTexts().size();
    if (wanted & actions::MessageBox) platform.user().ExpectMessage(kText, MessageAnswer::Retry);
    if (wanted & actions::Dialog) platform.user().ExpectErrorDialog("btnIgnore");

    const auto action = Report(wanted);

    const auto byMessage = wanted & actions::MessageBox ? ErrorAction::Retry : ErrorAction::Abort;
    EXPECT_EQ(action, wanted & actions::Dialog ? ErrorAction::Ignore : byMessage);
    EXPECT_EQ(!platform.logFiles.files.empty(), (wanted & actions::ErrorLog) != 0);
    EXPECT_EQ(!platform.eventLog.entries.empty(), (wanted & actions::EventLog) != 0);
    EXPECT_EQ(platform.user().Messages().size() - messages, wanted & actions::MessageBox ? 1u : 0u);
    EXPECT_EQ(platform.user().ErrorTexts().size() - dialogs, wanted & actions::Dialog ? 1u : 0u);
  }
}

TEST_F(CErrorHandlerReport, LogThatCannotBeWrittenIsTheComponentFailure) {
  platform.logFiles.refuses = true;
  EXPECT_EQ(Failure([&] { Report(actions::ErrorLog); }), kHandlerFailure);
}

TEST_F(CErrorHandlerReport, LogThatCannotBeWrittenEndsTheReportBeforeTheDialogOnPurpose) {
  platform.logFiles.refuses = true;
  EXPECT_EQ(Failure([&] { Report(15); }), kHandlerFailure);
  EXPECT_TRUE(platform.eventLog.entries.empty());
  EXPECT_TRUE(platform.user().Messages().empty());
  EXPECT_TRUE(platform.user().ErrorTexts().empty());
}

TEST_F(CErrorHandlerReport, LogThatCannotBeWrittenMattersOnlyWhenItIsAskedFor) {
  platform.logFiles.refuses = true;
  platform.user().ExpectErrorDialog("btnIgnore");
  EXPECT_EQ(Report(actions::Dialog), ErrorAction::Ignore);
}

TEST_F(CErrorHandlerReport, EventLogThatRefusesIsTheComponentFailure) {
  platform.eventLog.refuses = true;
  EXPECT_EQ(Failure([&] { Report(actions::EventLog | actions::Dialog); }), kHandlerFailure);
}

TEST_F(CErrorHandlerReport, FailureIsKeptEvenWhenItsReportFails) {
  platform.logFiles.refuses = true;
  Failure([&] { Report(actions::ErrorLog); });
  EXPECT_EQ(handler.ErrorNumber(), 13);
  EXPECT_EQ(handler.ErrorLine(), 42);
}

TEST_F(CErrorHandlerReport, DialogWithoutAWindowIsTheComponentFailure) {
  platform.toolkit.refusesPeer = errors::OutOfMemory;
  EXPECT_EQ(Failure([&] { Report(actions::Dialog); }), kHandlerFailure);
}

TEST_F(CErrorHandlerReport, FailureWhileAnErrorIsShownIsShownToo) {
  platform.user().ExpectForm("frmErrorMessage", [this](UserAtForm& user) {
    EXPECT_EQ(handler.HandleError("Pellora.A.B", Error(9), 1), ErrorAction::Ignore);
    user.Click("btnRetry");
  });
  platform.user().ExpectErrorDialog("btnIgnore");
  EXPECT_EQ(Report(actions::Dialog), ErrorAction::Retry);
}

/// A platform on which showing a message fails in the library again, and so on.
class FailingMessages : public headless::HeadlessToolkit {
 public:
  MessageAnswer ShowMessage(const Message&) override {
    ++shown;
    if (shown < 100) innermost.push_back(handler->HandleError("Pellora.A.B", Error(9), 1));
    return MessageAnswer::Retry;
  }
  CErrorHandler* handler = nullptr;
  int shown = 0;
  /// What the failures in between were answered, the innermost first.
  std::vector<ErrorAction> innermost;
};

class CErrorHandlerChain : public CErrorHandlerReport {
 protected:
  CErrorHandlerChain() {
    messages.handler = &handler;
    mGlobal::InstallPlatform(&failing);
  }

  FailingMessages messages;
  Platform failing{messages, platform.registry, platform.shell, platform.clock, platform.eventLog, platform.logFiles,
                   {}};
};

TEST_F(CErrorHandlerChain, FailureThatShowingBringsAboutAgainEndsInAbort) {
  EXPECT_EQ(Report(actions::MessageBox), ErrorAction::Retry);
  EXPECT_EQ(messages.shown, 3);
  EXPECT_EQ(messages.innermost, (std::vector{ErrorAction::Abort, ErrorAction::Retry, ErrorAction::Retry}));
}

TEST_F(CErrorHandlerChain, FailuresThatAreNotShownAnyMoreAreStillLogged) {
  Report(actions::MessageBox | actions::ErrorLog);
  EXPECT_EQ(Split(ErrorLog(), "The call stack is:").size(), 5u);
}

TEST_F(CErrorHandlerChain, NextFailureAfterAChainIsShownAgain) {
  Report(actions::MessageBox);
  messages.shown = 100;
  Report(actions::MessageBox);
  EXPECT_EQ(messages.shown, 101);
}

}  // namespace
}  // namespace pellora
