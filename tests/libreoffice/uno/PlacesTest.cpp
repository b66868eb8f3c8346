#include <gtest/gtest.h>

#include <com/sun/star/container/XNamed.hpp>

#include "core/Convert.h"
#include "tests/libreoffice/uno/CalcDocument.h"

namespace pellora::test {
namespace {

// A workbook with sheets of plain and of odd names.
class Places : public testing::Test {
 protected:
  Places() {
    document.AddSheet("My Sheet");
    document.AddSheet("it's");
    document.AddSheet("A!B");
    document.AddName("TWS_Symbol", "$'My Sheet'.$A$1:$A$1048576");
    document.AddName("dead", "#REF!.$A$1");
    document.AddName("constant", "5");
  }
  std::string SheetOf(const excel::Range& range) {
    return ToText(ToObject(range.get()->Invoke("Worksheet", CallKind::Get, {}))->Invoke("Name", CallKind::Get, {}));
  }
  std::int32_t Refusal(std::string_view address) {
    return NumberOf([&] { excel.Range(address).Value(); });
  }

  CalcDocument document;
  excel::Application excel = document.Excel();
};

TEST_F(Places, OfAnAddressAreOnTheActiveSheet) {
  EXPECT_EQ("$B$3:$D$22", excel.Range("B3:D22").Address());
  EXPECT_EQ("Sheet1", SheetOf(excel.Range("B3")));
}

TEST_F(Places, OfAnAddressFollowTheActiveSheet) {
  EXPECT_EQ("Sheet1", SheetOf(excel.Range("B3")));
  excel.Worksheets("My Sheet").Select();
  EXPECT_EQ("My Sheet", SheetOf(excel.Range("B3")));
  const com::sun::star::uno::Reference<com::sun::star::container::XNamed> sheet(document.Sheet("My Sheet"),
                                                                                com::sun::star::uno::UNO_QUERY_THROW);
  sheet->setName("Renamed");
  EXPECT_EQ("Renamed", SheetOf(excel.Range("B3")));
  document.Book()->getSheets()->removeByName("Renamed");
  EXPECT_EQ(excel.ActiveSheet().Name(), SheetOf(excel.Range("B3")));
}

TEST_F(Places, OfAnAddressFollowTheActiveDocument) {
  EXPECT_EQ("Sheet1", SheetOf(excel.Range("B3")));
  CalcDocument other;
  other.AddSheet("Another");
  other.Excel().Worksheets("Another").Select();
  EXPECT_EQ("Another", other.Excel().ActiveSheet().Name());
  EXPECT_EQ(excel.ActiveSheet().Name(), SheetOf(excel.Range("B3")));
}

TEST_F(Places, AreOnTheSheetThatIsNamed) {
  for (const char* address : {"'My Sheet'!A1", "'my sheet'!$A$1:$B$2", "TWS_SYMBOL", "'My Sheet'!TWS_Symbol"})
    EXPECT_EQ("My Sheet", SheetOf(excel.Range(address))) << address;
  EXPECT_EQ("it's", SheetOf(excel.Range("'it''s'!A1")));
  EXPECT_EQ("A!B", SheetOf(excel.Range("'A!B'!A1")));
}

TEST_F(Places, OnNoSheetAreRefusedBeforeTheyHarm) {
  for (const char* address : {"nosuch!A1", "'no such'!A1", "Sheet1!A1,nosuch!A1", "Sheet1!A1:nosuch!B2", "'nosuch!A1"})
    EXPECT_EQ(errors::ApplicationDefined, Refusal(address)) << address;
}

TEST_F(Places, ThatAreNoneAreRefused) {
  for (const char* address : {"", "nosuch", "Sheet1!ZZZ", "Sheet1!", "#REF!A1", "dead", "constant", "A0", "XFE1",
                              "[Book9]Sheet1!A1", "Sheet1!A1,'My Sheet'!B2", "'Sheet1'!TWS_Symbol"})
    EXPECT_EQ(errors::ApplicationDefined, Refusal(address)) << address;
}

TEST_F(Places, OfAWorksheetAreRefusedOnAnotherOne) {
  const auto sheet = excel.Worksheets("Sheet1");
  EXPECT_EQ("$A$1", sheet.Range("A1").Address());
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { sheet.Range("'My Sheet'!A1"); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { sheet.Range("nosuch!A1").Value(); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { sheet.Range("TWS_Symbol"); }));
}

TEST_F(Places, InARangeCountFromItsFirstCell) {
  const auto range = excel.Range("B3:D22");
  EXPECT_EQ("$C$4", range.Cells(2, 2).Address());
  EXPECT_EQ("$A$2", range.Cells(0, 0).Address());
  EXPECT_EQ("$B$3:$C$5", range.Resize(3, 2).Address());
  EXPECT_EQ("B3:D22", range.Address(false));
  EXPECT_EQ("$B:$D", range.EntireColumn().Address());
}

TEST_F(Places, HaveTheirRowColumnAndCounts) {
  const auto range = excel.Range("B3:D22");
  EXPECT_EQ(3, range.Row());
  EXPECT_EQ(2, range.Column());
  EXPECT_EQ(60, range.Count());
  EXPECT_EQ(20, range.Rows().Count());
  EXPECT_EQ(3, range.Columns().Count());
  EXPECT_EQ(1048576, excel.Range("A:A").Count());
}

TEST_F(Places, OutsideTheSheetAreRefused) {
  const auto last = excel.Range("A1048570");
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { last.Resize(20, 3); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { last.Resize(0, 1); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { last.Cells(100, 1); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { excel.Range("A1").Cells(0, 1); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { excel.Columns(16385); }));
  EXPECT_EQ("$A$1048570:$C$1048576", last.Resize(7, 3).Address());
}

TEST_F(Places, OfAWholeSheetAreTooManyToCount) {
  EXPECT_EQ(errors::Overflow, NumberOf([&] { excel.ActiveSheet().Cells().Count(); }));
}

TEST_F(Places, OfTheApplicationsColumnsAreOnTheActiveSheet) {
  EXPECT_EQ("$E:$E", excel.Columns(5).Address());
  EXPECT_EQ("$XFD:$XFD", excel.Columns(16384).Address());
}

TEST_F(Places, InCommonAreTheIntersection) {
  EXPECT_EQ("$B$5", excel.Intersect(excel.Range("A5:D5"), excel.Range("B:B")).Address());
  EXPECT_FALSE(excel.Intersect(excel.Range("A1"), excel.Range("B1")));
}

TEST_F(Places, OfDifferentSheetsHaveNoIntersection) {
  EXPECT_EQ(errors::ApplicationDefined,
            NumberOf([&] { excel.Intersect(excel.Range("A1"), excel.Range("'My Sheet'!A1")); }));
}

TEST_F(Places, EndAtTheLastCellThatIsUsed) {
  document.Cell("Sheet1", 4, 3)->setValue(1);
  document.Cell("Sheet1", 9, 2)->setValue(1);
  EXPECT_EQ("$C$9", excel.Range("A1").SpecialCells(excel::xlCellTypeLastCell).Address());
  EXPECT_EQ("$C$9", excel.ActiveSheet().Cells().SpecialCells(excel::xlCellTypeLastCell).Address());
  EXPECT_EQ("$A$1", excel.Worksheets("My Sheet").Range("A1").SpecialCells(excel::xlCellTypeLastCell).Address());
}

TEST_F(Places, ThatHoldSomethingAreFoundFromTheEnd) {
  document.Cell("Sheet1", 4, 3)->setValue(1);
  document.Cell("Sheet1", 9, 2)->setValue(1);
  const auto cells = excel.ActiveSheet().Cells();
  EXPECT_EQ("$B$9", cells.FindPrevious("*", excel::xlByRows).Address());
  EXPECT_EQ("$C$4", cells.FindPrevious("*", excel::xlByColumns).Address());
  EXPECT_FALSE(excel.Worksheets("My Sheet").Cells().FindPrevious("*", excel::xlByRows));
}

TEST_F(Places, AreSelectedOnTheActiveSheetAlone) {
  EXPECT_EQ(0, NumberOf([&] { excel.Range("B2").Select(); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { excel.Range("'My Sheet'!B2").Select(); }));
  EXPECT_EQ("Sheet1", excel.ActiveSheet().Name());
}

TEST_F(Places, OfSheetsAreSelectedByName) {
  excel.ActiveWorkbook().Activate();
  excel.ActiveWorkbook().Worksheets("MY SHEET").Select();
  EXPECT_EQ("My Sheet", excel.ActiveSheet().Name());
  excel.Worksheets("it's").Select();
  EXPECT_EQ("it's", excel.ActiveSheet().Name());
}

TEST_F(Places, OfHiddenSheetsAreNotSelected) {
  const com::sun::star::uno::Reference<com::sun::star::beans::XPropertySet> sheet(document.Sheet("My Sheet"),
                                                                                  com::sun::star::uno::UNO_QUERY_THROW);
  sheet->setPropertyValue("IsVisible", com::sun::star::uno::Any(false));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { excel.Worksheets("My Sheet").Select(); }));
}

TEST_F(Places, OfSheetsThatAreNotThereAreOutOfRange) {
  EXPECT_EQ(errors::SubscriptOutOfRange, NumberOf([&] { excel.Worksheets("nosuch"); }));
  EXPECT_EQ(errors::SubscriptOutOfRange, NumberOf([&] { excel.ActiveWorkbook().Worksheets(""); }));
}

TEST_F(Places, AreShownOrNotAsTheScreenIsUpdated) {
  excel.ScreenUpdating(false);
  EXPECT_FALSE(excel.ScreenUpdating());
  excel.ScreenUpdating(true);
  EXPECT_TRUE(excel.ScreenUpdating());
}

// Members that macros use beside the library's own wrappers.
Variant Ask(const DispatchPtr& object, std::string_view member, std::vector<Variant> arguments = {}) {
  return object->Invoke(member, CallKind::Get, arguments);
}

TEST_F(Places, OfTheApplicationsCellsAndSheetsAreTheActiveOnes) {
  EXPECT_EQ(Variant("$B$3"), Ask(ToObject(Ask(excel.get(), "Cells", {3, 2})), "Address"));
  EXPECT_EQ(Variant("My Sheet"), Ask(ToObject(Ask(excel.get(), "Sheets", {2})), "Name"));
}

TEST_F(Places, BeyondTheLastLineAreRefusedEverywhere) {
  const auto sheet = excel.ActiveSheet().get();
  const auto range = excel.Range("B2:C3").get();
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { Ask(sheet, "Rows", {1048577}); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { Ask(range, "Rows", {1048577}); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { Ask(range, "Columns", {16385}); }));
}

TEST_F(Places, HaveAddressesByFlagsThatAreNumbers) {
  EXPECT_EQ(Variant("B3"), Ask(excel.Range("B3").get(), "Address", {0, 0}));
  EXPECT_EQ(Variant("B$3"), Ask(excel.Range("B3").get(), "Address", {-1, 0}));
}

TEST_F(Places, InARangeAreRefusedOnNoSheet) {
  EXPECT_EQ(errors::ApplicationDefined,
            NumberOf([&] { Ask(ToObject(Ask(excel.Range("A1").get(), "Range", {"nosuch!A1"})), "Value"); }));
}

}  // namespace
}  // namespace pellora::test
