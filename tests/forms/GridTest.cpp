#include "forms/Grid.h"

#include <gtest/gtest.h>

#include <chrono>

#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;
using test::PlainForm;
using test::RecordingPeer;

class GridTest : public testing::Test {
 protected:
  GridTest() {
    grid.AfterSelChange = [this](int oldRow, int oldCol, int newRow, int newCol) {
      selections.push_back({oldRow, oldCol, newRow, newCol});
    };
  }
  void Watch() { grid.AttachPeer(std::make_unique<RecordingPeer>(told)); }

  std::vector<Aspect> told;
  std::vector<std::vector<int>> selections;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
  Grid grid{form, "VSFOne", {{"Ticker", 60}, {"Type", 40}}};
};

TEST_F(GridTest, BeginsWithItsHeaderRowOnly) {
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.Cols(), 2);
  EXPECT_EQ(grid.Row(), 0);
  EXPECT_EQ(grid.Text(0, 1), "Type");
}

TEST_F(GridTest, NewRowsAreEmpty) {
  grid.Rows(3);
  EXPECT_EQ(grid.Text(2, 1), "");
  EXPECT_EQ(grid.RowData(2), "");
}

TEST_F(GridTest, TextsAndRowDataAreKeptByRow) {
  grid.Rows(3);
  grid.Text(1, 0, "IBM");
  grid.Text(0, 0, "Symbol");
  grid.RowData(2, "1");
  grid.RowData(0, "header");
  EXPECT_EQ(grid.Text(1, 0), "IBM");
  EXPECT_EQ(grid.ColumnAt(0).header, "Symbol");
  EXPECT_EQ(grid.RowData(2), "1");
  EXPECT_EQ(grid.RowData(0), "header");
}

TEST_F(GridTest, RowsThatWereCutComeBackEmpty) {
  grid.Rows(2);
  grid.Text(1, 0, "IBM");
  grid.Rows(1);
  grid.Rows(2);
  EXPECT_EQ(grid.Text(1, 0), "");
}

TEST_F(GridTest, CellsOutsideAreRefused) {
  grid.Rows(2);
  EXPECT_EQ(NumberRaisedBy([&] { grid.Text(2, 0); }), 381);
  EXPECT_EQ(NumberRaisedBy([&] { grid.Text(-1, 0); }), 381);
  EXPECT_EQ(NumberRaisedBy([&] { grid.Text(1, 2, "x"); }), 381);
  EXPECT_EQ(NumberRaisedBy([&] { grid.RowData(2); }), 381);
  EXPECT_EQ(NumberRaisedBy([&] { grid.RowData(2, "x"); }), 381);
  EXPECT_EQ(NumberRaisedBy([&] { grid.ColumnAt(2); }), 381);
  EXPECT_EQ(NumberRaisedBy([&] { grid.Row(2); }), 381);
}

TEST_F(GridTest, TheHeaderRowCannotBeCut) {
  EXPECT_EQ(NumberRaisedBy([&] { grid.Rows(0); }), 380);
  EXPECT_EQ(grid.Rows(), 1);
}

TEST_F(GridTest, MakingARowCurrentRaisesTheEventOnce) {
  grid.Rows(3);
  grid.Row(2);
  grid.Row(2);
  EXPECT_EQ(selections, (std::vector<std::vector<int>>{{0, 0, 2, 0}}));
}

TEST_F(GridTest, TheUsersChoiceRaisesTheSameEventWithItsColumn) {
  grid.Rows(3);
  grid.PeerRow(1, 1);
  EXPECT_EQ(selections, (std::vector<std::vector<int>>{{0, 0, 1, 1}}));
  EXPECT_EQ(grid.Col(), 1);
}

TEST_F(GridTest, TheHeaderRowCannotBeChosenByHand) {
  grid.Rows(2);
  grid.Row(1);
  grid.PeerRow(0, 0);
  EXPECT_EQ(grid.Row(), 1);
}

TEST_F(GridTest, CuttingTheCurrentRowMakesTheLastOneCurrent) {
  grid.Rows(5);
  grid.Row(4);
  grid.Rows(3);
  EXPECT_EQ(grid.Row(), 2);
  EXPECT_EQ(selections.back(), (std::vector<int>{4, 0, 2, 0}));
}

TEST_F(GridTest, CuttingAllRowsLeavesNoneCurrent) {
  grid.Rows(2);
  grid.Row(1);
  grid.Rows(1);
  EXPECT_EQ(grid.Row(), 0);
  EXPECT_EQ(selections.size(), 2u);
}

TEST_F(GridTest, CuttingOtherRowsRaisesNothing) {
  grid.Rows(5);
  grid.Row(1);
  grid.Rows(2);
  EXPECT_EQ(selections.size(), 1u);
}

TEST_F(GridTest, AHandlerMayCutTheRows) {
  grid.Rows(3);
  grid.AfterSelChange = [this](int, int, int, int) { grid.Rows(1); };
  grid.PeerRow(2, 0);
  EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, ThePeerHearsOfEachKindOfChange) {
  Watch();
  grid.Rows(2);
  grid.Text(1, 0, "IBM");
  grid.Text(0, 0, "Symbol");
  grid.ColumnWidth(0, 90);
  grid.Row(1);
  EXPECT_EQ(told,
            (std::vector<Aspect>{Aspect::Rows, Aspect::Cells, Aspect::Columns, Aspect::Columns, Aspect::CurrentRow}));
}

TEST_F(GridTest, ThePeerIsNotToldOfTheRowItReported) {
  grid.Rows(2);
  Watch();
  grid.PeerRow(1, 0);
  EXPECT_TRUE(told.empty());
}

TEST_F(GridTest, WhileRedrawIsOffThePeerHearsNothingAndAfterwardsAllOnce) {
  Watch();
  grid.Redraw(false);
  grid.Rows(3);
  grid.Text(1, 0, "IBM");
  grid.Row(1);
  EXPECT_TRUE(told.empty());
  grid.Redraw(true);
  EXPECT_EQ(told, (std::vector<Aspect>{Aspect::Columns, Aspect::Rows, Aspect::Cells, Aspect::CurrentRow}));
}

TEST_F(GridTest, EventsAreRaisedWhileRedrawIsOff) {
  grid.Redraw(false);
  grid.Rows(3);
  grid.Row(1);
  EXPECT_EQ(selections.size(), 1u);
}

TEST_F(GridTest, AColumnCannotBeNarrowerThanNothing) {
  EXPECT_EQ(NumberRaisedBy([&] { grid.ColumnWidth(0, -1); }), 380);
  EXPECT_EQ(grid.ColumnAt(0).width, 60);
}

TEST_F(GridTest, AHundredThousandRowsAreFilledAndReadQuickly) {
  constexpr int kRows = 100'000;
  const auto begin = std::chrono::steady_clock::now();
  grid.Rows(kRows + 1);
  for (int row = 1; row <= kRows; ++row) {
    grid.Text(row, 0, "SYMBOL");
    grid.Text(row, 1, "STK");
  }
  EXPECT_EQ(grid.Text(kRows, 1), "STK");
  // Sanitizers and a busy machine included; a cost that grows with the square of the rows would take minutes.
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

}  // namespace
}  // namespace pellora
