#include "Desk.h"

namespace pellora::test {
namespace {

class Calls : public Desk {
 protected:
  /// What the acts cost through the spreadsheet door.
  struct Cost {
    std::uint64_t open = 0;
    std::uint64_t row = 0;
    std::uint64_t insert = 0;
  };

  static std::uint64_t Of(const std::function<void()>& act) {
    const auto before = excel::CallCount();
    act();
    return excel::CallCount() - before;
  }

  /// Opens the dialog on a workbook of that size, makes another row current, inserts a tape. The numbers of tapes are
  /// even, so that the new record's row is shaded each time.
  Cost Measure(int instruments, int tapes) {
    Renew();
    Workbook().Instruments(instruments).Tapes(tapes);
    NewDialog();
    Cost cost;
    cost.open = Of([&] { dialog->Load(); });
    cost.row = Of([&] { dialog->VSFExcel.Row(5); });
    dialog->txtAddress.Text("Sheet1!H3:I9");
    cost.insert = Of([&] { EXPECT_TRUE(dialog->CheckField()); });
    return cost;
  }
};

TEST_F(Calls, OpeningChangingTheRowAndInsertingCostTheSameForAnyNumberOfInstrumentsAndTapes) {
  const auto small = Measure(10, 0);
  EXPECT_GT(small.open, 0u);
  EXPECT_LT(small.open, 200u);
  for (const int instruments : {10, 1000, 10000})
    for (const int tapes : {0, 100, 1000}) {
      const auto cost = Measure(instruments, tapes);
      const auto size = testing::Message() << instruments << " instruments, " << tapes << " tapes";
      EXPECT_EQ(cost.row, small.row) << size;
      EXPECT_EQ(cost.insert, small.insert) << size;
      EXPECT_EQ(cost.open, small.open) << size;
    }
}

TEST_F(Calls, TheCallStackGrowsWithRowsPlusTapesNotWithTheirProduct) {
  Workbook().Instruments(1000).Tapes(1000);
  dialog->Load();
  EXPECT_GE(Handler().CallStackDepth(), 900u * 1000u);
  EXPECT_LE(Handler().CallStackRuns(), 2u * 1000u + 10u);
}

}  // namespace
}  // namespace pellora::test
