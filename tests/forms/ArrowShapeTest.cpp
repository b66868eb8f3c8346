#include "forms/ArrowShape.h"

#include <gtest/gtest.h>

#include <string>

namespace pellora {
namespace {

/// A row a line: "#" covered, "." clear, "+" in part.
std::string Drawn(int side, bool up) {
  std::string picture;
  for (int y = 0; y < side; ++y) {
    picture += '\n';
    for (int x = 0; x < side; ++x) {
      const auto covered = ArrowCoverage(x, y, side, up);
      picture += covered == 255 ? '#' : covered == 0 ? '.' : '+';
    }
  }
  return picture;
}

TEST(ArrowShape, AnArrowUpHasItsTipAboveItsBase) {
  EXPECT_EQ(Drawn(16, true), R"(
................
................
................
................
................
.......++.......
......+##+......
.....+####+.....
....+######+....
...+########+...
..++########++..
..++++++++++++..
................
................
................
................)");
}

TEST(ArrowShape, AnArrowDownIsTheSameUpsideDown) {
  for (int y = 0; y < 16; ++y)
    for (int x = 0; x < 16; ++x) EXPECT_EQ(ArrowCoverage(x, y, 16, false), ArrowCoverage(x, 15 - y, 16, true));
}

TEST(ArrowShape, ItsLeftHalfMirrorsItsRight) {
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 20; ++x) EXPECT_EQ(ArrowCoverage(x, y, 20, true), ArrowCoverage(19 - x, y, 20, true));
}

}  // namespace
}  // namespace pellora
