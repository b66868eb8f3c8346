#include <gtest/gtest.h>

#include "core/TextServices.h"
#include "platform/headless/Headless.h"
#include "support/CErrorHandler.h"
#include "tests/support/Failure.h"

namespace pellora {
namespace {

class CErrorHandlerCallStack : public ::testing::Test {
 protected:
  CErrorHandlerCallStack() { handler.Init(2, "Error Log.txt", true, false, 2, "Tracing Log.txt"); }

  void TraceTo(std::int32_t flags) {
    handler.TracingFlags(flags);
    handler.TracingEnabled(true);
  }
  std::string TracingLog() { return platform.logFiles.files["Tracing Log.txt"]; }

  headless::HeadlessPlatform platform;
  CErrorHandler handler;
};

TEST_F(CErrorHandlerCallStack, TopIsTheEntryPushedLast) {
  EXPECT_EQ(handler.CallStackTop(), "");
  handler.CallStackPush("A", "");
  handler.CallStackPush("B", "");
  EXPECT_EQ(handler.CallStackTop(), "B");
}

TEST_F(CErrorHandlerCallStack, PushingWorksWhileTheStackIsDisabled) {
  handler.CallStackEnabled(false);
  handler.CallStackPush("Pellora.A.B", "");
  EXPECT_EQ(handler.CallStackDepth(), 1u);
}

TEST_F(CErrorHandlerCallStack, ClearingDoesNothingWhileTheStackIsDisabledOnPurpose) {
  handler.CallStackPush("Pellora.A.B", "");
  handler.CallStackEnabled(false);
  handler.CallStackClear();
  EXPECT_EQ(handler.CallStackDepth(), 1u);
}

TEST_F(CErrorHandlerCallStack, ClearingRemovesEveryEntry) {
  handler.CallStackPush("Pellora.A.B", "");
  handler.CallStackPush("Pellora.A.C", "");
  handler.CallStackClear();
  EXPECT_EQ(handler.CallStackDepth(), 0u);
  EXPECT_EQ(handler.CallStackRuns(), 0u);
}

TEST_F(CErrorHandlerCallStack, PoppingAnEmptyStackWritesNoTraceLineAndRaisesNothing) {
  TraceTo(2);
  EXPECT_EQ(Failure([&] { handler.CallStackPop(); }), "none");
  EXPECT_TRUE(platform.logFiles.files.empty());
}

TEST_F(CErrorHandlerCallStack, PoppingWorksWhileTheStackIsDisabled) {
  handler.CallStackPush("Pellora.A.B", "");
  handler.CallStackEnabled(false);
  handler.CallStackPop();
  EXPECT_EQ(handler.CallStackDepth(), 0u);
}

TEST_F(CErrorHandlerCallStack, MillionEqualEntriesAreStoredInOneRun) {
  handler.CallStackPush("Pellora.frmAddRibbon.OblDiapCounter", "", 1'000'000);
  EXPECT_EQ(handler.CallStackDepth(), 1'000'000u);
  EXPECT_EQ(handler.CallStackRuns(), 1u);
}

TEST_F(CErrorHandlerCallStack, EqualEntriesOneByOneAreStoredInOneRun) {
  for (int i = 0; i < 1000; ++i) handler.CallStackPush("Pellora.A.B", "");
  EXPECT_EQ(handler.CallStackRuns(), 1u);
}

TEST_F(CErrorHandlerCallStack, OtherParametersMakeAnotherRun) {
  handler.CallStackPush("Pellora.A.B", "1");
  handler.CallStackPush("Pellora.A.B", "2");
  EXPECT_EQ(handler.CallStackRuns(), 2u);
}

TEST_F(CErrorHandlerCallStack, PoppingTakesOneEntryOfARun) {
  handler.CallStackPush("Pellora.A.B", "", 3);
  handler.CallStackPop();
  EXPECT_EQ(handler.CallStackDepth(), 2u);
}

TEST_F(CErrorHandlerCallStack, PushingNoneAddsNothing) {
  handler.CallStackPush("Pellora.A.B", "", 0);
  EXPECT_EQ(handler.CallStackDepth(), 0u);
  EXPECT_EQ(handler.CallStackRuns(), 0u);
}

TEST_F(CErrorHandlerCallStack, TracingWritesALineForEachEntryAndExit) {
  TraceTo(2);
  handler.CallStackPush("Pellora.frmNewProject.ButCheckAll_Click", "");
  handler.CallStackPop();
  EXPECT_EQ(TracingLog(),
            "12/18/2007 - 9:30:00 AM --- Entered routine: Pellora.frmNewProject.ButCheckAll_Click\r\n"
            "12/18/2007 - 9:30:00 AM --- Exited routine: Pellora.frmNewProject.ButCheckAll_Click\r\n");
}

TEST_F(CErrorHandlerCallStack, TracingWritesALineForEachOfManyEntries) {
  TraceTo(2);
  handler.CallStackPush("A", "", 3);
  EXPECT_EQ(TracingLog(),
            "12/18/2007 - 9:30:00 AM --- Entered routine: A\r\n"
            "12/18/2007 - 9:30:00 AM --- Entered routine: A\r\n"
            "12/18/2007 - 9:30:00 AM --- Entered routine: A\r\n");
}

TEST_F(CErrorHandlerCallStack, BothTracingFlagsWriteEachLineOnce) {
  TraceTo(3);
  handler.CallStackPush("A", "");
  EXPECT_EQ(TracingLog(), "12/18/2007 - 9:30:00 AM --- Entered routine: A\r\n");
}

TEST_F(CErrorHandlerCallStack, TracingToTheDebugOutputAloneWritesNoFile) {
  TraceTo(1);
  handler.CallStackPush("A", "");
  EXPECT_TRUE(platform.logFiles.files.empty());
}

TEST_F(CErrorHandlerCallStack, DisabledTracingWritesNoFile) {
  handler.CallStackPush("A", "");
  handler.CallStackPop();
  EXPECT_TRUE(platform.logFiles.files.empty());
}

TEST_F(CErrorHandlerCallStack, TracingWithTheFlagsItStartsWithWritesNoFile) {
  CErrorHandler fresh;
  fresh.TracingEnabled(true);
  fresh.CallStackPush("A", "");
  EXPECT_TRUE(platform.logFiles.files.empty());
}

TEST_F(CErrorHandlerCallStack, TracingLogIsThePathAsGiven) {
  handler.TracingLogFile("..\\x\\Trace.txt");
  TraceTo(2);
  handler.CallStackPush("A", "");
  EXPECT_TRUE(platform.logFiles.files.contains("..\\x\\Trace.txt"));
}

TEST_F(CErrorHandlerCallStack, TracingLogThatCannotBeWrittenIsTheComponentFailure) {
  TraceTo(2);
  platform.logFiles.refuses = true;
  EXPECT_EQ(Failure([&] { handler.CallStackPush("A", ""); }), kHandlerFailure);
  EXPECT_EQ(Failure([&] { handler.CallStackPop(); }), kHandlerFailure);
}

TEST_F(CErrorHandlerCallStack, TracingLogThatCannotBeWrittenLeavesTheStackRight) {
  TraceTo(2);
  platform.logFiles.refuses = true;
  Failure([&] { handler.CallStackPush("A", ""); });
  EXPECT_EQ(handler.CallStackDepth(), 1u);
  Failure([&] { handler.CallStackPop(); });
  EXPECT_EQ(handler.CallStackDepth(), 0u);
}

/// The portable services with a code page that marks what went through it.
class MarkedCodePage : public TextServices {
 public:
  std::string Upper(std::string_view text) const override { return PortableTextServices().Upper(text); }
  std::optional<double> ParseNumber(std::string_view text) const override {
    return PortableTextServices().ParseNumber(text);
  }
  std::string NumberText(double value) const override { return PortableTextServices().NumberText(value); }
  std::optional<double> ParseDate(std::string_view text) const override {
    return PortableTextServices().ParseDate(text);
  }
  std::string DateText(double days) const override { return PortableTextServices().DateText(days); }
  std::string ShortDate(double) const override { return "18.12.2007"; }
  std::string LongTime(double) const override { return "09:30:00"; }
  std::string ToSystemCodePage(std::string_view text) const override { return "<" + std::string(text) + ">"; }
  std::string FromSystemCodePage(std::string_view bytes) const override { return std::string(bytes); }
};

TEST_F(CErrorHandlerCallStack, TraceLinesAreInTheSystemsFormatsAndCodePage) {
  const MarkedCodePage services;
  InstallTextServices(&services);
  TraceTo(2);
  handler.CallStackPush("A", "");
  EXPECT_EQ(TracingLog(), "<18.12.2007 - 09:30:00 --- Entered routine: A\r\n>");
}

TEST_F(CErrorHandlerCallStack, ErrorLogIsInTheSystemsCodePage) {
  const MarkedCodePage services;
  InstallTextServices(&services);
  handler.HandleError("A", Error(13), 0);
  EXPECT_EQ(platform.logFiles.files["Error Log.txt"],
            "<18.12.2007 - 09:30:00\r\n"
            "\tError: 13, (Type mismatch)\r\n"
            "\tin A at line 0\r\n"
            "\r\n"
            "The call stack is:\r\n"
            "\r\n>");
}

}  // namespace
}  // namespace pellora
