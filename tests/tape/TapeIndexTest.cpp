#include "tape/TapeIndex.h"

#include <gtest/gtest.h>

namespace pellora {
namespace {

TapeRecord Linked(std::string link) { return {"name", std::move(link), "", "Sheet1!A1:B4"}; }

std::vector<std::size_t> Following(const TapeIndex& index, std::string_view row) {
  return index.Following(*ParseArea(row));
}

TEST(TapeIndex, ARecordFollowsTheRowThatItsLinkMeets) {
  const TapeIndex index({Linked("=TWS_Quotes!$E$7"), Linked("=TWS_Quotes!$E$8"), Linked("=TWS_Quotes!$F$7")}, {});
  EXPECT_EQ(Following(index, "$A$7:$S$7"), (std::vector<std::size_t>{0, 2}));
  EXPECT_EQ(Following(index, "$A$9:$S$9"), (std::vector<std::size_t>{}));
}

TEST(TapeIndex, ALinkBesideTheRowDoesNotMeetIt) {
  EXPECT_TRUE(Following(TapeIndex({Linked("=TWS_Quotes!$Z$7")}, {}), "$A$7:$S$7").empty());
}

TEST(TapeIndex, LinksOfSeveralRowsFollowEachOfThemInTheOrderOfTheRecords) {
  const TapeIndex index({Linked("=TWS_Quotes!$E:$E"), Linked("=TWS_Quotes!$E$7"), Linked("=TWS_Quotes!$E$6:$E$8")}, {});
  EXPECT_EQ(Following(index, "$A$7:$S$7"), (std::vector<std::size_t>{0, 1, 2}));
  EXPECT_EQ(Following(index, "$A$9:$S$9"), (std::vector<std::size_t>{0}));
}

TEST(TapeIndex, TheSheetIsComparedWithoutLetterCaseAndWithoutEqualsSigns) {
  EXPECT_EQ(Following(TapeIndex({Linked("==tws_QUOTES!$E$7")}, {}), "$A$7:$S$7").size(), 1u);
}

TEST(TapeIndex, ALinkToAnotherSheetFollowsNoQuote) {
  EXPECT_TRUE(Following(TapeIndex({Linked("=Sheet1!$E$7"), Linked("='Sheet1'!$E$7")}, {}), "$A$7:$S$7").empty());
}

TEST(TapeIndex, ALinkWithTheQuoteSheetsNameInApostrophesIsALinkToTheQuoteSheet) {
  EXPECT_EQ(Following(TapeIndex({Linked("='TWS_Quotes'!$E$7")}, {}), "$A$7:$S$7").size(), 1u);
}

TEST(TapeIndex, RecordsWithoutNameLinkOrLocationAreLeftOut) {
  std::vector<TapeRecord> records(4, Linked("=TWS_Quotes!$E$7"));
  records[0].name.clear();
  records[1].link.clear();
  records[2].location.clear();
  EXPECT_EQ(TapeIndex(records, {}).Records().size(), 1u);
}

TEST(TapeIndex, AnAddressThatIsNotPlainIsResolvedOnce) {
  int asked = 0;
  const auto resolve = [&](const std::string& address) -> std::optional<std::vector<Area>> {
    ++asked;
    return address == "Last" ? ParseAreas("$E$7,$E$9") : std::nullopt;
  };
  const TapeIndex index({Linked("=TWS_Quotes!Last"), Linked("=TWS_Quotes!Last"), Linked("=TWS_Quotes!None")}, resolve);
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(Following(index, "$A$7:$S$7"), (std::vector<std::size_t>{0, 1}));
  EXPECT_EQ(Following(index, "$A$9:$S$9"), (std::vector<std::size_t>{0, 1}));
}

TEST(TapeIndex, ARecordThatMeetsTheRowTwiceIsFoundOnce) {
  const auto twice = [](const std::string&) { return ParseAreas("$E$7,$F$7"); };
  EXPECT_EQ(Following(TapeIndex({Linked("=TWS_Quotes!Both")}, twice), "$A$7:$S$7").size(), 1u);
}

}  // namespace
}  // namespace pellora
