#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/Text.h"
#include "platform/headless/Headless.h"
#include "support/CAppSettings.h"
#include "support/CErrorHandler.h"
#include "support/mGlobal.h"

namespace pellora::tests {

/// A test of a dialog: a platform without a screen with a scripted user, and the shared services as the automation
/// class makes them. At its end every expected dialog and message must have come, and the call stack must be empty.
class DialogTest : public testing::Test {
 protected:
  DialogTest() {
    mGlobal::ErrorHandler = std::make_shared<CErrorHandler>();
    mGlobal::ErrorHandler->Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
    mGlobal::AppSettings = std::make_shared<CAppSettings>();
    mGlobal::AppSettings->Init("CORVANE", "Vantix");
  }

  ~DialogTest() override {
    mGlobal::ErrorHandler = nullptr;
    mGlobal::AppSettings = nullptr;
  }

  void TearDown() override {
    EXPECT_EQ(user().Verify(), "");
    EXPECT_EQ(mGlobal::ErrorHandler->CallStackDepth(), 0u);
  }

  headless::ScriptedUser& user() { return platform.user(); }

  void TraceRoutines() { mGlobal::ErrorHandler->TracingEnabled(true); }
  /// The routines entered since `TraceRoutines`, by their qualified names.
  std::vector<std::string> RoutinesEntered() const {
    constexpr std::string_view kEntered = " --- Entered routine: ";
    std::vector<std::string> names;
    const auto log = platform.logFiles.files.find("Tracing Log.txt");
    if (log == platform.logFiles.files.end()) return names;
    for (const auto& line : Split(log->second, "\r\n"))
      if (const auto at = line.find(kEntered); at != std::string::npos)
        names.push_back(line.substr(at + kEntered.size()));
    return names;
  }

  headless::HeadlessPlatform platform;
};

/// What a person does who changes nothing.
inline void Cancel(headless::UserAtForm& hands) { hands.Click("ButCancel"); }

}  // namespace pellora::tests
