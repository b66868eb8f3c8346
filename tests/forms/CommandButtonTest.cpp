#include "forms/CommandButton.h"

#include <gtest/gtest.h>

#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::PlainForm;

class CommandButtonTest : public testing::Test {
 protected:
  CommandButtonTest() {
    button.Click = [this] { ++clicks; };
  }
  int clicks = 0;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
  CommandButton button{form, "ButOne", "One"};
};

TEST_F(CommandButtonTest, RaisesClickWhenPressed) {
  button.PeerClick();
  EXPECT_EQ(clicks, 1);
}

TEST_F(CommandButtonTest, IgnoresPressesWhileItCannotBeUsed) {
  button.Enabled(false);
  button.PeerClick();
  EXPECT_EQ(clicks, 0);
}

TEST_F(CommandButtonTest, ShowsItsCaptionUnlessGivenAPicture) {
  EXPECT_EQ(button.Picture(), ButtonPicture::None);
  button.Picture(ButtonPicture::ArrowUp);
  EXPECT_EQ(button.Picture(), ButtonPicture::ArrowUp);
  EXPECT_EQ(button.AccessibleName(), "One");
}

}  // namespace
}  // namespace pellora
