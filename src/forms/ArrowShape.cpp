#include "forms/ArrowShape.h"

#include <cmath>

namespace pellora {
namespace {

/// Counted on a grid of so many samples a side inside the pixel.
constexpr int kSamples = 4;

/// In parts of the square's side, from its top and from the line through its middle.
bool IsInside(double fromMiddle, double fromTop, bool up) {
  const double fromTip = up ? fromTop - 0.3 : 0.7 - fromTop;
  return fromTip >= 0 && fromTip <= 0.4 && std::abs(fromMiddle) <= fromTip * 0.9;
}

}  // namespace

int ArrowCoverage(int x, int y, int side, bool up) {
  int inside = 0;
  for (int sy = 0; sy < kSamples; ++sy)
    for (int sx = 0; sx < kSamples; ++sx)
      if (IsInside((x + (sx + 0.5) / kSamples) / side - 0.5, (y + (sy + 0.5) / kSamples) / side, up)) ++inside;
  return inside * 255 / (kSamples * kSamples);
}

}  // namespace pellora
