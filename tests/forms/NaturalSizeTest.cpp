#include "forms/NaturalSize.h"

#include <gtest/gtest.h>

#include "forms/CheckBox.h"
#include "forms/CommandButton.h"
#include "forms/OptionButton.h"
#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

// A platform whose boxes and circles take that much room.
class Glyphs : public headless::HeadlessMeasurer {
 public:
  explicit Glyphs(int pixels) : m_pixels(pixels) {}
  int CheckGlyph() const override { return m_pixels; }

 private:
  int m_pixels;
};

class NaturalSizeTest : public testing::Test {
 protected:
  int WidthWith(const Control& control, int glyph) { return NaturalSize(control, {}, Glyphs(glyph)).width; }

  headless::HeadlessToolkit toolkit;
  test::PlainForm form{toolkit};
};

TEST_F(NaturalSizeTest, ABoxAndACircleLeaveThePlatformsRoomBesideTheirText) {
  const CheckBox box(form, "chk", "Volume");
  const OptionButton option(form, "opt", "Volume");
  for (const Control* control : std::initializer_list<const Control*>{&box, &option})
    EXPECT_EQ(WidthWith(*control, 33) - WidthWith(*control, 0), 33);
}

TEST_F(NaturalSizeTest, AButtonHasNoSuchRoom) {
  const CommandButton button(form, "but", "A caption that is longer than buttons are");
  EXPECT_EQ(WidthWith(button, 33), WidthWith(button, 0));
}

TEST_F(NaturalSizeTest, APlatformThatTellsNoRoomLeavesTwentyDipAtEveryScale) {
  EXPECT_EQ(headless::HeadlessMeasurer(96).CheckGlyph(), 20);
  EXPECT_EQ(headless::HeadlessMeasurer(144).CheckGlyph(), 30);
}

}  // namespace
}  // namespace pellora
