#include "forms/Placing.h"

#include <gtest/gtest.h>

#include "forms/CheckBox.h"
#include "forms/Grid.h"
#include "forms/ListBox.h"
#include "forms/TextBox.h"
#include "tests/forms/FormParts.h"

namespace pellora {

// For readable failures.
void PrintTo(const Rect& rect, std::ostream* out) {
  *out << rect.left << ' ' << rect.top << ' ' << rect.right << ' ' << rect.bottom;
}
void PrintTo(const Size& size, std::ostream* out) { *out << size.width << 'x' << size.height; }

namespace {

using test::PlainForm;

constexpr Rect kArea{10, 20, 110, 220};

TEST(Placing, WhatIsInsideStaysWhereItIs) { EXPECT_EQ(MovedInside({30, 40, 60, 80}, kArea), (Rect{30, 40, 60, 80})); }

TEST(Placing, WhatLiesOutsideIsMovedToTheNearestEdge) {
  EXPECT_EQ(MovedInside({-50, -50, -20, -10}, kArea), (Rect{10, 20, 40, 60}));
  EXPECT_EQ(MovedInside({500, 500, 530, 540}, kArea), (Rect{80, 180, 110, 220}));
}

TEST(Placing, WhatIsTooLargeKeepsItsSizeAndItsLeftAndTopEdgesInside) {
  EXPECT_EQ(MovedInside({0, 0, 300, 400}, kArea), (Rect{10, 20, 310, 420}));
}

TEST(Placing, AWindowIsCentredOverAnotherOne) { EXPECT_EQ(Centred({40, 100}, kArea), (Rect{40, 70, 80, 170})); }

TEST(Placing, ALargerWindowIsCentredToo) { EXPECT_EQ(Centred({120, 220}, kArea), (Rect{0, 10, 120, 230})); }

class FirstSize : public testing::Test {
 protected:
  void LayOut(LayoutNode content) { form.Layout(std::move(content)); }
  Size Least() const { return LeastClient(form, measurer); }
  Size First() const { return FirstClient(form, measurer, {5000, 5000}); }
  Size Larger() const { return {Least().width * 5 / 4, Least().height * 5 / 4}; }

  headless::HeadlessToolkit toolkit;
  headless::HeadlessMeasurer measurer{96};
  PlainForm form{toolkit};
};

TEST_F(FirstSize, TheLeastClientAreaHasTheLayoutAndAMarginAtEachSide) {
  CheckBox check(form, "chkOne", "One");
  LayOut(Column({check}));
  const auto content = MeasureLayout(*form.Layout(), measurer);
  EXPECT_EQ(Least(), (Size{content.width + 2 * kFormMargin, content.height + 2 * kFormMargin}));
}

TEST_F(FirstSize, AFormWithoutALayoutHasItsMargins) { EXPECT_EQ(Least(), (Size{2 * kFormMargin, 2 * kFormMargin})); }

TEST_F(FirstSize, AFormWithAGridIsLargerAtFirst) {
  Grid grid(form, "grdOne", {{"Ticker", 80}});
  form.BorderStyle(BorderStyle::Sizable);
  LayOut(Column({grid}));
  EXPECT_EQ(First(), Larger());
}

TEST_F(FirstSize, AFormWithAListIsLargerAtFirst) {
  ListBox list(form, "lstOne");
  form.BorderStyle(BorderStyle::Sizable);
  LayOut(Column({list}));
  EXPECT_EQ(First(), Larger());
}

TEST_F(FirstSize, AFormWithATextIsLargerAtFirstOnlyWhenThatHasSeveralLines) {
  TextBox text(form, "txtOne");
  form.BorderStyle(BorderStyle::Sizable);
  LayOut(Column({text}));
  EXPECT_EQ(First(), Least());
  text.MultiLine(true);
  EXPECT_EQ(First(), Larger());
}

TEST_F(FirstSize, AFormOfFixedSizeBeginsWithItsLeast) {
  Grid grid(form, "grdOne", {{"Ticker", 80}});
  form.BorderStyle(BorderStyle::FixedDialog);
  LayOut(Column({grid}));
  EXPECT_EQ(First(), Least());
}

TEST_F(FirstSize, AFormGetsNoMoreThanThereIsRoomForAndNeverLessThanItsLeast) {
  Grid grid(form, "grdOne", {{"Ticker", 80}});
  form.BorderStyle(BorderStyle::Sizable);
  LayOut(Column({grid}));
  const auto least = Least();
  EXPECT_EQ(FirstClient(form, measurer, {least.width + 1, 1}), (Size{least.width + 1, least.height}));
}

}  // namespace
}  // namespace pellora
