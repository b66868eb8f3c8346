#pragma once

#include "excel/Door.h"

namespace pellora::excel {

/// Border indexes, line styles and weights of the spreadsheet's object model, by its own names.
inline constexpr std::int32_t xlDiagonalDown = 5;
inline constexpr std::int32_t xlDiagonalUp = 6;
inline constexpr std::int32_t xlEdgeLeft = 7;
inline constexpr std::int32_t xlEdgeTop = 8;
inline constexpr std::int32_t xlEdgeBottom = 9;
inline constexpr std::int32_t xlEdgeRight = 10;
inline constexpr std::int32_t xlInsideVertical = 11;
inline constexpr std::int32_t xlInsideHorizontal = 12;
inline constexpr std::int32_t xlLineStyleNone = -4142;
inline constexpr std::int32_t xlDashDotDot = 5;
inline constexpr std::int32_t xlThin = 2;

/// One of the border lines of a range.
class Border : public Object {
 public:
  using Object::Object;
  void LineStyle(std::int32_t style) const;
  void Weight(std::int32_t weight) const;
  void ColorIndex(std::int32_t index) const;
};

}  // namespace pellora::excel
