#include "forms/Layout.h"

#include <gtest/gtest.h>

#include "forms/CheckBox.h"
#include "forms/ComboBox.h"
#include "forms/CommandButton.h"
#include "forms/Frame.h"
#include "forms/Grid.h"
#include "forms/Label.h"
#include "forms/ListBox.h"
#include "forms/NaturalSize.h"
#include "forms/OptionButton.h"
#include "forms/Pages.h"
#include "forms/TextBox.h"
#include "tests/forms/FormParts.h"
#include "tests/forms/LayoutCheck.h"

namespace pellora {
namespace {

using headless::HeadlessMeasurer;
using test::PlainForm;
using Align = LayoutNode::Align;

/// Lays a tree out without a form's window.
class LayoutTest : public testing::Test {
 protected:
  Size Measure(const LayoutNode& node) const { return MeasureLayout(node, measurer); }
  /// Places a tree in a client area that leaves it so much room inside the margins.
  void Place(const LayoutNode& node, Size room) const {
    const auto margins = 2 * measurer.Scale(kFormMargin);
    PlaceLayout(node, {room.width + margins, room.height + margins}, measurer);
  }
  static int Left(const Control& control) { return control.Bounds().left - kFormMargin; }
  static int Top(const Control& control) { return control.Bounds().top - kFormMargin; }
  static int Width(const Control& control) { return control.Bounds().Width(); }
  static int Height(const Control& control) { return control.Bounds().Height(); }

  HeadlessMeasurer measurer{96};
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
  Label label{form, "lblOne", "Symbol"};
  TextBox text{form, "txtOne"};
  CommandButton first{form, "ButFirst", "OK"};
  CommandButton second{form, "ButSecond", "A much longer caption"};
  CheckBox box{form, "chkOne", "Last price"};
  ListBox list{form, "lstOne"};
};

TEST_F(LayoutTest, APushButtonHasTheUsualLeastSize) { EXPECT_EQ(Measure(first), (Size{75, 23})); }

TEST_F(LayoutTest, APushButtonGrowsWithItsCaption) { EXPECT_GE(Measure(second).width, 21 * 6 + 10); }

TEST_F(LayoutTest, AButtonWithAWidthOfItsOwnMayBeSmall) {
  CommandButton points(form, "ButPoints", "...");
  EXPECT_EQ(Measure(LayoutNode(points).MinWidth(28)).width, 28);
}

TEST_F(LayoutTest, APictureButtonIsSquareWhateverItsName) {
  second.Picture(ButtonPicture::ArrowUp);
  EXPECT_EQ(Measure(second), (Size{23, 23}));
}

TEST_F(LayoutTest, ATextBoxIsAsWideAsItsCharacters) {
  const auto narrow = Measure(LayoutNode(text).Chars(10));
  const auto wide = Measure(LayoutNode(text).Chars(30));
  EXPECT_GE(narrow.width, 60);
  EXPECT_EQ(wide.width - narrow.width, 120);
  EXPECT_EQ(narrow.height, 23);
}

TEST_F(LayoutTest, ATextBoxOfSeveralLinesIsAsHighAsItsLines) {
  text.MultiLine(true);
  EXPECT_GE(Measure(LayoutNode(text).Lines(6)).height, 6 * 13);
  EXPECT_EQ(Measure(LayoutNode(text).Lines(6)).height - Measure(LayoutNode(text).Lines(4)).height, 2 * 13);
}

TEST_F(LayoutTest, AComboLeavesRoomForItsArrowBesideItsCharacters) {
  ComboBox combo(form, "ComOne", ComboStyle::DropDown);
  EXPECT_EQ(Measure(LayoutNode(combo).Chars(10)).width - Measure(LayoutNode(text).Chars(10)).width, 17);
}

TEST_F(LayoutTest, AGridsColumnIsAtLeastAsWideAsItsHeader) {
  Grid narrow(form, "VSFOne", {{"Primary Exchange", 20}, {"P/C", 40}});
  Grid wide(form, "VSFTwo", {{"Primary Exchange", 110}, {"P/C", 40}});
  EXPECT_GE(NaturalColumnWidth(narrow, 0, measurer), 16 * 6 + 12);
  EXPECT_EQ(NaturalColumnWidth(narrow, 1, measurer), 40);
  EXPECT_EQ(Measure(narrow).width, Measure(wide).width);
}

TEST_F(LayoutTest, AGridIsAsWideAsItsColumnsAndItsScrollBar) {
  Grid grid(form, "VSFOne", {{"Ticker", 60}, {"Type", 40}});
  EXPECT_GE(Measure(grid).width, 100 + 17);
  EXPECT_GE(Measure(LayoutNode(grid).Lines(8)).height, 9 * 13);
}

TEST_F(LayoutTest, ALabelOfTwoLinesIsTwiceAsHigh) {
  label.Caption("first\r\nsecond line");
  EXPECT_EQ(Measure(label).height, 26);
  EXPECT_GE(Measure(label).width, 11 * 6);
}

TEST_F(LayoutTest, AHeadingIsMeasuredAsOne) {
  label.Style(TextStyle::Heading);
  EXPECT_EQ(Measure(label).height, 17);
}

TEST_F(LayoutTest, ADoubledAmpersandTakesTheRoomOfOne) {
  Label plain(form, "lblTwo", "A & B");
  label.Caption("A && B");
  EXPECT_EQ(Measure(label), Measure(plain));
}

TEST_F(LayoutTest, LeastSizesHold) { EXPECT_EQ(Measure(Row({first}).MinWidth(200).MinHeight(50)), (Size{200, 50})); }

TEST_F(LayoutTest, ARowPutsItsChildrenSideBySideWithTheUsualGap) {
  Place(Row({first, box}), {});
  EXPECT_EQ(Left(box), 75 + 7);
}

TEST_F(LayoutTest, AColumnPutsItsChildrenBelowEachOtherWithAGapOfItsOwn) {
  Place(Column({first, second}).Gap(4), {});
  EXPECT_EQ(Top(second), 23 + 4);
  EXPECT_EQ(Left(second), 0);
}

TEST_F(LayoutTest, OneLineControlsStandInTheMiddleOfARow) {
  Place(Row({label, text, list}), {});
  const auto middle = [](const Control& control) { return control.Bounds().top + control.Bounds().bottom; };
  EXPECT_NEAR(middle(label), middle(text), 1);
  EXPECT_NEAR(middle(text), middle(list), 1);
  EXPECT_EQ(Height(text), 23);
}

TEST_F(LayoutTest, AListFillsTheHeightOfItsRow) {
  Place(Row({list, first}), {400, 300});
  EXPECT_EQ(Height(list), 300);
}

TEST_F(LayoutTest, AColumnIsFilledInWidth) {
  Place(Column({text, second}), {400, 100});
  EXPECT_EQ(Width(text), 400);
  EXPECT_EQ(Width(second), 400);
}

TEST_F(LayoutTest, AlignmentMovesWhatIsSmallerThanItsRoom) {
  Place(Column({LayoutNode(first).Aligned(Align::End), LayoutNode(box).Aligned(Align::Center)}), {475, 100});
  EXPECT_EQ(Left(first), 400);
  EXPECT_EQ(Width(first), 75);
  EXPECT_NEAR(Left(box) * 2 + Width(box), 475, 1);
}

TEST_F(LayoutTest, WithoutStretchTheRoomStaysAtTheEnd) {
  Place(Row({first, box}), {900, 23});
  EXPECT_EQ(Width(first), 75);
  EXPECT_EQ(Left(box), 82);
}

TEST_F(LayoutTest, StretchingSharesTheRoomByWeightToTheLastPixel) {
  CommandButton third(form, "ButThird", "Cancel");
  Place(Row({LayoutNode(first).Stretch(), LayoutNode(third).Stretch(2)}).Gap(0), {150 + 100, 23});
  EXPECT_EQ(Width(first), 75 + 33);
  EXPECT_EQ(Width(third), 75 + 67);
  EXPECT_EQ(Left(third) + Width(third), 250);
}

TEST_F(LayoutTest, AStretchingSpacePushesWhatFollowsToTheEnd) {
  Place(Row({label, Space(0).Stretch(), first}), {400, 23});
  EXPECT_EQ(Left(first), 325);
}

TEST_F(LayoutTest, SpaceTakesItsRoomAlongTheLineOnly) {
  EXPECT_EQ(Measure(Row({Space(50)})).height, 0);
  EXPECT_EQ(Measure(Column({Space(50)})), (Size{0, 50}));
}

TEST_F(LayoutTest, SameWidthMakesAllAsWideAsTheWidest) {
  Place(SameWidth({first, second}), {});
  EXPECT_EQ(Width(first), Width(second));
  EXPECT_EQ(Left(second), Width(first) + 7);
}

TEST_F(LayoutTest, ATablesColumnsAreAsWideAsTheirWidestChild) {
  Label longer(form, "lblTwo", "Primary exchange");
  TextBox below(form, "txtTwo");
  Place(Table(2, {label, text, longer, below}), {});
  EXPECT_EQ(text.Bounds().left, below.Bounds().left);
  EXPECT_EQ(Left(text), Measure(longer).width + 7);
  EXPECT_EQ(Top(below), 30);
}

TEST_F(LayoutTest, ATablesColumnStretchesWhenAChildDoes) {
  Label lower(form, "lblTwo", "Expiry");
  TextBox below(form, "txtTwo");
  Place(Table(2, {label, LayoutNode(text).Stretch(), lower, below}), {500, 100});
  EXPECT_EQ(Left(text) + Width(text), 500);
  EXPECT_EQ(Width(below), Width(text));
}

TEST_F(LayoutTest, AHiddenControlTakesNoRoomAndNoGap) {
  first.Visible(false);
  Place(Row({first, box}), {});
  EXPECT_EQ(Left(box), 0);
}

TEST_F(LayoutTest, ARowOfATableWhoseControlsAreHiddenTakesNoRoom) {
  TextBox below(form, "txtTwo");
  Label lower(form, "lblTwo", "Expiry");
  label.Visible(false);
  text.Visible(false);
  Place(Table(2, {label, text, lower, below}), {});
  EXPECT_EQ(Top(below), 0);
}

TEST_F(LayoutTest, AFrameHasRoomForItsTitleAboveItsContent) {
  Frame frame(form, "fraOne", "Title");
  CheckBox inner(frame, "chkInner", "Inner");
  Place(Group(frame, Column({inner})), {});
  EXPECT_GE(inner.Bounds().top, frame.Bounds().top + 13);
  EXPECT_GT(inner.Bounds().left, frame.Bounds().left);
  EXPECT_LT(inner.Bounds().bottom, frame.Bounds().bottom);
}

TEST_F(LayoutTest, AFrameIsAsWideAsItsTitle) {
  Frame frame(form, "fraOne", "A title that is longer than the content");
  CheckBox inner(frame, "chkInner", "x");
  EXPECT_GE(Measure(Group(frame, Column({inner}))).width, 39 * 6);
}

TEST_F(LayoutTest, APanelTakesNoRoomOfItsOwn) {
  Panel panel(form, "elaOne");
  CommandButton inner(panel, "ButInner", "OK");
  EXPECT_EQ(Measure(Group(panel, Column({inner}))), (Size{75, 23}));
}

TEST_F(LayoutTest, AllPagesGetTheRoomOfTheLargestBelowTheTabs) {
  Pages pages(form, "tabAll");
  Page one(pages, "pagOne", "One");
  CommandButton small(one, "ButSmall", "OK");
  Page two(pages, "pagTwo", "Two");
  TextBox large(two, "txtLarge");
  large.MultiLine(true);
  Place(PageStack(pages, {Column({small}), Column({LayoutNode(large).Lines(10)})}), {});
  EXPECT_EQ(one.Bounds(), two.Bounds());
  EXPECT_GE(one.Bounds().top, pages.Bounds().top + 13);
  EXPECT_GE(one.Bounds().Height(), 130);
}

TEST_F(LayoutTest, PagesWithoutTabsTakeNoRoomOfTheirOwn) {
  Pages pages(form, "tabAll");
  pages.ShowTabs(false);
  Page one(pages, "pagOne", "One");
  CommandButton small(one, "ButSmall", "OK");
  EXPECT_EQ(Measure(PageStack(pages, {Column({small})})), (Size{75, 23}));
}

TEST_F(LayoutTest, AnAreaThatIsTooSmallIsUsedAsIfItHadTheLeastSize) {
  PlaceLayout(Row({first, box}), {10, 10}, measurer);
  EXPECT_EQ(Width(first), 75);
  EXPECT_EQ(Left(box), 82);
}

/// Counts what it is asked.
class CountingMeasurer : public HeadlessMeasurer {
 public:
  Size Measure(std::string_view text, TextStyle style) const override {
    ++asked;
    return HeadlessMeasurer::Measure(text, style);
  }
  mutable int asked = 0;
};

TEST_F(LayoutTest, MeasuringDoesNotGrowWithTheDepthOfTheTree) {
  const CountingMeasurer flat, deep;
  MeasureLayout(Row({box}), flat);
  LayoutNode nested(box);
  for (int level = 0; level < 12; ++level) nested = Row({Column({nested})});
  MeasureLayout(nested, deep);
  EXPECT_EQ(deep.asked, flat.asked);
}

TEST_F(LayoutTest, ContentKeepsTheFormsMargin) {
  PlaceLayout(Row({LayoutNode(text).Stretch()}), {500, 100}, measurer);
  EXPECT_EQ(text.Bounds().left, 11);
  EXPECT_EQ(text.Bounds().right, 489);
}

/// A dialog with every kind of control, at every scale that is common.
class WholeDialog : public testing::TestWithParam<int> {
 protected:
  WholeDialog() {
    message.MultiLine(true);
    up.Picture(ButtonPicture::ArrowUp);
    heading.Style(TextStyle::Heading);
    form.Layout(
        Column({heading,
                Row({LayoutNode(grid).Lines(8).Stretch(2),
                     Column({LayoutNode(list).Lines(4).Stretch(), SameWidth({up, points})}).Stretch()})
                    .Stretch(2),
                Table(2, {label, LayoutNode(text).Stretch(), comboLabel, LayoutNode(combo).Chars(12)}),
                Group(frame, Row({bid, ask, size})),
                PageStack(pages, {Column({onFirst}), Column({LayoutNode(message).Lines(3).Stretch()})}).Stretch(),
                Row({Space(0).Stretch(), SameWidth({ok, cancel})})}));
  }
  /// Lays out in the least size plus so many pixels and answers what is wrong with it.
  std::string FaultsWith(Size more) {
    const HeadlessMeasurer measurer(GetParam());
    const auto least = MeasureLayout(*form.Layout(), measurer);
    const auto margins = 2 * measurer.Scale(kFormMargin);
    const Size client{least.width + margins + more.width, least.height + margins + more.height};
    PlaceLayout(*form.Layout(), client, measurer);
    return test::LayoutFaults(form, client, measurer);
  }

  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
  Label heading{form, "lblHeading", "An error occurred in the library"};
  Grid grid{form, "VSFSymbols", {{"Ticker", 64}, {"Type", 40}, {"Exchange", 71}}};
  ListBox list{form, "lstItems"};
  CommandButton up{form, "ButUp", "Move up"};
  CommandButton points{form, "ButPoints", "..."};
  Label label{form, "lblSymbol", "Symbol:"};
  TextBox text{form, "txtSymbol"};
  Label comboLabel{form, "lblExchange", "Primary exchange:"};
  ComboBox combo{form, "ComExchange", ComboStyle::DropDown};
  Frame frame{form, "fraField", "Quote field"};
  OptionButton bid{frame, "OptBid", "Bid price"};
  OptionButton ask{frame, "OptAsk", "Ask price"};
  CheckBox size{frame, "chkSize", "With its size"};
  Pages pages{form, "tabAll"};
  Page first{pages, "pagFirst", "Stock"};
  CheckBox onFirst{first, "chkFirst", "Only on the first page"};
  Page second{pages, "pagSecond", "Futures option"};
  TextBox message{second, "txtMessage"};
  CommandButton ok{form, "ButInsert", "Insert && new"};
  CommandButton cancel{form, "ButCancel", "Cancel"};
};

TEST_P(WholeDialog, IsWholeAtItsLeastSize) { EXPECT_EQ(FaultsWith({}), ""); }

TEST_P(WholeDialog, IsWholeWhenEnlarged) {
  EXPECT_EQ(FaultsWith({1, 1}), "");
  EXPECT_EQ(FaultsWith({317, 211}), "");
}

TEST_P(WholeDialog, StretchingPartsReachTheRightEdge) {
  FaultsWith({317, 211});
  EXPECT_EQ(list.Bounds().right, cancel.Bounds().right);
  EXPECT_EQ(text.Bounds().right, cancel.Bounds().right);
}

TEST_P(WholeDialog, IsWholeWithPartsHidden) {
  label.Visible(false);
  text.Visible(false);
  frame.Visible(false);
  up.Visible(false);
  EXPECT_EQ(FaultsWith({50, 50}), "");
}

INSTANTIATE_TEST_SUITE_P(AtCommonScales, WholeDialog, testing::Values(96, 120, 144, 192));

TEST(LayoutFaults, ArePointedOut) {
  const HeadlessMeasurer measurer(96);
  headless::HeadlessToolkit toolkit;
  PlainForm form(toolkit);
  CheckBox one(form, "chkOne", "One");
  CheckBox two(form, "chkTwo", "Two");
  one.Bounds({0, 0, 50, 20});
  two.Bounds({49, 0, 99, 20});
  EXPECT_EQ(test::LayoutFaults(form, {200, 200}, measurer), "chkOne overlaps chkTwo\n");
  two.Bounds({160, 0, 210, 20});
  EXPECT_EQ(test::LayoutFaults(form, {200, 200}, measurer), "chkTwo leaves the client area\n");
  two.Bounds({60, 0, 70, 20});
  EXPECT_EQ(test::LayoutFaults(form, {200, 200}, measurer), "chkTwo is smaller than its text\n");
}

}  // namespace
}  // namespace pellora
