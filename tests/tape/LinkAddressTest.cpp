#include <gtest/gtest.h>

#include "core/Error.h"
#include "tape/cLinkAddresseses.h"

namespace pellora {
namespace {

template <class F>
std::int32_t NumberOf(F&& act) {
  try {
    act();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

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
  EXPECT_EQ(NumberOf([&] { tapes.Item("x"); }), 5);
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
  EXPECT_EQ(NumberOf([&] { tapes.Item(std::int32_t{0}); }), 9);
  EXPECT_EQ(NumberOf([&] { tapes.Item(std::int32_t{2}); }), 9);
  EXPECT_EQ(NumberOf([&] { tapes.Remove(std::int32_t{2}); }), 9);
}

TEST(cLinkAddresses, AddHandsTheMemberBackUnchanged) {
  cLinkAddresses tapes;
  const auto tape = std::make_shared<cLinkAddress>();
  EXPECT_EQ(tapes.Add(tape, "Key"), tape);
  EXPECT_EQ(tape->SborKey(), "");
  EXPECT_EQ(tapes.Item("KEY"), tape);
  EXPECT_EQ(NumberOf([&] { tapes.Add(tape, "key"); }), 457);
}

TEST(cLinkAddresses, RemoveByIndexOrKeyKeepsTheOthersInReach) {
  cLinkAddresses tapes;
  for (const auto key : {"a", "b", "c", "d"}) tapes.ItemADD(key);
  tapes.Remove(std::int32_t{1});
  tapes.Remove("C");
  ASSERT_EQ(tapes.Count(), 2);
  EXPECT_EQ(tapes.Item(std::int32_t{1})->SborKey(), "b");
  EXPECT_EQ(tapes.Item("d")->SborKey(), "d");
  EXPECT_EQ(NumberOf([&] { tapes.Item("a"); }), 5);
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

}  // namespace
}  // namespace pellora
