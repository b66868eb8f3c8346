#pragma once

#include "forms/Geometry.h"

namespace pellora {

class Control;
class Container;
class Grid;
class Pages;
class TextMeasurer;

/// What a layout asks of a control besides its natural size; dip, 0 for nothing asked.
struct Wishes {
  int minWidth = 0;
  int minHeight = 0;
  int chars = 0;
  int lines = 0;
};

/// The distance between neighbouring controls where a layout does not say another, in dip.
inline constexpr int kUsualGap = 7;

/// The least size, in pixels, at which a control shows what it has to: by the habits of the desktop at 96 dpi, scaled,
/// and by what its texts measure. Texts get a little slack: where the display's font differs from the measured one,
/// nothing may be clipped.
Size NaturalSize(const Control& control, const Wishes& wishes, const TextMeasurer& measurer);

/// The room between a container's edge and its content, in pixels.
struct Inset {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

/// For a frame its border and title, for a panel nothing.
Inset ContainerInset(const Container& container, const TextMeasurer& measurer);
/// From a set of pages to each page: the tabs, when there are any.
Inset PagesInset(const Pages& pages, const TextMeasurer& measurer);
/// From a page to its content.
Inset PageInset(const Pages& pages, const TextMeasurer& measurer);
/// The least width of a grid's column, in pixels: its own, or what its header takes.
int NaturalColumnWidth(const Grid& grid, int column, const TextMeasurer& measurer);
/// The width at which a frame's title is whole, or all tabs are.
int TitleWidth(const Container& container, const TextMeasurer& measurer);
int TabsWidth(const Pages& pages, const TextMeasurer& measurer);

}  // namespace pellora
