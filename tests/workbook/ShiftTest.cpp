#include "workbook/Shift.h"

#include "Desk.h"

namespace pellora::workbook {
namespace {

TEST(ShiftFormula, MovesRelativeReferencesOnly) {
  const std::pair<const char*, const char*> pairs[] = {
      {"=A1", "=C2"},
      {"=$A1+A$1+$A$1", "=$A2+C$1+$A$1"},
      {"=SUM(A1:B2)", "=SUM(C2:D3)"},
      {"=LOG10(A1)", "=LOG10(C2)"},
      {"=\"A1\"&'A1 B1'!A1", "=\"A1\"&'A1 B1'!C2"},
      {"=Q1!A1", "=Q1!C2"},
      {"=SUM(A:B,$C:D,1:2)", "=SUM(C:D,$C:F,2:3)"},
      {"=TWS_Symbol+1.5", "=TWS_Symbol+1.5"},
      {"=XFD1", "=#REF!"},
  };
  for (const auto& [formula, moved] : pairs) EXPECT_EQ(ShiftFormula(formula, 1, 2), moved) << formula;
}

TEST(ShiftFormula, LeavingTheSheetIsAnErrorInTheFormula) { EXPECT_EQ(ShiftFormula("=A1+B2", -1, 0), "=#REF!+B1"); }

using Filling = Desk;

TEST_F(Filling, AFormulaPutIntoSeveralCellsMovesAlong) {
  Put(Range("B2:C3"), "Formula", "=A1");
  EXPECT_EQ(document.Formula("Sheet1", "B2"), "=A1");
  EXPECT_EQ(document.Formula("Sheet1", "C3"), "=B2");
}

}  // namespace
}  // namespace pellora::workbook
