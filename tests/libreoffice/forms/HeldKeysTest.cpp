#include "platform/libreoffice/forms/HeldKeys.h"

#include <gtest/gtest.h>

#include <com/sun/star/awt/Key.hpp>
#include <rtl/ref.hxx>

#include "platform/libreoffice/forms/MessageEar.h"

namespace pellora::libreoffice {
namespace {

namespace awt = com::sun::star::awt;

awt::KeyEvent KeyOf(sal_Int16 code) {
  awt::KeyEvent key;
  key.KeyCode = code;
  return key;
}

const auto kEnter = KeyOf(awt::Key::RETURN);
const auto kEscape = KeyOf(awt::Key::ESCAPE);

/// Two windows, one of which has come up after the other.
class HeldKeysTest : public testing::Test {
 protected:
  HeldKeysTest() {
    before.Released(kEnter);
    before.Released(kEscape);
    before.Begin();
  }
  /// A key is pressed in the first window, and the second comes up.
  void PressAndComeUp(const awt::KeyEvent& key) {
    before.Pressed(key);
    after.Begin();
  }
  HeldKeys before;
  HeldKeys after;
};

TEST_F(HeldKeysTest, AKeyPressedInItsWindowCounts) { EXPECT_FALSE(before.Pressed(kEnter)); }

TEST_F(HeldKeysTest, TheRepeatsOfAKeyHeldFromTheWindowBeforeArePassedOver) {
  PressAndComeUp(kEnter);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(after.Pressed(kEnter));
  EXPECT_FALSE(after.Released(kEnter).has_value());
}

TEST_F(HeldKeysTest, AKeyCountsAgainOnceItWasReleased) {
  PressAndComeUp(kEscape);
  EXPECT_TRUE(after.Pressed(kEscape));
  after.Released(kEscape);
  EXPECT_FALSE(after.Pressed(kEscape));
}

TEST_F(HeldKeysTest, AKeyReleasedBeforeTheWindowCameUpCounts) {
  before.Pressed(kEnter);
  before.Released(kEnter);
  after.Begin();
  EXPECT_FALSE(after.Pressed(kEnter));
}

TEST_F(HeldKeysTest, AnotherKeyCounts) {
  PressAndComeUp(kEnter);
  EXPECT_FALSE(after.Pressed(kEscape));
}

TEST_F(HeldKeysTest, AnotherKeyEndsTheHolding) {
  PressAndComeUp(kEnter);
  after.Pressed(KeyOf(awt::Key::TAB));
  EXPECT_FALSE(after.Pressed(kEnter));
}

TEST_F(HeldKeysTest, APressAfterALostReleaseIsMadeUpForByItsOwn) {
  PressAndComeUp(kEnter);
  after.Pressed(kEnter);
  const auto missed = after.Released(kEnter);
  ASSERT_TRUE(missed.has_value());
  EXPECT_EQ(missed->KeyCode, awt::Key::RETURN);
}

// The release of the press that brings a message up may be lost.
TEST_F(HeldKeysTest, AMessageHearsTheFirstEnterAfterThePressThatBroughtItUp) {
  before.Pressed(kEnter);
  const rtl::Reference<MessageEar> message(new MessageEar(false));
  EXPECT_FALSE(message->keyPressed(kEnter));
}

TEST_F(HeldKeysTest, AKeyHeldFromAMessageIsPassedOverByTheFormBelow) {
  const rtl::Reference<MessageEar> message(new MessageEar(false));
  message->keyPressed(kEnter);
  after.Begin();
  EXPECT_TRUE(after.Pressed(kEnter));
}

}  // namespace
}  // namespace pellora::libreoffice
