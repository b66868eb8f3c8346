#include "platform/libreoffice/component/LibraryState.h"

#include <gtest/gtest.h>

#include <thread>

#include "platform/headless/Headless.h"
#include "platform/libreoffice/component/UnoPellora.h"
#include "support/mGlobal.h"
#include "tests/libreoffice/runner/Runner.h"

namespace pellora::test {
namespace {

using libreoffice::LibraryState;
using libreoffice::UnoPellora;

class TheState : public testing::Test {
 protected:
  /// Drops the last reference to an object while another thread is at work in the library.
  static void ReleaseElsewhere(rtl::Reference<UnoPellora>& object) {
    const mGlobal::ThreadClaim thisThread;
    std::thread([&] { object.clear(); }).join();
  }
  static bool AnObjectLives() { return mGlobal::ErrorHandler != nullptr; }

  rtl::Reference<UnoPellora> object = UnoPellora::Create(Office());
  std::weak_ptr<LibraryState> state = LibraryState::Acquire(Office());
};

TEST_F(TheState, GoesWithTheLastObject) {
  ASSERT_FALSE(state.expired());
  object.clear();
  EXPECT_TRUE(state.expired());
}

TEST_F(TheState, KeepsAnObjectThatIsReleasedDuringAnothersCallWithItsPlatform) {
  ReleaseElsewhere(object);
  EXPECT_TRUE(AnObjectLives());
  EXPECT_NO_THROW(mGlobal::CurrentPlatform());
  LibraryState::Acquire(Office())->LetBuriedGo();
}

TEST_F(TheState, LetsSuchAnObjectGoWithTheNextCallAndThenGoesItself) {
  ReleaseElsewhere(object);
  rtl::Reference<UnoPellora> next = UnoPellora::Create(Office());
  next->UnloadfrmMaster();
  next.clear();
  EXPECT_FALSE(AnObjectLives());
  EXPECT_TRUE(state.expired());
}

TEST_F(TheState, LetsSuchAnObjectGoWhenTheProgramEnds) {
  ReleaseElsewhere(object);
  LibraryState::Acquire(Office())->OfficeEnds();
  EXPECT_FALSE(AnObjectLives());
  EXPECT_TRUE(state.expired());
}

TEST_F(TheState, LeavesAPlatformThatWasInstalledSince) {
  headless::HeadlessPlatform other;
  object.clear();
  EXPECT_NO_THROW(mGlobal::CurrentPlatform());
}

}  // namespace
}  // namespace pellora::test
