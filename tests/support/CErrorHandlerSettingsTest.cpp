#include <gtest/gtest.h>

#include <limits>

#include "platform/headless/Headless.h"
#include "support/CErrorHandler.h"
#include "tests/support/Failure.h"

namespace pellora {
namespace {

class CErrorHandlerSettings : public ::testing::Test {
 protected:
  headless::HeadlessPlatform platform;
  CErrorHandler handler;
};

constexpr char kInvalidActions[] = "0x800443FA|Pellora.CErrorHandler|Invalid error handler actions";
constexpr char kInvalidFileName[] = "0x800443F9|Pellora.CErrorHandler|Invalid file name";
constexpr char kInvalidFlags[] = "0x800443FB|Pellora.CErrorHandler|Invalid tracing flags";

TEST_F(CErrorHandlerSettings, DefaultsAreAMessageBoxAndNoCallStack) {
  EXPECT_FALSE(handler.CallStackEnabled());
  EXPECT_FALSE(handler.TracingEnabled());
  EXPECT_EQ(handler.ErrorHandlerActions(), 1);
  EXPECT_EQ(handler.TracingFlags(), 0);
  EXPECT_EQ(handler.ErrorNumber(), 0);
  EXPECT_EQ(handler.ErrorLine(), 0);
  EXPECT_EQ(handler.ErrorLogFile(), "Error Log.txt");
  EXPECT_EQ(handler.TracingLogFile(), "Tracing Log.txt");
  EXPECT_EQ(handler.ErrorDescription(), "");
  EXPECT_EQ(handler.SupportMail(), "");
  EXPECT_EQ(handler.Remark(), "");
  EXPECT_EQ(handler.CallStackDepth(), 0u);
}

TEST_F(CErrorHandlerSettings, RemarkKeepsAnyText) {
  handler.Remark("a note");
  EXPECT_EQ(handler.Remark(), "a note");
}

TEST_F(CErrorHandlerSettings, ReportLeavesTheRemarkAlone) {
  handler.Remark("a note");
  handler.ErrorHandlerActions(actions::ErrorLog);
  handler.HandleError("", Error(errors::TypeMismatch), 0);
  EXPECT_EQ(handler.Remark(), "a note");
}

TEST_F(CErrorHandlerSettings, SystemWithAnEventLogIsRunningOnNT) { EXPECT_TRUE(handler.RunningOnNT()); }

TEST_F(CErrorHandlerSettings, SystemWithoutAnEventLogIsNotRunningOnNT) {
  platform.eventLog.available = false;
  EXPECT_FALSE(CErrorHandler().RunningOnNT());
}

TEST(CErrorHandlerWithoutPlatform, IsNotRunningOnNT) { EXPECT_FALSE(CErrorHandler().RunningOnNT()); }

TEST_F(CErrorHandlerSettings, ActionsSixteenAreRefused) {
  handler.ErrorHandlerActions(8);
  EXPECT_EQ(Failure([&] { handler.ErrorHandlerActions(16); }), kInvalidActions);
  EXPECT_EQ(handler.ErrorHandlerActions(), 8);
}

TEST_F(CErrorHandlerSettings, ActionsZeroAreRefused) {
  EXPECT_EQ(Failure([&] { handler.ErrorHandlerActions(0); }), kInvalidActions);
  EXPECT_EQ(handler.ErrorHandlerActions(), 1);
}

TEST_F(CErrorHandlerSettings, NegativeActionsAreRefused) {
  EXPECT_EQ(Failure([&] { handler.ErrorHandlerActions(std::numeric_limits<std::int32_t>::min()); }), kInvalidActions);
}

TEST_F(CErrorHandlerSettings, ActionsFifteenAreAccepted) {
  handler.ErrorHandlerActions(15);
  EXPECT_EQ(handler.ErrorHandlerActions(), 15);
}

TEST_F(CErrorHandlerSettings, TracingFlagsFourAreRefused) {
  EXPECT_EQ(Failure([&] { handler.TracingFlags(4); }), kInvalidFlags);
  EXPECT_EQ(handler.TracingFlags(), 0);
}

TEST_F(CErrorHandlerSettings, TracingFlagsZeroAreRefusedAlthoughTheyAreTheDefault) {
  handler.TracingFlags(2);
  EXPECT_EQ(Failure([&] { handler.TracingFlags(0); }), kInvalidFlags);
  EXPECT_EQ(handler.TracingFlags(), 2);
}

TEST_F(CErrorHandlerSettings, TracingFlagsThreeAreAccepted) {
  handler.TracingFlags(3);
  EXPECT_EQ(handler.TracingFlags(), 3);
}

TEST_F(CErrorHandlerSettings, EmptyErrorLogNameIsRefused) {
  handler.ErrorLogFile("a.txt");
  EXPECT_EQ(Failure([&] { handler.ErrorLogFile(""); }), kInvalidFileName);
  EXPECT_EQ(handler.ErrorLogFile(), "a.txt");
}

TEST_F(CErrorHandlerSettings, EmptyTracingLogNameIsRefused) {
  handler.TracingLogFile("t.txt");
  EXPECT_EQ(Failure([&] { handler.TracingLogFile(""); }), kInvalidFileName);
  EXPECT_EQ(handler.TracingLogFile(), "t.txt");
}

TEST_F(CErrorHandlerSettings, InitSetsAllSix) {
  handler.Init(12, "e.txt", true, true, 1, "t.txt");
  EXPECT_EQ(handler.ErrorHandlerActions(), 12);
  EXPECT_EQ(handler.ErrorLogFile(), "e.txt");
  EXPECT_TRUE(handler.CallStackEnabled());
  EXPECT_TRUE(handler.TracingEnabled());
  EXPECT_EQ(handler.TracingFlags(), 1);
  EXPECT_EQ(handler.TracingLogFile(), "t.txt");
}

TEST_F(CErrorHandlerSettings, InitStopsAtTheFirstBadValueAndKeepsThoseBeforeIt) {
  EXPECT_EQ(Failure([&] { handler.Init(2, "e.txt", true, true, 4, "t.txt"); }), kInvalidFlags);
  EXPECT_EQ(handler.ErrorHandlerActions(), 2);
  EXPECT_EQ(handler.ErrorLogFile(), "e.txt");
  EXPECT_TRUE(handler.TracingEnabled());
  EXPECT_EQ(handler.TracingLogFile(), "Tracing Log.txt");
}

TEST_F(CErrorHandlerSettings, InitChecksTheActionsBeforeTheLogName) {
  EXPECT_EQ(Failure([&] { handler.Init(0, "", true, false, 2, "t.txt"); }), kInvalidActions);
  EXPECT_EQ(Failure([&] { handler.Init(8, "", true, false, 2, "t.txt"); }), kInvalidFileName);
  EXPECT_EQ(Failure([&] { handler.Init(8, "e.txt", true, false, 2, ""); }), kInvalidFileName);
}

TEST_F(CErrorHandlerSettings, ClearDeletesTheLogsAskedFor) {
  platform.logFiles.files = {{"Error Log.txt", "e"}, {"Tracing Log.txt", "t"}};
  handler.Clear(true, false);
  EXPECT_FALSE(platform.logFiles.files.contains("Error Log.txt"));
  EXPECT_TRUE(platform.logFiles.files.contains("Tracing Log.txt"));
}

TEST_F(CErrorHandlerSettings, ClearDeletesTheTracingLogAlone) {
  platform.logFiles.files = {{"Error Log.txt", "e"}, {"Tracing Log.txt", "t"}};
  handler.Clear(false, true);
  EXPECT_TRUE(platform.logFiles.files.contains("Error Log.txt"));
  EXPECT_FALSE(platform.logFiles.files.contains("Tracing Log.txt"));
}

TEST_F(CErrorHandlerSettings, ClearingLogsThatAreNotThereIsSilent) {
  EXPECT_EQ(Failure([&] { handler.Clear(true, true); }), "none");
}

TEST_F(CErrorHandlerSettings, ClearingLogsThatCannotBeDeletedIsSilent) {
  platform.logFiles.files = {{"Error Log.txt", "e"}};
  platform.logFiles.refuses = true;
  EXPECT_EQ(Failure([&] { handler.Clear(true, true); }), "none");
}

}  // namespace
}  // namespace pellora
