#include <gtest/gtest.h>

#include "RecordingObject.h"
#include "excel/Application.h"

namespace pellora::excel {
namespace {

using Calls = std::vector<std::string>;

class Wrappers : public testing::Test {
 protected:
  Recording object = std::make_shared<RecordingObject>();
  const Range range = Range(object);
  const Application application = Application(object);
  const Worksheet worksheet = Worksheet(object);
};

TEST_F(Wrappers, RangeReadsItsPartsByTheModelsNames) {
  range.Cells(3, 2);
  range.Cells();
  range.Rows();
  range.Columns();
  range.EntireColumn();
  range.Resize(4, 1);
  range.Interior();
  EXPECT_EQ(object->calls, (Calls{"get Cells(3, 2)", "get Cells()", "get Rows()", "get Columns()", "get EntireColumn()",
                                  "get Resize(4, 1)", "get Interior()"}));
}

TEST_F(Wrappers, RangeReadsItsNumbers) {
  object->answers = {{"Row", 5}, {"Column", 2.0}, {"Count", 1048576}};
  EXPECT_EQ(range.Row(), 5);
  EXPECT_EQ(range.Column(), 2);
  EXPECT_EQ(range.Count(), 1048576);
}

TEST_F(Wrappers, AddressIsAbsoluteUnlessAskedOtherwise) {
  object->answers["Address"] = "$A$1";
  EXPECT_EQ(range.Address(), "$A$1");
  range.Address(false);
  EXPECT_EQ(object->calls, (Calls{"get Address()", "get Address(False, False)"}));
}

TEST_F(Wrappers, BordersAreAskedForByTheirIndex) {
  range.Borders(xlEdgeBottom);
  EXPECT_EQ(object->calls, Calls{"get Borders(9)"});
}

TEST_F(Wrappers, FindPreviousLeavesNothingToTheUsersLastSearch) {
  range.FindPrevious("*", xlByColumns);
  EXPECT_EQ(object->calls, Calls{"call Find(\"*\", missing, -4123, 2, 2, 2)"});
}

TEST_F(Wrappers, FindPreviousAnswersNothingWhenThereIsNone) {
  EXPECT_FALSE(range.FindPrevious("*", xlByRows));
  object->answers["Find"] = DispatchPtr(std::make_shared<RecordingObject>());
  EXPECT_TRUE(range.FindPrevious("*", xlByRows));
}

TEST_F(Wrappers, WritesArePutsWithTheValueLast) {
  range.Value("a");
  range.FormulaLocal("=A1");
  range.ColumnWidth(12.5);
  Interior(object).ColorIndex(15);
  Border(object).LineStyle(xlDashDotDot);
  Border(object).Weight(xlThin);
  Border(object).ColorIndex(-4105);
  application.ScreenUpdating(false);
  EXPECT_EQ(object->calls,
            (Calls{"put Value(\"a\")", "put FormulaLocal(\"=A1\")", "put ColumnWidth(12.5)", "put ColorIndex(15)",
                   "put LineStyle(5)", "put Weight(2)", "put ColorIndex(-4105)", "put ScreenUpdating(False)"}));
}

TEST_F(Wrappers, MethodsAreCalls) {
  range.AutoFit();
  range.Select();
  range.SpecialCells(xlCellTypeLastCell);
  worksheet.Select();
  Workbook(object).Activate();
  application.Intersect(range, range);
  EXPECT_EQ(object->calls, (Calls{"call AutoFit()", "call Select()", "call SpecialCells(11)", "call Select()",
                                  "call Activate()", "call Intersect(object, object)"}));
}

TEST_F(Wrappers, SheetsAndRangesAreFoundByName) {
  application.Range("TWS_Symbol");
  application.Columns(3);
  application.Worksheets("TWS_Quotes");
  Workbook(object).Worksheets("TWS_Quotes");
  worksheet.Range("A1:B2");
  worksheet.Cells();
  application.ActiveSheet();
  application.ActiveWorkbook();
  EXPECT_EQ(object->calls, (Calls{"get Range(\"TWS_Symbol\")", "get Columns(3)", "get Worksheets(\"TWS_Quotes\")",
                                  "get Worksheets(\"TWS_Quotes\")", "get Range(\"A1:B2\")", "get Cells()",
                                  "get ActiveSheet()", "get ActiveWorkbook()"}));
}

TEST_F(Wrappers, ABlockOfSeveralCellsIsTheArrayAsAnswered) {
  const auto block = std::make_shared<VariantArray>(2, 2);
  object->answers = {{"Value", block}, {"FormulaLocal", block}};
  EXPECT_EQ(range.ValueBlock(), block);
  EXPECT_EQ(range.FormulaLocalBlock(), block);
}

TEST_F(Wrappers, ABlockOfASingleCellIsAnArrayTooFromOne) {
  object->answers["Value"] = 7;
  const auto block = range.ValueBlock();
  EXPECT_EQ(block->Rows(), 1u);
  EXPECT_EQ(block->Columns(), 1u);
  EXPECT_EQ(block->RowBase(), 1);
  EXPECT_EQ(block->At(0, 0).Long(), 7);
}

TEST_F(Wrappers, AnAnswerThatIsNoObjectWhereOneIsDueRaisesObjectRequired) {
  object->answers["Cells"] = 5;
  try {
    range.Cells(1, 1);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), errors::ObjectRequired);
  }
}

TEST_F(Wrappers, AnApplicationIsAcceptedByItsMembersOnly) {
  object->members = {{"Range", true},          {"Intersect", true},  {"Columns", true},       {"ActiveSheet", true},
                     {"ActiveWorkbook", true}, {"Worksheets", true}, {"ScreenUpdating", true}};
  EXPECT_TRUE(Application::Accepts(object));
  EXPECT_TRUE(object->calls.empty());
  object->members.erase("Intersect");
  EXPECT_FALSE(Application::Accepts(object));
  EXPECT_FALSE(Application::Accepts(nullptr));
}

}  // namespace
}  // namespace pellora::excel
