#include "forms/ListBox.h"

#include <gtest/gtest.h>

#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;
using test::PlainForm;
using test::RecordingPeer;

class ListBoxTest : public testing::Test {
 protected:
  ListBoxTest() {
    for (const auto* item : {"one", "two", "three"}) list.AddItem(item);
    list.Click = [this] { ++clicks; };
  }
  std::vector<Aspect> told;
  int clicks = 0;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
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

}  // namespace
}  // namespace pellora
