#include <gtest/gtest.h>

#include "forms/ComboBox.h"
#include "forms/ListBox.h"
#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;
using test::PlainForm;
using test::RecordingPeer;

class Lists : public testing::Test {
 protected:
  template <class List>
  void Fill(List& list) {
    for (const auto* item : {"one", "two", "three"}) list.AddItem(item);
    list.Click = [this] { ++clicks; };
  }
  std::vector<Aspect> told;
  int clicks = 0;
  int changes = 0;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
};

class ListBoxTest : public Lists {
 protected:
  ListBoxTest() { Fill(list); }
  ListBox list{form, "lstOne"};
};

TEST_F(ListBoxTest, BeginsWithNothingChosen) { EXPECT_EQ(list.ListIndex(), -1); }

TEST_F(ListBoxTest, ChoosingRaisesClickWhoeverChooses) {
  list.ListIndex(1);
  list.PeerListIndex(2);
  EXPECT_EQ(clicks, 2);
}

TEST_F(ListBoxTest, ChoosingTheChosenItemRaisesNothing) {
  list.ListIndex(1);
  list.ListIndex(1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(ListBoxTest, ChoosingNothingRaisesNothing) {
  list.ListIndex(1);
  list.ListIndex(-1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(ListBoxTest, AnIndexOutsideIsRefused) {
  EXPECT_EQ(NumberRaisedBy([&] { list.ListIndex(3); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { list.ListIndex(-2); }), 380);
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(ListBoxTest, AnItemOutsideCannotBeRead) {
  EXPECT_EQ(list.List(2), "three");
  EXPECT_EQ(NumberRaisedBy([&] { list.List(3); }), 381);
  EXPECT_EQ(NumberRaisedBy([&] { list.List(-1); }), 381);
}

TEST_F(ListBoxTest, AddingBeforeTheChosenItemKeepsItChosen) {
  list.ListIndex(1);
  list.AddItem("zero", 0);
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"zero", "one", "two", "three"}));
  EXPECT_EQ(list.List(list.ListIndex()), "two");
  EXPECT_EQ(clicks, 1);
}

TEST_F(ListBoxTest, AddingOutsideIsRefused) {
  EXPECT_EQ(NumberRaisedBy([&] { list.AddItem("far", 4); }), 5);
  EXPECT_EQ(list.ListCount(), 3);
}

TEST_F(ListBoxTest, RemovingTheChosenItemLeavesNoneChosen) {
  list.ListIndex(1);
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"one", "three"}));
  EXPECT_EQ(clicks, 1);
}

TEST_F(ListBoxTest, RemovingBeforeTheChosenItemKeepsItChosen) {
  list.ListIndex(2);
  list.RemoveItem(0);
  EXPECT_EQ(list.List(list.ListIndex()), "three");
}

TEST_F(ListBoxTest, RemovingOutsideIsRefused) {
  EXPECT_EQ(NumberRaisedBy([&] { list.RemoveItem(3); }), 5);
  EXPECT_EQ(NumberRaisedBy([&] { list.RemoveItem(-1); }), 5);
}

TEST_F(ListBoxTest, ClearingForgetsItemsAndChoiceSilently) {
  list.ListIndex(2);
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(ListBoxTest, AHandlerMayClearTheList) {
  list.Click = [this] { list.Clear(); };
  list.PeerListIndex(2);
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(ListBoxTest, ThePeerHearsOfItemsAndOfAMovedChoice) {
  list.ListIndex(1);
  list.AttachPeer(std::make_unique<RecordingPeer>(told));
  list.AddItem("four");
  list.RemoveItem(0);
  EXPECT_EQ(told, (std::vector<Aspect>{Aspect::Items, Aspect::Items, Aspect::ListIndex}));
}

class EditableCombo : public Lists {
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

class ListCombo : public Lists {
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
