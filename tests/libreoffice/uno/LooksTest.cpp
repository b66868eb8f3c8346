#include <gtest/gtest.h>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/table/BorderLine2.hpp>
#include <com/sun/star/table/BorderLineStyle.hpp>

#include "core/Convert.h"
#include "tests/libreoffice/uno/CalcDocument.h"

namespace pellora::test {
namespace {

namespace table = com::sun::star::table;

constexpr std::int32_t kGray = 16;

// What the library draws around a tape.
void Frame(const excel::Range& range) {
  for (std::int32_t index = excel::xlDiagonalDown; index <= excel::xlInsideHorizontal; ++index)
    range.Borders(index).LineStyle(excel::xlLineStyleNone);
  for (std::int32_t index = excel::xlEdgeLeft; index <= excel::xlEdgeRight; ++index) {
    range.Borders(index).LineStyle(excel::xlDashDotDot);
    range.Borders(index).Weight(excel::xlThin);
    range.Borders(index).ColorIndex(kGray);
  }
}

// The native line of a cell.
table::BorderLine2 LineOf(const CalcDocument& document, int row, int column, const char* property) {
  const com::sun::star::uno::Reference<com::sun::star::beans::XPropertySet> cell(document.Cell("Sheet1", row, column),
                                                                                 com::sun::star::uno::UNO_QUERY_THROW);
  table::BorderLine2 line;
  cell->getPropertyValue(rtl::OUString::createFromAscii(property)) >>= line;
  return line;
}

Variant Look(const excel::Range& range, std::int32_t index, std::string_view member) {
  return range.Borders(index).get()->Invoke(member, CallKind::Get, {});
}

TEST(LooksOfCells, HaveTheFrameThatIsDrawn) {
  const CalcDocument document;
  const auto range = document.Excel().Range("B3:D22");
  Frame(range);
  for (const auto& [row, column, property] :
       {std::tuple{3, 2, "LeftBorder2"}, {3, 3, "TopBorder2"}, {22, 3, "BottomBorder2"}, {5, 4, "RightBorder2"}}) {
    const auto line = LineOf(document, row, column, property);
    EXPECT_EQ(table::BorderLineStyle::DASH_DOT_DOT, line.LineStyle) << property;
    EXPECT_EQ(0x808080, line.Color) << property;
    EXPECT_EQ(26u, line.LineWidth) << property;
  }
}

TEST(LooksOfCells, HaveNoLinesInsideTheFrame) {
  const CalcDocument document;
  Frame(document.Excel().Range("B3:D22"));
  EXPECT_EQ(0u, LineOf(document, 4, 3, "RightBorder2").LineWidth);
  EXPECT_EQ(0u, LineOf(document, 4, 3, "DiagonalTLBR2").LineWidth);
}

TEST(LooksOfCells, ReadAsTheyWereDrawn) {
  const CalcDocument document;
  const auto range = document.Excel().Range("B3:D22");
  for (std::int32_t index = excel::xlDiagonalDown; index <= excel::xlInsideHorizontal; ++index) {
    range.Borders(index).LineStyle(excel::xlDashDotDot);
    range.Borders(index).Weight(excel::xlThin);
    range.Borders(index).ColorIndex(kGray);
    EXPECT_EQ(Variant(excel::xlDashDotDot), Look(range, index, "LineStyle")) << index;
    EXPECT_EQ(Variant(excel::xlThin), Look(range, index, "Weight")) << index;
    EXPECT_EQ(Variant(kGray), Look(range, index, "ColorIndex")) << index;
  }
}

TEST(LooksOfCells, HaveNoLineAfterItIsTakenAway) {
  const CalcDocument document;
  const auto range = document.Excel().Range("B3:D22");
  for (std::int32_t index = excel::xlDiagonalDown; index <= excel::xlInsideHorizontal; ++index) {
    range.Borders(index).Weight(excel::xlThin);
    range.Borders(index).LineStyle(excel::xlLineStyleNone);
    EXPECT_EQ(Variant(excel::xlLineStyleNone), Look(range, index, "LineStyle")) << index;
  }
}

TEST(LooksOfCells, RefuseLinesThatAreNone) {
  const CalcDocument document;
  const auto range = document.Excel().Range("B3:D22");
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { range.Borders(13).Weight(2); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { range.Borders(7).LineStyle(99); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { range.Borders(7).Weight(3); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { range.Borders(7).ColorIndex(57); }));
}

TEST(LooksOfCells, HaveTheFillThatIsGiven) {
  const CalcDocument document;
  const auto fill = document.Excel().Range("A2:D2").Interior();
  fill.ColorIndex(15);
  EXPECT_EQ(Variant(15), fill.get()->Invoke("ColorIndex", CallKind::Get, {}));
}

TEST(LooksOfCells, HaveTheWidthThatIsGiven) {
  const CalcDocument document;
  const auto range = document.Excel().Range("A1:B3");
  for (const double width : {10.0, 20.0, 8.43}) {
    range.ColumnWidth(width);
    EXPECT_EQ(width, ToDouble(range.get()->Invoke("ColumnWidth", CallKind::Get, {})));
  }
}

TEST(LooksOfCells, RefuseWidthsThatAreNone) {
  const CalcDocument document;
  const auto range = document.Excel().Range("A1:B3");
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { range.ColumnWidth(-1); }));
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { range.ColumnWidth(256); }));
}

TEST(LooksOfCells, FitColumnsToWhatTheyHold) {
  const CalcDocument document;
  const auto excel = document.Excel();
  excel.Range("A1").Value("a text that is much wider than a column is at the beginning");
  excel.Range("A:D").EntireColumn().AutoFit();
  EXPECT_GT(ToDouble(excel.Range("A1").get()->Invoke("ColumnWidth", CallKind::Get, {})), 30);
}

TEST(LooksOfCells, FitNoPartsOfColumns) {
  const CalcDocument document;
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([&] { document.Excel().Range("A1:B2").AutoFit(); }));
}

TEST(LooksOfCells, HaveLinesAllAroundByTheCollection) {
  const CalcDocument document;
  const auto range = document.Excel().Range("B3:D22");
  const auto all = ToObject(range.get()->Invoke("Borders", CallKind::Get, {}));
  for (const auto& [member, value] : {std::pair{"LineStyle", 5}, {"Weight", 4}, {"ColorIndex", 3}}) {
    const Variant number(value);
    all->Invoke(member, CallKind::Put, {&number, 1});
  }
  for (std::int32_t index = excel::xlEdgeLeft; index <= excel::xlInsideHorizontal; ++index) {
    EXPECT_EQ(Variant(5), Look(range, index, "LineStyle")) << index;
    EXPECT_EQ(Variant(4), Look(range, index, "Weight")) << index;
    EXPECT_EQ(Variant(3), Look(range, index, "ColorIndex")) << index;
  }
  EXPECT_EQ(Variant(excel::xlLineStyleNone), Look(range, excel::xlDiagonalUp, "LineStyle"));
}

TEST(LooksOfCells, AreHiddenByAWidthOfNothing) {
  const CalcDocument document;
  const auto range = document.Excel().Range("A1");
  range.ColumnWidth(0);
  EXPECT_EQ(Variant(true), range.EntireColumn().get()->Invoke("Hidden", CallKind::Get, {}));
}

}  // namespace
}  // namespace pellora::test
