#include "forms/ComboBox.h"

#include <gtest/gtest.h>

#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;
using test::PlainForm;
using test::RecordingPeer;

class ComboBoxes : public testing::Test {
 protected:
  void Fill(ComboBox& list) {
    for (const auto* item : {"one", "two", "three"}) list.AddItem(item);
    list.Click = [this] { ++clicks; };
  }
  std::vector<Aspect> told;
  int clicks = 0;
  int changes = 0;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
};

class EditableCombo : public ComboBoxes {
 protected:
  EditableCombo() {
    Fill(combo);
    combo.Change = [this] { ++changes; };
  }
  ComboBox combo{form, "ComOne", ComboStyle::DropDown};
};

TEST_F(EditableCombo, ChoosingAnItemSetsTheTextAndRaisesClickOnly) {
  combo.PeerListIndex(1);
  EXPECT_EQ(combo.Text(), "two");
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(changes, 0);
}

TEST_F(EditableCombo, AnyTextIsTakenAndRaisesChange) {
  combo.Text("other");
  EXPECT_EQ(combo.Text(), "other");
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(changes, 1);
}

TEST_F(EditableCombo, ATextThatEqualsAnItemChoosesItWithoutClick) {
  combo.Text("three");
  EXPECT_EQ(combo.ListIndex(), 2);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(clicks, 0);
}

TEST_F(EditableCombo, TextsCompareExactly) {
  combo.Text("Three");
  EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(EditableCombo, OfEqualItemsTheFirstIsChosen) {
  combo.AddItem("two");
  combo.Text("two");
  EXPECT_EQ(combo.ListIndex(), 1);
}

TEST_F(EditableCombo, TypingRaisesChangeAndLeavesAChosenItem) {
  combo.ListIndex(0);
  combo.PeerText("on");
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(changes, 1);
}

TEST_F(EditableCombo, TypingTellsThePeerNothingItShows) {
  combo.AttachPeer(std::make_unique<RecordingPeer>(told));
  combo.PeerText("one");
  EXPECT_TRUE(told.empty());
}

TEST_F(EditableCombo, ThePeerHearsOfTheTextAfterTheIndex) {
  combo.ListIndex(0);
  combo.AttachPeer(std::make_unique<RecordingPeer>(told));
  combo.Text("other");
  EXPECT_EQ(told, (std::vector<Aspect>{Aspect::ListIndex, Aspect::Text}));
}

TEST_F(EditableCombo, ClearingTakesTheTextTooAndRaisesNothing) {
  combo.Text("other");
  combo.Clear();
  EXPECT_EQ(combo.Text(), "");
  EXPECT_EQ(combo.ListCount(), 0);
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(changes, 1);
}

TEST_F(EditableCombo, KeepsItsTextWhenTheChosenItemIsRemoved) {
  combo.ListIndex(1);
  combo.RemoveItem(1);
  EXPECT_EQ(combo.Text(), "two");
  EXPECT_EQ(combo.ListIndex(), -1);
}

class ListCombo : public ComboBoxes {
 protected:
  ListCombo() {
    Fill(combo);
    combo.Change = [this] { ++changes; };
  }
  ComboBox combo{form, "ComOne", ComboStyle::DropDownList};
};

TEST_F(ListCombo, ATextThatIsAnItemChoosesItAndRaisesClick) {
  combo.Text("three");
  EXPECT_EQ(combo.ListIndex(), 2);
  EXPECT_EQ(combo.Text(), "three");
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(changes, 0);
}

TEST_F(ListCombo, AnyOtherTextIsRefused) {
  combo.ListIndex(0);
  EXPECT_EQ(NumberRaisedBy([&] { combo.Text("other"); }), 383);
  EXPECT_EQ(combo.Text(), "one");
}

TEST_F(ListCombo, HasNoTextWithoutAChosenItem) {
  combo.ListIndex(0);
  combo.ListIndex(-1);
  EXPECT_EQ(combo.Text(), "");
}

TEST_F(ListCombo, LosesItsTextWithTheChosenItem) {
  combo.ListIndex(1);
  combo.RemoveItem(1);
  EXPECT_EQ(combo.Text(), "");
}

TEST_F(ListCombo, CannotBeTypedInto) {
  combo.PeerText("two");
  EXPECT_EQ(combo.Text(), "");
  EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace pellora
