#pragma once

namespace pellora {

/// The side of the square that the arrow on a button is drawn in, in dip.
inline constexpr int kArrowDip = 16;

/// How much of a pixel of that square the arrow covers, 0 to 255: a triangle in the square's middle, its tip up or
/// down.
int ArrowCoverage(int x, int y, int side, bool up);

}  // namespace pellora
