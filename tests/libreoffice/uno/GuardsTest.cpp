#include <gtest/gtest.h>

#include <unistd.h>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/util/CellProtection.hpp>
#include <cstdio>
#include <functional>

#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/UnoObject.h"
#include "tests/libreoffice/uno/CalcDocument.h"

namespace pellora::test {
namespace {

using com::sun::star::uno::Reference;
using com::sun::star::uno::UNO_QUERY_THROW;
using libreoffice::kDisconnected;

using Write = std::function<void(const excel::Range&)>;

const std::pair<const char*, Write> kWrites[] = {
    {"Value", [](const excel::Range& range) { range.Value("x"); }},
    {"FormulaLocal", [](const excel::Range& range) { range.FormulaLocal("=1"); }},
    {"ColumnWidth", [](const excel::Range& range) { range.ColumnWidth(30); }},
    {"AutoFit", [](const excel::Range& range) { range.EntireColumn().AutoFit(); }},
    {"Interior", [](const excel::Range& range) { range.Interior().ColorIndex(15); }},
    {"Borders", [](const excel::Range& range) { range.Borders(7).Weight(2); }},
};

TEST(WritesToAProtectedSheet, AreRefused) {
  CalcDocument document;
  document.Protect("Sheet1");
  for (const auto& [name, write] : kWrites)
    EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { write(document.Excel().Range("A1")); })) << name;
  EXPECT_TRUE(document.Excel().Range("A1").Value().IsEmpty());
}

TEST(WritesToAProtectedSheet, ReachCellsThatAreNotLocked) {
  CalcDocument document;
  const Reference<com::sun::star::beans::XPropertySet> cell(document.Cell("Sheet1", 1, 1), UNO_QUERY_THROW);
  cell->setPropertyValue("CellProtection",
                         com::sun::star::uno::Any(com::sun::star::util::CellProtection(false, false, false, false)));
  document.Protect("Sheet1");
  document.Excel().Range("A1").Value("x");
  EXPECT_EQ(Variant("x"), document.Excel().Range("A1").Value());
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { document.Excel().Range("A1:B1").Value("y"); }));
}

TEST(WritesToAProtectedSheet, LeaveTheOtherSheetsAlone) {
  CalcDocument document;
  document.AddSheet("Free");
  document.Protect("Sheet1");
  EXPECT_EQ(0, NumberOf([&] { document.Excel().Range("Free!A1").Value("x"); }));
}

TEST(ANameWhoseCellsWereDeleted, IsRefused) {
  CalcDocument document;
  document.AddSheet("Gone");
  document.AddName("Lost", "$Gone.$A$1");
  document.Book()->getSheets()->removeByName("Gone");
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { document.Excel().Range("Lost").Value(); }));
}

// A document that is open for reading only.
class ReadOnly {
 public:
  ReadOnly() {
    CalcDocument document;
    document.Cell("Sheet1", 2, 2)->setValue(7);
    Reference<com::sun::star::frame::XStorable>(document.Model(), UNO_QUERY_THROW)->storeToURL(Url(), {});
    com::sun::star::beans::PropertyValue reading;
    reading.Name = "ReadOnly";
    reading.Value <<= true;
    m_model.set(
        com::sun::star::frame::Desktop::create(Office())->loadComponentFromURL(
            Url(), "_blank", 0, com::sun::star::uno::Sequence<com::sun::star::beans::PropertyValue>(&reading, 1)),
        UNO_QUERY_THROW);
  }
  ReadOnly(const ReadOnly&) = delete;
  ReadOnly& operator=(const ReadOnly&) = delete;
  ~ReadOnly() {
    Reference<com::sun::star::util::XCloseable>(m_model, UNO_QUERY_THROW)->close(true);
    std::remove(Path().c_str());
  }
  excel::Application Excel() const { return excel::Application(libreoffice::ApplicationOf(m_model, Office())); }

 private:
  static std::string Path() { return "/tmp/pellora-read-only-" + std::to_string(::getpid()) + ".ods"; }
  static rtl::OUString Url() { return libreoffice::Wide("file://" + Path()); }
  Reference<com::sun::star::frame::XModel> m_model;
};

TEST(WritesToAReadOnlyDocument, AreRefused) {
  const ReadOnly document;
  for (const auto& [name, write] : kWrites)
    EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { write(document.Excel().Range("A1")); })) << name;
}

TEST(WritesToAReadOnlyDocument, LeaveItReadable) {
  const ReadOnly document;
  EXPECT_EQ(Variant(7.0), document.Excel().Range("B2").Value());
}

TEST(WritesToAReadOnlyDocument, AreToldFromThoseToAnotherOpenOne) {
  const ReadOnly document;
  const CalcDocument writable;
  EXPECT_EQ(0, NumberOf([&] { writable.Excel().Range("A1").Value("x"); }));
}

// Objects of every kind that outlive their document.
class ClosedDocument : public testing::Test {
 protected:
  ClosedDocument() {
    CalcDocument document;
    application = document.Excel();
    book = application.ActiveWorkbook();
    sheet = application.ActiveSheet();
    range = application.Range("A1:B2");
    border = range.Borders(7);
    fill = range.Interior();
  }
  excel::Application application;
  excel::Workbook book;
  excel::Worksheet sheet;
  excel::Range range;
  excel::Border border;
  excel::Interior fill;
};

TEST_F(ClosedDocument, RefusesItsApplication) {
  EXPECT_EQ(kDisconnected, NumberOf([&] { application.Range("A1"); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { application.Columns(1); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { application.ActiveSheet(); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { application.ActiveWorkbook(); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { application.Worksheets("Sheet1"); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { application.ScreenUpdating(false); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { application.Intersect(range, range); }));
}

TEST_F(ClosedDocument, RefusesItsSheets) {
  EXPECT_EQ(kDisconnected, NumberOf([&] { book.Worksheets("Sheet1"); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { book.Activate(); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { sheet.Name(); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { sheet.Select(); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { sheet.Range("A1"); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { sheet.Cells(); }));
}

TEST_F(ClosedDocument, RefusesItsRanges) {
  EXPECT_EQ(kDisconnected, NumberOf([&] { range.Value(); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { range.Value("x"); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { range.Address(); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { range.Resize(1, 1); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { range.SpecialCells(11); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { range.FindPrevious("*", 1); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { border.Weight(2); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { fill.ColorIndex(15); }));
}

TEST_F(ClosedDocument, LeavesTheOthersAlive) {
  const CalcDocument other;
  const auto cell = other.Excel().Range("A1");
  { const CalcDocument third; }
  EXPECT_EQ(0, NumberOf([&] { cell.Value("x"); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { range.Value(); }));
}

TEST_F(ClosedDocument, IsNoArgumentOfAnother) {
  const CalcDocument other;
  const auto excel = other.Excel();
  EXPECT_EQ(kDisconnected, NumberOf([&] { excel.Intersect(excel.Range("A1"), range); }));
}

// As a macro hands its application in: the object alone.
excel::Application HandedIn(const excel::Application& application) {
  return excel::Application(libreoffice::ToDispatch(libreoffice::FromDispatch(application.get()), Office()));
}

TEST(AnApplicationHandedIn, ReadsAndWritesCells) {
  const CalcDocument document;
  const auto own = document.Excel();
  const auto excel = HandedIn(own);
  ASSERT_TRUE(excel::Application::Accepts(excel.get()));
  excel.Range("B2").Value("x");
  EXPECT_EQ(Variant("x"), excel.Range("Sheet1!B2").Value());
}

TEST(AnApplicationHandedIn, RefusesWritesToAProtectedSheet) {
  CalcDocument document;
  document.Protect("Sheet1");
  const auto own = document.Excel();
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { HandedIn(own).Range("A1").Value("x"); }));
}

TEST(AnApplicationHandedIn, IsGoneWithTheLastWorkbook) {
  CalcDocument document;
  const auto own = document.Excel();
  const auto excel = HandedIn(own);
  const auto range = excel.Range("A1");
  document.Close();
  EXPECT_EQ(kDisconnected, NumberOf([&] { excel.Range("A1"); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { range.Value(); }));
}

TEST(AnApplicationHandedIn, IsGoneAtEachUseAfterTheLastWorkbook) {
  CalcDocument document;
  const auto own = document.Excel();
  document.Close();
  const auto excel = HandedIn(own);
  EXPECT_EQ(kDisconnected, NumberOf([&] { excel.Range("A1"); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { excel.Range("A1"); }));
}

TEST(AnApplicationHandedIn, OutlivesAnotherWorkbook) {
  CalcDocument other;
  const CalcDocument document;
  const auto own = document.Excel();
  const auto excel = HandedIn(own);
  other.Close();
  EXPECT_EQ(0, NumberOf([&] { excel.Range("A1").Value("x"); }));
}

TEST(AnApplicationHandedIn, HarmsNothingWhenItsWorkbookIsClosedBesideAnother) {
  const CalcDocument other;
  CalcDocument document;
  const auto own = document.Excel();
  const auto excel = HandedIn(own);
  const auto range = excel.Range("A1");
  document.Close();
  EXPECT_EQ(kDisconnected, NumberOf([&] { range.Value(); }));
  EXPECT_EQ(kDisconnected, NumberOf([&] { excel.Range("A1").Value(); }));
  NumberOf([&] { excel.Columns(1).Address(); });
  NumberOf([&] { excel.Range("Sheet1!A1").Value(); });
  NumberOf([&] { excel.ActiveWorkbook().Worksheets("Sheet1").Select(); });
  EXPECT_EQ(0, NumberOf([&] { other.Excel().Range("A1").Value("x"); }));
}

}  // namespace
}  // namespace pellora::test
