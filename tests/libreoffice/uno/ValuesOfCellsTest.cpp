#include <gtest/gtest.h>

#include "tests/libreoffice/uno/CalcDocument.h"

namespace pellora::test {
namespace {

TEST(ValuesOfCells, AreReadAsTheyWereWritten) {
  const CalcDocument document;
  const auto cell = document.Excel().Range("B3");
  cell.Value("Local Time");
  EXPECT_EQ(Variant("Local Time"), cell.Value());
}

TEST(ValuesOfCells, OfABlockAreAnArrayFromOne) {
  const CalcDocument document;
  document.Cell("Sheet1", 2, 2)->setValue(7);
  const auto block = document.Excel().Range("A1:B3").ValueBlock();
  EXPECT_EQ(Variant(7.0), block->At(1, 1));
  EXPECT_EQ(1, block->RowBase());
}

}  // namespace
}  // namespace pellora::test
