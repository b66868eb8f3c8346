// A comparison of pictures finds only what a picture shows.

#include "tests/hosts/Picture.h"

#include <functional>

#include "tests/hosts/OnHost.h"

namespace pellora::test {
namespace {

class ThePicture : public OnHost {
 protected:
  ThePicture() {
    book.AddSheet("Desk");
    book.Set("Sheet1", "B2", "text");
    book.Set("Sheet1", "C3", "=Desk!$A$1");
    book.Set("Sheet1", "D4", 1.0);
  }

  void ChangesWith(const std::function<void()>& act) {
    const auto before = Picture(book);
    act();
    EXPECT_NE(Picture(book), before);
  }
};

TEST_F(ThePicture, IsTheSameWhenNothingChanged) { EXPECT_EQ(Picture(book), Picture(book)); }

TEST_F(ThePicture, ChangesWithWhatACellHolds) {
  ChangesWith([&] { book.Set("Sheet1", "B2", "Text"); });
  ChangesWith([&] { book.Set("Sheet1", "C3", "=Desk!$A$2"); });
  ChangesWith([&] { book.Set("Desk", "A2", 5.0); });
  ChangesWith([&] { book.Set("Sheet1", "J9", "far out"); });
}

TEST_F(ThePicture, ChangesWithABackgroundOfOneCell) {
  ChangesWith([&] { book.Cells("Sheet1", "C3").Object("Interior").Put("ColorIndex", 15); });
}

TEST_F(ThePicture, ChangesWithEachPropertyOfALine) {
  const auto line = book.Cells("Sheet1", "C3").Object("Borders", {8});
  ChangesWith([&] { line.Put("LineStyle", 1); });
  ChangesWith([&] { line.Put("LineStyle", 5); });
  ChangesWith([&] { line.Put("Weight", 4); });
  ChangesWith([&] { line.Put("ColorIndex", 16); });
}

TEST_F(ThePicture, ChangesWithAWidth) {
  ChangesWith([&] { book.SetColumnWidth("Sheet1", "C:C", 30); });
}

TEST_F(ThePicture, ChangesWithTheSheetsTheActiveOneAndTheScreen) {
  ChangesWith([&] { book.AddSheet("Another"); });
  ChangesWith([&] { book.Sheet("Desk").Call("Activate"); });
  ChangesWith([&] { book.ScreenUpdating(false); });
}

}  // namespace
}  // namespace pellora::test
