// Failures inside the reporting of a failure: the report ends with its own number, and the routine with abort.

#include <gtest/gtest.h>

#include <functional>

#include "platform/headless/Headless.h"
#include "platform/headless/HeadlessFormPeer.h"
#include "support/CErrorHandler.h"
#include "support/Routine.h"
#include "support/mGlobal.h"
#include "tests/support/Failure.h"

namespace pellora {
namespace {

[[noreturn]] void Refuse() { throw Error(errors::InvalidCall); }

/// A toolkit whose calls can be made to raise, one kind at a time.
struct RefusingToolkit : headless::HeadlessToolkit {
  bool messages = false;
  bool beeps = false;
  bool showing = false;
  bool foreground = false;

  struct Peer : headless::HeadlessFormPeer {
    Peer(RefusingToolkit& toolkit, Form& form) : HeadlessFormPeer(toolkit, form), toolkit(toolkit) {}
    void ShowModal() override { toolkit.showing ? Refuse() : HeadlessFormPeer::ShowModal(); }
    void BringToFront() override { toolkit.foreground ? Refuse() : HeadlessFormPeer::BringToFront(); }
    RefusingToolkit& toolkit;
  };

  std::unique_ptr<FormPeer> CreatePeer(Form& form) override {
    if (refusesPeer) return HeadlessToolkit::CreatePeer(form);
    return std::make_unique<Peer>(*this, form);
  }
  MessageAnswer ShowMessage(const Message& message) override {
    if (messages) Refuse();
    return HeadlessToolkit::ShowMessage(message);
  }
  void Beep() override {
    if (beeps) Refuse();
    HeadlessToolkit::Beep();
  }
};

struct RefusingClock : Clock {
  double Now() override { Refuse(); }
};

class Reporter : public Routines {
 public:
  Reporter() : Routines("Reporter") {}
  using Routines::Push;
  using Routines::routine;
};

class ErrorPath : public ::testing::Test {
 protected:
  ErrorPath() {
    mGlobal::InstallPlatform(&platform);
    mGlobal::ErrorHandler = std::make_shared<CErrorHandler>();
    mGlobal::ErrorHandler->Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
  }
  ~ErrorPath() override {
    EXPECT_EQ(toolkit.user.Verify(), "");
    EXPECT_EQ(toolkit.formPeers, 0);
  }

  std::string Report(std::int32_t wanted) {
    mGlobal::ErrorHandler->ErrorHandlerActions(wanted);
    return Failure([] { mGlobal::ErrorHandler->HandleError("", Error(errors::TypeMismatch), 1); });
  }

  /// Whether a routine that fails goes on; whatever it does, nothing of it may be left or get out.
  bool RoutineGoesOn(std::int32_t wanted) {
    mGlobal::ErrorHandler->ErrorHandlerActions(wanted);
    bool wentOn = false;
    worker.Push("Caller");
    worker.routine("Run", [&](Steps& step) {
      step([] { throw Error(errors::TypeMismatch); });
      wentOn = true;
    });
    EXPECT_EQ(mGlobal::ErrorHandler->CallStackDepth(), wentOn ? 1u : 0u);
    return wentOn;
  }

  headless::HeadlessPlatform base;
  RefusingToolkit toolkit;
  Platform platform{toolkit, base.registry, base.shell, base.clock, base.eventLog, base.logFiles, {}};
  Reporter worker;
};

TEST_F(ErrorPath, LogThatCannotBeWrittenAbortsTheRoutine) {
  base.logFiles.refuses = true;
  EXPECT_EQ(Report(actions::ErrorLog), kHandlerFailure);
  EXPECT_FALSE(RoutineGoesOn(actions::ErrorLog | actions::Dialog));
}

TEST_F(ErrorPath, EventLogThatRefusesAbortsTheRoutine) {
  base.eventLog.refuses = true;
  EXPECT_EQ(Report(actions::EventLog), kHandlerFailure);
  EXPECT_FALSE(RoutineGoesOn(actions::EventLog | actions::Dialog));
}

TEST_F(ErrorPath, MessageBoxThatRaisesAbortsTheRoutine) {
  toolkit.messages = true;
  EXPECT_EQ(Report(actions::MessageBox), kHandlerFailure);
  EXPECT_FALSE(RoutineGoesOn(actions::MessageBox));
}

TEST_F(ErrorPath, MessageBoxThatRaisesEndsTheReportBeforeTheDialog) {
  toolkit.messages = true;
  EXPECT_EQ(Report(actions::MessageBox | actions::Dialog), kHandlerFailure);
  EXPECT_TRUE(toolkit.user.ErrorTexts().empty());
}

TEST_F(ErrorPath, DialogWithoutAWindowAbortsTheRoutine) {
  toolkit.refusesPeer = errors::OutOfMemory;
  EXPECT_EQ(Report(actions::Dialog), kHandlerFailure);
  EXPECT_FALSE(RoutineGoesOn(actions::Dialog));
}

TEST_F(ErrorPath, DialogThatCannotBeShownAbortsTheRoutine) {
  toolkit.showing = true;
  EXPECT_EQ(Report(actions::Dialog), kHandlerFailure);
  EXPECT_FALSE(RoutineGoesOn(actions::Dialog));
}

TEST_F(ErrorPath, AnswerIsKeptWhenTheDialogCannotBeep) {
  toolkit.beeps = true;
  toolkit.user.ExpectErrorDialog("btnIgnore");
  EXPECT_TRUE(RoutineGoesOn(actions::Dialog));
}

TEST_F(ErrorPath, AnswerIsKeptWhenTheDialogCannotComeToTheForeground) {
  toolkit.foreground = true;
  toolkit.user.ExpectErrorDialog("btnIgnore");
  EXPECT_TRUE(RoutineGoesOn(actions::Dialog));
}

TEST_F(ErrorPath, ClockThatFailsAbortsTheRoutine) {
  RefusingClock clock;
  Platform without{toolkit, base.registry, base.shell, clock, base.eventLog, base.logFiles, {}};
  mGlobal::InstallPlatform(&without);
  EXPECT_EQ(Report(actions::Dialog), kHandlerFailure);
  EXPECT_FALSE(RoutineGoesOn(actions::Dialog));
  mGlobal::InstallPlatform(&platform);
}

TEST_F(ErrorPath, PlatformTakenAwayAbortsTheRoutine) {
  mGlobal::InstallPlatform(nullptr);
  EXPECT_EQ(Report(actions::Dialog), kHandlerFailure);
  EXPECT_FALSE(RoutineGoesOn(actions::Dialog));
}

TEST_F(ErrorPath, NextFailureAfterAFailedReportIsShown) {
  toolkit.refusesPeer = errors::OutOfMemory;
  EXPECT_FALSE(RoutineGoesOn(actions::Dialog));
  toolkit.refusesPeer = 0;
  toolkit.user.ExpectErrorDialog("btnIgnore");
  EXPECT_TRUE(RoutineGoesOn(actions::Dialog));
}

}  // namespace
}  // namespace pellora
