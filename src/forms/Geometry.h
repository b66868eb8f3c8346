#pragma once

namespace pellora {

/// Sizes and places in pixels of the display that shows the form, unless a comment says otherwise. "dip" means a
/// 96th of an inch: one pixel at 96 dpi.
struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

struct Point {
  int x = 0;
  int y = 0;
  bool operator==(const Point&) const = default;
};

/// Right and bottom are exclusive.
struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool operator==(const Rect&) const = default;
};

/// A window's place on screen, as the platform's placement record has it: show command (1 normal, 2 minimised,
/// 3 maximised, ...), minimised and maximised positions, normal rectangle.
struct Placement {
  int showCommand = 1;
  Point minimised{-1, -1};
  Point maximised{-1, -1};
  Rect normal;
  bool operator==(const Placement&) const = default;
};

}  // namespace pellora
