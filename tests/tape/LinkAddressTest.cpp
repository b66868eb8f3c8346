#include <gtest/gtest.h>

#include "tape/cLinkAddresseses.h"
#include "tests/Raised.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;

TEST(cLinkAddress, StartsEmptyAndKeepsItsFiveTexts) {
  cLinkAddress tape;
  EXPECT_EQ(tape.NameSize() + tape.SborKey() + tape.DataRange() + tape.Link() + tape.Name(), "");
  tape.NameSize("a");
  tape.SborKey("b");
  tape.DataRange("c");
  tape.Link("d");
  tape.Name("e");
  EXPECT_EQ(tape.NameSize() + tape.SborKey() + tape.DataRange() + tape.Link() + tape.Name(), "abcde");
}

TEST(cLinkAddresses, ItemADDWithTheSameKeyInOtherLettersAnswersTheSameMember) {
  cLinkAddresses tapes;
  const auto first = tapes.ItemADD("Sheet1!$B$3");
  EXPECT_EQ(tapes.ItemADD("SHEET1!$b$3"), first);
  EXPECT_EQ(first->SborKey(), "Sheet1!$B$3");
  EXPECT_EQ(tapes.Count(), 1);
}

TEST(cLinkAddresses, KeysCompareWithoutLetterCaseInEveryScript) {
  cLinkAddresses tapes;
  EXPECT_EQ(tapes.ItemADD("Ünï"), tapes.ItemADD("üNÏ"));
}

TEST(cLinkAddresses, ItemWithAKeyNeverAddedFailsWhileItemADDMakesTheMember) {
  cLinkAddresses tapes;
  EXPECT_EQ(NumberRaisedBy([&] { tapes.Item("x"); }), 5);
  EXPECT_NE(tapes.ItemADD("x"), nullptr);
  EXPECT_EQ(tapes.Item("X"), tapes.Item(std::int32_t{1}));
}

TEST(cLinkAddresses, CountIsZeroThenTwoAndItemOneIsTheFirstAdded) {
  cLinkAddresses tapes;
  EXPECT_EQ(tapes.Count(), 0);
  const auto first = tapes.ItemADD("b");
  tapes.ItemADD("a");
  EXPECT_EQ(tapes.Count(), 2);
  EXPECT_EQ(tapes.Item(std::int32_t{1}), first);
}

TEST(cLinkAddresses, AnIndexOutsideFails) {
  cLinkAddresses tapes;
  tapes.ItemADD("a");
  EXPECT_EQ(NumberRaisedBy([&] { tapes.Item(std::int32_t{0}); }), 9);
  EXPECT_EQ(NumberRaisedBy([&] { tapes.Item(std::int32_t{2}); }), 9);
  EXPECT_EQ(NumberRaisedBy([&] { tapes.Remove(std::int32_t{2}); }), 9);
}

TEST(cLinkAddresses, AddHandsTheMemberBackUnchanged) {
  cLinkAddresses tapes;
  const auto tape = std::make_shared<cLinkAddress>();
  EXPECT_EQ(tapes.Add(tape, "Key"), tape);
  EXPECT_EQ(tape->SborKey(), "");
  EXPECT_EQ(tapes.Item("KEY"), tape);
  EXPECT_EQ(NumberRaisedBy([&] { tapes.Add(tape, "key"); }), 457);
}

TEST(cLinkAddresses, RemoveByIndexOrKeyKeepsTheOthersInReach) {
  cLinkAddresses tapes;
  for (const auto key : {"a", "b", "c", "d"}) tapes.ItemADD(key);
  tapes.Remove(std::int32_t{1});
  tapes.Remove("C");
  ASSERT_EQ(tapes.Count(), 2);
  EXPECT_EQ(tapes.Item(std::int32_t{1})->SborKey(), "b");
  EXPECT_EQ(tapes.Item("d")->SborKey(), "d");
  EXPECT_EQ(NumberRaisedBy([&] { tapes.Item("a"); }), 5);
}

TEST(cLinkAddresses, MembersAreWalkedInTheOrderOfAdding) {
  cLinkAddresses tapes;
  for (const auto key : {"z", "a", "m"}) tapes.ItemADD(key);
  std::string walked;
  for (const auto& tape : tapes.NewEnum()) walked += tape->SborKey();
  EXPECT_EQ(walked, "zam");
}

TEST(cLinkAddresseses, GroupsRememberTheirKeyInTheLetterCaseFirstUsed) {
  cLinkAddresseses groups;
  const auto group = groups.ItemADD("$A$5:$r$5");
  EXPECT_EQ(groups.ItemADD("$a$5:$R$5"), group);
  EXPECT_EQ(group->GroupKey(), "$A$5:$r$5");
  EXPECT_EQ(groups.Count(), 1);
}

TEST(cLinkAddresseses, ItemWithAKeyNeverAddedFailsWhileItemADDMakesTheMember) {
  cLinkAddresseses groups;
  EXPECT_EQ(NumberRaisedBy([&] { groups.Item("x"); }), 5);
  const auto group = groups.ItemADD("x");
  EXPECT_EQ(groups.Item("X"), group);
}

TEST(cLinkAddresseses, CountIsZeroThenTwoAndItemOneIsTheFirstAdded) {
  cLinkAddresseses groups;
  EXPECT_EQ(groups.Count(), 0);
  const auto first = groups.ItemADD("b");
  groups.ItemADD("a");
  EXPECT_EQ(groups.Count(), 2);
  EXPECT_EQ(groups.Item(std::int32_t{1}), first);
}

TEST(cLinkAddresseses, AnIndexOutsideFails) {
  cLinkAddresseses groups;
  groups.ItemADD("a");
  EXPECT_EQ(NumberRaisedBy([&] { groups.Item(std::int32_t{0}); }), 9);
  EXPECT_EQ(NumberRaisedBy([&] { groups.Item(std::int32_t{2}); }), 9);
}

TEST(cLinkAddresseses, AddHandsTheGroupBackUnchanged) {
  cLinkAddresseses groups;
  const auto group = std::make_shared<cLinkAddresses>();
  group->GroupKey("own");
  EXPECT_EQ(groups.Add(group, "Key"), group);
  EXPECT_EQ(group->GroupKey(), "own");
  EXPECT_EQ(groups.Item("kEY"), group);
  EXPECT_EQ(NumberRaisedBy([&] { groups.Add(group, "KEY"); }), 457);
}

TEST(cLinkAddresseses, RemoveByIndexOrKeyKeepsTheOthersInReach) {
  cLinkAddresseses groups;
  for (const auto key : {"a", "b", "c"}) groups.ItemADD(key);
  groups.Remove(std::int32_t{1});
  groups.Remove("C");
  ASSERT_EQ(groups.Count(), 1);
  EXPECT_EQ(groups.Item("b")->GroupKey(), "b");
  EXPECT_EQ(NumberRaisedBy([&] { groups.Remove("a"); }), 5);
}

TEST(cLinkAddresseses, GroupsAreWalkedInTheOrderOfAdding) {
  cLinkAddresseses groups;
  for (const auto key : {"z", "a", "m"}) groups.ItemADD(key);
  std::string walked;
  for (const auto& group : groups.NewEnum()) walked += group->GroupKey();
  EXPECT_EQ(walked, "zam");
}

}  // namespace
}  // namespace pellora
