#include <gtest/gtest.h>

#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellRangeContainer.hpp>
#include <com/sun/star/sheet/XViewPane.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

#include "tests/libreoffice/uno/CalcDocument.h"

namespace pellora::test {
namespace {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

// What a user has selected on "Sheet1" while a macro looks at "Other".
class Selections : public testing::Test {
 protected:
  Selections() { document.AddSheet("Other"); }

  Reference<css::view::XSelectionSupplier> View() const {
    return {document.Model()->getCurrentController(), UNO_QUERY_THROW};
  }
  Reference<css::sheet::XViewPane> Pane() const { return {document.Model()->getCurrentController(), UNO_QUERY_THROW}; }
  Reference<css::table::XCellRange> Cells(const char* address) const {
    return document.Sheet("Sheet1")->getCellRangeByName(rtl::OUString::createFromAscii(address));
  }
  void Select(const char* address) { View()->select(css::uno::Any(Cells(address))); }
  // Two areas, as with the Ctrl key held down.
  void SelectTwo() {
    const Reference<css::lang::XMultiServiceFactory> factory(document.Model(), UNO_QUERY_THROW);
    const Reference<css::sheet::XSheetCellRangeContainer> both(
        factory->createInstance("com.sun.star.sheet.SheetCellRanges"), UNO_QUERY_THROW);
    for (const char* address : {"B2:C5", "E7"})
      both->addRangeAddress(
          Reference<css::sheet::XCellRangeAddressable>(Cells(address), UNO_QUERY_THROW)->getRangeAddress(), false);
    View()->select(css::uno::Any(both));
  }
  std::string Selected() const {
    const Reference<css::beans::XPropertySet> cells(View()->getSelection(), css::uno::UNO_QUERY);
    rtl::OUString name;
    if (cells.is()) cells->getPropertyValue("AbsoluteName") >>= name;
    return libreoffice::Narrow(name);
  }
  void LookAtOther() {
    excel.Worksheets("Other").Select();
    excel.Worksheets("Sheet1").Select();
  }

  CalcDocument document;
  excel::Application excel = document.Excel();
};

TEST_F(Selections, OfSeveralCellsComeBackWithTheirSheet) {
  Select("B2:C5");
  LookAtOther();
  EXPECT_EQ("$Sheet1.$B$2:$C$5", Selected());
}

TEST_F(Selections, OfSeveralAreasComeBackWithTheirSheet) {
  SelectTwo();
  const auto before = Selected();
  LookAtOther();
  EXPECT_EQ(before, Selected());
}

TEST_F(Selections, ComeBackThroughSheetsWithinSheets) {
  Select("B2:C5");
  excel.Worksheets("Other").Select();
  LookAtOther();
  LookAtOther();
  EXPECT_EQ("$Sheet1.$B$2:$C$5", Selected());
}

TEST_F(Selections, OfOneCellStayTheCursor) {
  Select("D9");
  LookAtOther();
  EXPECT_EQ("$Sheet1.$D$9", Selected());
}

TEST_F(Selections, OfCellsDeletedMeanwhileAreForgotten) {
  Select("B2:C5");
  excel.Worksheets("Other").Select();
  document.Book()->getSheets()->removeByName("Sheet1");
  document.AddSheet("Sheet1");
  EXPECT_EQ(0, NumberOf([&] { excel.Worksheets("Sheet1").Select(); }));
  EXPECT_EQ("$Sheet1.$A$1", Selected());
}

TEST_F(Selections, OfAnotherCellMeanwhileCount) {
  Select("B2:C5");
  excel.Worksheets("Other").Select();
  Select("H8");
  excel.Worksheets("Other").Select();
  excel.Worksheets("Sheet1").Select();
  EXPECT_EQ("$Sheet1.$H$8", Selected());
}

TEST_F(Selections, ComeBackWithoutScrolling) {
  Select("B2:C500");
  Pane()->setFirstVisibleRow(300);
  LookAtOther();
  EXPECT_EQ(300, Pane()->getFirstVisibleRow());
}

}  // namespace
}  // namespace pellora::test
