#include <filesystem>
#include <set>

#include "Desk.h"
#include "workbook/tools/Sample.h"

namespace pellora::workbook {
namespace {

class Sample : public Desk {
 protected:
  Sample() { host.Open(PELLORA_SOURCE_DIR "/samples/quotes.xlsx"); }
};

TEST_F(Sample, TheCommittedFileIsWhatTheToolMakes) {
  Document made;
  MakeSample(made);
  EXPECT_EQ(document.names, made.names);
  ASSERT_EQ(document.sheets.size(), made.sheets.size());
  for (std::size_t i = 0; i < made.sheets.size(); ++i) {
    const auto& sheet = *made.sheets[i];
    EXPECT_EQ(document.sheets[i]->name, sheet.name);
    EXPECT_EQ(document.sheets[i]->columnWidths, sheet.columnWidths);
    ASSERT_EQ(document.sheets[i]->cells.size(), sheet.cells.size());
    for (const auto& [place, cell] : sheet.cells) {
      const Cell* held = document.sheets[i]->Find(place);
      ASSERT_NE(held, nullptr);
      const Variant value = cell.formula.empty() ? held->value : Variant();
      EXPECT_EQ(value, cell.value) << place.row << "," << place.column;
      EXPECT_EQ(held->formula, cell.formula);
      EXPECT_EQ(held->format.interior, cell.format.interior);
      for (int side = 0; side < 6; ++side) EXPECT_EQ(held->format.borders[side], cell.format.borders[side]);
    }
  }
}

TEST_F(Sample, HasAllSixSecurityTypes) {
  std::set<std::string> types;
  const Variant block = Get(Range("TWS_Quotes!B2:B27"), "Value");
  for (std::size_t i = 0; i < block.Array().Rows(); ++i) types.insert(ToText(block.Array().At(i, 0)));
  types.erase("");
  EXPECT_EQ(types, (std::set<std::string>{"STK", "OPT", "FUT", "IND", "FOP", "CASH"}));
}

TEST_F(Sample, NamesAllQuoteFields) {
  for (const char* name : {"TWS_Bid_Price", "TWS_Bid_Size", "TWS_Ask_Price", "TWS_Ask_Size", "TWS_Last_Price",
                           "TWS_Last_Size", "TWS_High", "TWS_Low", "TWS_Volume", "TWS_Close"})
    EXPECT_EQ(Get(Range(name), "Count"), Variant(1048576)) << name;
  EXPECT_EQ(Address("Tape_header_for_Ticker"), "$A$1");
}

TEST_F(Sample, TheRecordedTapeFollowsItsQuote) {
  EXPECT_EQ(document.Value("Ticker_tape_settings", "B2"), document.Value("TWS_Quotes", "N2"));
}

TEST_F(Sample, ALargeOneHasTheRowsAskedFor) {
  Document large;
  MakeLarge(large, 500, 30);
  EXPECT_EQ(large.Value("TWS_Quotes", "A501"), Variant("T500"));
  EXPECT_EQ(large.Formula("Ticker_tape_settings", "B31"), "=TWS_Quotes!$N$31");
}

}  // namespace
}  // namespace pellora::workbook
