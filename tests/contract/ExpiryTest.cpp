#include "contract/Expiry.h"

#include <gtest/gtest.h>

namespace pellora {
namespace {

TEST(NextMonth, IsTheFollowingMonthWithTwoDigits) {
  EXPECT_EQ(NextMonth({2007, 1, 31}), "200702");
  EXPECT_EQ(NextMonth({2007, 9, 1}), "200710");
  EXPECT_EQ(NextMonth({2007, 11, 30}), "200712");
}

TEST(NextMonth, RollsOverFromDecemberToJanuaryOfTheNextYear) {
  EXPECT_EQ(NextMonth({2007, 12, 1}), "200801");
  EXPECT_EQ(NextMonth({2007, 12, 31}), "200801");
  EXPECT_EQ(NextMonth({1999, 12, 15}), "200001");
}

TEST(NextMonth, WritesTheYearWithFourDigits) { EXPECT_EQ(NextMonth({987, 6, 5}), "098707"); }

}  // namespace
}  // namespace pellora
