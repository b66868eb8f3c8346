#pragma once

#include "forms/Geometry.h"
#include "forms/Peers.h"

/// Where the windows of forms go, for every platform alike; what a platform adds is its own frame around a client area
/// and the rectangles of its displays.
namespace pellora {

/// How much of a window's caption must be on a display for the user to get hold of it, in dip.
inline constexpr int kGripDip = 32;

Rect Moved(const Rect& rect, int right, int down);

/// Moves a rectangle inside another; one that is too large keeps its left and top edges inside.
Rect MovedInside(const Rect& rect, const Rect& area);

/// A rectangle of that size, its middle in the middle of another.
Rect Centred(Size size, const Rect& over);

/// The smallest client area that shows the form's layout whole, with its margins.
Size LeastClient(const Form& form, const TextMeasurer& measurer);

/// The client area that a form gets when it has never been placed: the least one; somewhat more, as far as there is
/// room for a client area, when the form is sizable and has a grid, a list or a text of several lines to show more of.
Size FirstClient(const Form& form, const TextMeasurer& measurer, Size room);

}  // namespace pellora
