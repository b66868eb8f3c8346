#include "forms/ListItems.h"

#include <gtest/gtest.h>

namespace pellora {
namespace {

using Texts = std::vector<std::string>;

// A native list: what is told to it, and how often.
class ListItemsTest : public testing::Test {
 protected:
  bool Follow(const Texts& wanted) {
    calls.clear();
    return items.Follow(
        wanted,
        [this](int index) {
          calls.push_back("-" + shown.at(static_cast<std::size_t>(index)));
          shown.erase(shown.begin() + index);
        },
        [this](int index, const std::string& item) {
          calls.push_back("+" + item);
          shown.insert(shown.begin() + index, item);
        });
  }

  ListItems items;
  Texts shown;
  Texts calls;
};

TEST_F(ListItemsTest, AnEmptyListTakesAllItemsInOrder) {
  EXPECT_TRUE(Follow({"a", "b", "c"}));
  EXPECT_EQ(shown, (Texts{"a", "b", "c"}));
  EXPECT_EQ(calls, (Texts{"+a", "+b", "+c"}));
}

TEST_F(ListItemsTest, TheSameItemsTakeNoCall) {
  Follow({"a", "b"});
  EXPECT_FALSE(Follow({"a", "b"}));
  EXPECT_EQ(calls, Texts{});
}

TEST_F(ListItemsTest, NothingStaysNothing) { EXPECT_FALSE(Follow({})); }

TEST_F(ListItemsTest, WhatBothHaveAtTheEndsStays) {
  Follow({"a", "b", "c", "d"});
  EXPECT_TRUE(Follow({"a", "x", "y", "d"}));
  EXPECT_EQ(shown, (Texts{"a", "x", "y", "d"}));
  EXPECT_EQ(calls, (Texts{"-c", "-b", "+x", "+y"}));
}

TEST_F(ListItemsTest, AnItemMoreIsOneCallWhereverItIs) {
  for (const Texts& wanted : {Texts{"x", "a", "b"}, Texts{"a", "x", "b"}, Texts{"a", "b", "x"}}) {
    Follow({"a", "b"});
    EXPECT_TRUE(Follow(wanted));
    EXPECT_EQ(shown, wanted);
    EXPECT_EQ(calls, Texts{"+x"});
  }
}

TEST_F(ListItemsTest, AnItemLessIsOneCallWhereverItIs) {
  for (const Texts& wanted : {Texts{"b", "c"}, Texts{"a", "c"}, Texts{"a", "b"}}) {
    Follow({"a", "b", "c"});
    EXPECT_TRUE(Follow(wanted));
    EXPECT_EQ(shown, wanted);
    EXPECT_EQ(calls.size(), 1u);
  }
}

// The equal ones at the beginning and at the end may not be counted twice.
TEST_F(ListItemsTest, EqualItemsAreAsManyAsWanted) {
  for (const Texts& wanted : {Texts{"a", "a"}, Texts{"a", "a", "a"}, Texts{"a"}, Texts{"a", "a", "b", "a"}, Texts{}}) {
    Follow(wanted);
    EXPECT_EQ(shown, wanted);
  }
}

TEST_F(ListItemsTest, ALetterInAnotherCaseIsAnotherItem) {
  Follow({"a"});
  EXPECT_TRUE(Follow({"A"}));
  EXPECT_EQ(shown, Texts{"A"});
}

}  // namespace
}  // namespace pellora
