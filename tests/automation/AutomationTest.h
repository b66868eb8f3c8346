#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>

#include "automation/cPellora.h"
#include "core/Error.h"
#include "platform/headless/Headless.h"
#include "support/CAppSettings.h"
#include "support/CErrorHandler.h"
#include "support/mGlobal.h"

namespace pellora::tests {

inline Error Caught(const std::function<void()>& act) {
  try {
    act();
  } catch (const Error& error) {
    return error;
  }
  return Error(0, "", "nothing was raised");
}

inline void ExpectComponentFailure(const std::function<void()>& act, const std::string& source) {
  const Error error = Caught(act);
  EXPECT_EQ(error.Number(), -2147221404);
  EXPECT_EQ(error.Source(), source);
  EXPECT_EQ(error.Description(), "cPellora component failure");
}

inline constexpr QuoteFields kJunkFields{7, 7, 7, 7, 7, 7, 7, 7, 7, 7};

inline ContractRecord JunkContract(std::int16_t type = 0) {
  return {"junk", "junk", "junk", 7, "junk", 7, "junk", "junk", "junk", type};
}

/// A test of the automation class on a platform without a screen, with a scripted user.
class AutomationTest : public testing::Test {
 protected:
  ~AutomationTest() override { EXPECT_EQ(platform.user().Verify(), ""); }

  void AtForm(std::string_view name, std::function<void(headless::UserAtForm&)> part) {
    platform.user().ExpectForm(name, std::move(part));
  }

  headless::HeadlessPlatform platform;
};

}  // namespace pellora::tests
