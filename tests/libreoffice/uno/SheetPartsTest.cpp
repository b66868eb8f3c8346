#include <gtest/gtest.h>

#include "platform/libreoffice/uno/CellValues.h"
#include "platform/libreoffice/uno/Differences.h"
#include "platform/libreoffice/uno/SheetParts.h"

namespace pellora::libreoffice {
namespace {

TEST(SheetParts, HaveTheirNamesWithoutApostrophes) {
  const auto parts = SheetPartsOf("'it''s, ok'!$A$1,[Book]Sheet1!B2,C3");
  ASSERT_TRUE(parts);
  ASSERT_EQ(3u, parts->size());
  EXPECT_EQ("it's, ok", parts->at(0).sheet);
  EXPECT_EQ("$A$1", parts->at(0).local);
  EXPECT_EQ("Book", parts->at(1).book);
  EXPECT_EQ("Sheet1", parts->at(1).sheet);
  EXPECT_FALSE(parts->at(2).sheet);
}

TEST(SheetParts, AreNoneWithAnApostropheLeftOpen) { EXPECT_FALSE(SheetPartsOf("'My Sheet!A1")); }

TEST(SheetParts, AreNotInPlainAddresses) {
  for (const char* plain : {"A1", "$B$3:$D$22", "A:D", "5:7", "a1,C3", "$A1"})
    EXPECT_TRUE(IsPlainAddress(plain)) << plain;
  for (const char* other : {"TWS", "Sheet1!A1", "TWS_Symbol", "", "A", "A1 B2"})
    EXPECT_FALSE(IsPlainAddress(other)) << other;
}

TEST(LinksToOtherPrograms, GoToFunctionsAndBack) {
  for (const char* link : {"=Sam|tik!id1?bid", "=app|topic!item"})
    EXPECT_EQ(link, FunctionAsLink(LinkAsFunction(link)));
  EXPECT_EQ("=DDE(\"Sam\",\"tik\",\"id1?bid\")", LinkAsFunction("=Sam|'tik'!'id1?bid'"));
}

TEST(LinksToOtherPrograms, AreNotSeenInOtherFormulas) {
  for (const char* formula : {"=Sheet1!$A$1", "=\"a|b!c\"", "text|x!y", "=A1", "=DDE(A1,B1,C1)", "=SUM(A1)|x!y"}) {
    EXPECT_EQ(formula, LinkAsFunction(formula));
    EXPECT_EQ(formula, FunctionAsLink(formula));
  }
}

TEST(TheTableOfDifferences, SaysWhyForEachRow) {
  for (const auto& row : Differences()) EXPECT_GT(std::string_view(row.why).size(), 10u) << row.member;
}

TEST(TheTableOfDifferences, HasOneRowForEachUse) {
  const auto rows = Differences();
  for (const auto& one : rows)
    for (const auto& other : rows)
      EXPECT_FALSE(&one != &other && one.object == other.object && one.member == other.member &&
                   ((one.reads && other.reads) || (one.writes && other.writes)))
          << one.member;
}

}  // namespace
}  // namespace pellora::libreoffice
