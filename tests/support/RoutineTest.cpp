#include "support/Routine.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

#include "platform/headless/Headless.h"
#include "support/CErrorHandler.h"
#include "support/mGlobal.h"

namespace pellora {
namespace {

using headless::UserAtForm;

[[noreturn]] void Fail() { throw Error(errors::TypeMismatch); }

/// A class under the protocol, with its protected members open to the tests.
class Worker : public Routines {
 public:
  Worker() : Routines("Worker") {}
  using Routines::Pop;
  using Routines::Push;
  using Routines::QualifiedName;
  using Routines::routine;
};

class RoutineProtocol : public ::testing::Test {
 protected:
  RoutineProtocol() { mGlobal::ErrorHandler = NewHandler(); }
  ~RoutineProtocol() override { EXPECT_EQ(platform.user().Verify(), ""); }

  static std::shared_ptr<CErrorHandler> NewHandler() {
    auto handler = std::make_shared<CErrorHandler>();
    handler->Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
    return handler;
  }
  std::size_t Depth() const { return mGlobal::ErrorHandler->CallStackDepth(); }
  std::string LastErrorText() { return platform.user().ErrorTexts().back(); }

  headless::HeadlessPlatform platform;
  Worker worker;
  std::vector<std::string> done;
};

TEST_F(RoutineProtocol, NameIsTheProjectsObjectsAndRoutines) {
  EXPECT_EQ(worker.QualifiedName("ButCheckAll_Click"), "Pellora.Worker.ButCheckAll_Click");
}

TEST_F(RoutineProtocol, RoutineIsOnTheCallStackWhileItRuns) {
  worker.routine("Run", [&](Steps&) { EXPECT_EQ(Depth(), 1u); });
  EXPECT_EQ(Depth(), 0u);
}

TEST_F(RoutineProtocol, PushLeavesTheEntryThatPopTakes) {
  worker.Push("Left");
  EXPECT_EQ(Depth(), 1u);
  worker.Pop();
  EXPECT_EQ(Depth(), 0u);
}

TEST_F(RoutineProtocol, RetryRunsTheFailedStatementAgain) {
  platform.user().ExpectErrorDialog("btnRetry");
  worker.routine("Run", [&](Steps& step) {
    step([&] { done.push_back("first"); });
    step([&] {
      done.push_back("try");
      if (done.size() < 3) Fail();
    });
    step([&] { done.push_back("last"); });
  });
  EXPECT_EQ(done, (std::vector<std::string>{"first", "try", "try", "last"}));
  EXPECT_EQ(Depth(), 0u);
}

TEST_F(RoutineProtocol, IgnoreGoesOnWithTheNextStatement) {
  platform.user().ExpectErrorDialog("btnIgnore");
  worker.routine("Run", [&](Steps& step) {
    step(Fail);
    step([&] { done.push_back("next"); });
  });
  EXPECT_EQ(done, std::vector<std::string>{"next"});
  EXPECT_EQ(Depth(), 0u);
}

TEST_F(RoutineProtocol, AbortLeavesTheRoutine) {
  platform.user().ExpectErrorDialog("btnAbort");
  worker.routine("Run", [&](Steps& step) {
    step(Fail);
    step([&] { done.push_back("next"); });
  });
  EXPECT_TRUE(done.empty());
}

TEST_F(RoutineProtocol, AbortClearsTheWholeCallStack) {
  platform.user().ExpectErrorDialog("btnAbort");
  worker.Push("Outer");
  worker.routine("Inner", [&](Steps& step) { step(Fail); });
  EXPECT_EQ(Depth(), 0u);
}

TEST_F(RoutineProtocol, AbortLeavesTheCallStackWhileItIsDisabledOnPurpose) {
  mGlobal::ErrorHandler->CallStackEnabled(false);
  platform.user().ExpectErrorDialog("btnAbort");
  worker.routine("Run", [&](Steps& step) { step(Fail); });
  EXPECT_EQ(Depth(), 1u);
}

TEST_F(RoutineProtocol, AbortOfAnInnerRoutineDoesNotLeaveTheOuterOne) {
  platform.user().ExpectErrorDialog("btnAbort");
  worker.routine("Outer", [&](Steps& step) {
    step([&] { worker.routine("Inner", [&](Steps& inner) { inner(Fail); }); });
    step([&] { done.push_back("outer went on"); });
  });
  EXPECT_EQ(done, std::vector<std::string>{"outer went on"});
}

TEST_F(RoutineProtocol, OuterRoutineFindsAnEmptyStackAfterAnInnerAbort) {
  platform.user().ExpectErrorDialog("btnAbort");
  worker.routine("Outer", [&](Steps&) {
    worker.routine("Inner", [&](Steps& inner) { inner(Fail); });
    EXPECT_EQ(Depth(), 0u);
  });
  EXPECT_EQ(Depth(), 0u);
}

TEST_F(RoutineProtocol, AbortInAStepWithinAStepLeavesTheRoutineAtOnce) {
  platform.user().ExpectErrorDialog("btnAbort");
  worker.routine("Run", [&](Steps& step) {
    step([&] {
      step(Fail);
      done.push_back("inner");
    });
    done.push_back("outer");
  });
  EXPECT_TRUE(done.empty());
}

TEST_F(RoutineProtocol, ValueOfAStepIsItsStatements) {
  worker.routine("Run", [&](Steps& step) { EXPECT_EQ(step([] { return 7; }), 7); });
}

TEST_F(RoutineProtocol, IgnoredStepYieldsTheDefault) {
  platform.user().ExpectErrorDialog("btnIgnore");
  worker.routine("Run", [&](Steps& step) {
    EXPECT_EQ(step([]() -> std::string { Fail(); }), "");
    done.push_back("next");
  });
  EXPECT_EQ(done.size(), 1u);
}

TEST_F(RoutineProtocol, RoutineAnswersItsResult) {
  EXPECT_EQ(worker.routine<int>("Run", [](Steps&, int& result) { result = 7; }), 7);
}

TEST_F(RoutineProtocol, AbandonedRoutineAnswersTheDefault) {
  platform.user().ExpectErrorDialog("btnAbort");
  EXPECT_EQ(worker.routine<int>("Run",
                                [](Steps& step, int& result) {
                                  result = 7;
                                  step(Fail);
                                }),
            0);
}

TEST_F(RoutineProtocol, RoutineAnswersWhatItHasAfterAnIgnoredFailure) {
  platform.user().ExpectErrorDialog("btnIgnore");
  EXPECT_EQ(worker.routine<int>("Run",
                                [](Steps& step, int& result) {
                                  result = 7;
                                  step(Fail);
                                }),
            7);
}

TEST_F(RoutineProtocol, FailedStatementIsReportedWithItsSourceLine) {
  platform.user().ExpectErrorDialog("btnAbort");
  const int line = __LINE__ + 1;
  worker.routine("Run", [&](Steps& step) { step(Fail); });
  EXPECT_EQ(mGlobal::ErrorHandler->ErrorLine(), line);
  EXPECT_NE(LastErrorText().find("\tin Pellora.Worker.Run at line " + std::to_string(line) + "\r\n"),
            std::string::npos);
}

TEST_F(RoutineProtocol, FailureOutsideOfAnyStepIsReportedWithTheRoutinesLine) {
  platform.user().ExpectErrorDialog("btnAbort");
  const int line = __LINE__ + 1;
  worker.routine("Run", [](Steps&) { Fail(); });
  EXPECT_EQ(mGlobal::ErrorHandler->ErrorLine(), line);
}

TEST_F(RoutineProtocol, FailureOutsideOfAnyStepOfARoutineWithAResultIsReportedWithItsLine) {
  platform.user().ExpectErrorDialog("btnAbort");
  const int line = __LINE__ + 1;
  worker.routine<int>("Run", [](Steps&, int&) { Fail(); });
  EXPECT_EQ(mGlobal::ErrorHandler->ErrorLine(), line);
}

TEST_F(RoutineProtocol, RetryOfAFailureOutsideOfAnyStepRunsTheBodyAgain) {
  platform.user().ExpectErrorDialog("btnRetry");
  worker.routine("Run", [&](Steps&) {
    done.push_back("body");
    if (done.size() == 1) Fail();
  });
  EXPECT_EQ(done.size(), 2u);
  EXPECT_EQ(Depth(), 0u);
}

TEST_F(RoutineProtocol, IgnoreOfAFailureOutsideOfAnyStepEndsTheRoutineNormally) {
  platform.user().ExpectErrorDialog("btnIgnore");
  worker.Push("Caller");
  worker.routine("Run", [](Steps&) { Fail(); });
  EXPECT_EQ(Depth(), 1u);
}

TEST_F(RoutineProtocol, ExhaustedMemoryIsReportedAsErrorSeven) {
  platform.user().ExpectErrorDialog("btnIgnore");
  worker.routine("Run", [](Steps& step) { step([] { throw std::bad_alloc(); }); });
  EXPECT_NE(LastErrorText().find("\tError: 7, (Out of memory)\r\n"), std::string::npos);
}

TEST_F(RoutineProtocol, OtherExceptionsAreReportedAsErrorFiftyOne) {
  platform.user().AnswerErrorDialogs("btnIgnore");
  const std::function<void()> failures[] = {[] { throw std::runtime_error("x"); }, [] { throw 1; }};
  for (const auto& failure : failures) {
    worker.routine("Run", [&](Steps& step) { step(failure); });
    EXPECT_NE(LastErrorText().find("\tError: 51, (Internal error)\r\n"), std::string::npos);
  }
}

TEST_F(RoutineProtocol, ReportThatFailsItselfCountsAsAbort) {
  mGlobal::ErrorHandler->ErrorHandlerActions(actions::ErrorLog);
  platform.logFiles.refuses = true;
  worker.Push("Caller");
  worker.routine("Run", [&](Steps& step) {
    step(Fail);
    done.push_back("next");
  });
  EXPECT_TRUE(done.empty());
  EXPECT_EQ(Depth(), 0u);
}

TEST_F(RoutineProtocol, WithoutAHandlerEveryFailureCountsAsAbort) {
  mGlobal::ErrorHandler.reset();
  worker.routine("Run", [&](Steps& step) {
    step([&] { done.push_back("first"); });
    step(Fail);
    done.push_back("next");
  });
  EXPECT_EQ(done, std::vector<std::string>{"first"});
}

TEST_F(RoutineProtocol, WithoutAHandlerPushAndPopDoNothing) {
  mGlobal::ErrorHandler.reset();
  worker.Push("A");
  worker.Pop();
}

TEST_F(RoutineProtocol, TracingLogThatCannotBeWrittenDoesNotStopTheWork) {
  mGlobal::ErrorHandler->TracingEnabled(true);
  platform.logFiles.refuses = true;
  worker.routine("Run", [&](Steps& step) { step([&] { done.push_back("work"); }); });
  EXPECT_EQ(done.size(), 1u);
  EXPECT_EQ(Depth(), 0u);
}

TEST_F(RoutineProtocol, HandlerReplacedMeanwhileGetsNoStrangeEntryTaken) {
  const auto replacement = NewHandler();
  replacement->CallStackPush("Pellora.Left.Behind", "");
  worker.routine("Run", [&](Steps& step) { step([&] { mGlobal::ErrorHandler = replacement; }); });
  EXPECT_EQ(replacement->CallStackDepth(), 1u);
}

TEST_F(RoutineProtocol, GlobalsReleasedMeanwhileLetTheRoutineFinish) {
  worker.routine("Run", [&](Steps& step) {
    step([] { mGlobal::ErrorHandler.reset(); });
    step([&] { done.push_back("next"); });
  });
  EXPECT_EQ(done.size(), 1u);
}

TEST_F(RoutineProtocol, GlobalsReleasedWhileTheErrorIsShownKeepTheAnswer) {
  platform.user().ExpectForm("frmErrorMessage", [](UserAtForm& user) {
    mGlobal::ErrorHandler.reset();
    user.Click("btnIgnore");
  });
  worker.routine("Run", [&](Steps& step) {
    step(Fail);
    step([&] { done.push_back("next"); });
  });
  EXPECT_EQ(done.size(), 1u);
}

TEST_F(RoutineProtocol, NewHandlerReleasedWhileItsErrorIsShownKeepsTheAnswer) {
  platform.user().ExpectForm("frmErrorMessage", [](UserAtForm& user) {
    mGlobal::ErrorHandler.reset();
    user.Click("btnIgnore");
  });
  worker.routine("Run", [&](Steps& step) {
    step([] { mGlobal::ErrorHandler = NewHandler(); });
    step(Fail);
    step([&] { done.push_back("next"); });
  });
  EXPECT_EQ(done.size(), 1u);
}

TEST_F(RoutineProtocol, FailureAfterTheGlobalsWereReleasedClearsTheStackItIsOn) {
  const auto handler = mGlobal::ErrorHandler;
  worker.Push("Caller");
  worker.routine("Run", [&](Steps& step) {
    step([] { mGlobal::ErrorHandler.reset(); });
    step(Fail);
  });
  EXPECT_EQ(handler->CallStackDepth(), 0u);
}

TEST_F(RoutineProtocol, FailureAfterTheHandlerWasReplacedIsReportedByTheNewOne) {
  platform.user().ExpectErrorDialog("btnIgnore");
  worker.routine("Run", [&](Steps& step) {
    step([] { mGlobal::ErrorHandler = NewHandler(); });
    step(Fail);
  });
  EXPECT_EQ(mGlobal::ErrorHandler->ErrorNumber(), 13);
}

TEST_F(RoutineProtocol, DeepCallsAreAllOnTheStackOfAReport) {
  platform.user().ExpectErrorDialog("btnAbort");
  worker.routine("A", [&](Steps& a) { a([&] { worker.routine("B", [&](Steps& b) { b(Fail); }); }); });
  EXPECT_NE(LastErrorText().find("The call stack is:\r\n"
                                 "                    Pellora.Worker.B()\r\n"
                                 "                    Pellora.Worker.A()\r\n"),
            std::string::npos);
}

}  // namespace
}  // namespace pellora
