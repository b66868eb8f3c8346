#include "automation/ArgumentOrder.h"

#include <gtest/gtest.h>

#include <set>

namespace pellora {
namespace {

TEST(ArgumentOrder, QuoteFieldsAreGivenInTheOrderOfTheirRecord) {
  const QuoteFields fields{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
  std::int16_t expected = 0;
  for (const auto field : kQuoteFieldOrder) EXPECT_EQ(fields.*field, ++expected);
  EXPECT_EQ(expected, fields.Volume);
}

TEST(ArgumentOrder, TheTextsOfAContractAreGivenInTheOrderOfItsRecord) {
  const ContractRecord contract{"0", "1", "2", 3, "4", 5, "6", "7", "8", 9};
  for (const auto& [text, place] : kContractTextOrder) EXPECT_EQ(contract.*text, std::to_string(place));
}

TEST(ArgumentOrder, EachArgumentOfAContractHasItsPlace) {
  std::set<std::size_t> places = {kStrikePlace, kMultiplierPlace, kComTypeListIndexPlace};
  for (const auto& text : kContractTextOrder) places.insert(text.place);
  EXPECT_EQ(places, (std::set<std::size_t>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(ArgumentOrder, TheOtherArgumentsOfAContractStandWhereItsRecordHasThem) {
  const ContractRecord contract{"", "", "", kStrikePlace, "", kMultiplierPlace, "", "", "", kComTypeListIndexPlace};
  EXPECT_EQ(contract.Strike, 3);
  EXPECT_EQ(contract.Multiplier, 5);
  EXPECT_EQ(contract.ComTypeListIndex, 9);
}

}  // namespace
}  // namespace pellora
