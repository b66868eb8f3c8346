#pragma once

#include <initializer_list>
#include <memory>
#include <vector>

#include "forms/Geometry.h"
#include "forms/Peers.h"

namespace pellora {

class Control;
class Frame;
class Pages;
class Container;

/// A form's layout is described as a tree, not placed: leaves are controls, inner nodes put their children side by
/// side, below each other, or in a table. `Place` turns a tree into rectangles for any font and scale.
///
/// Sizes come from the controls themselves: what their captions measure, how many characters or rows they are asked
/// to show. Room left over goes to the nodes that stretch, by weight; without one it stays at the end. All lengths in
/// a description are dip.
class LayoutNode {
 public:
  /// How a child of a row stands in the row's height, or a child of a column in its width.
  enum class Align { Fill, Start, Center, End };

  /// A control by its own size.
  LayoutNode(Control& control);

  /// Takes room left over, in proportion to `weight`, along the axis of the node around it.
  LayoutNode Stretch(int weight = 1) &&;
  LayoutNode Aligned(Align align) &&;
  /// At least so large. For a text box, combo or list: `Chars` average characters wide.
  LayoutNode MinWidth(int dip) &&;
  LayoutNode MinHeight(int dip) &&;
  LayoutNode Chars(int characters) &&;
  /// For grids, lists and text boxes of several lines: at least so many rows or lines high.
  LayoutNode Lines(int lines) &&;
  /// The distance between children of a row, column or table; the usual one when not given.
  LayoutNode Gap(int dip) &&;

  struct Data;
  const Data& data() const { return *m_data; }

 private:
  friend LayoutNode Row(std::initializer_list<LayoutNode>);
  friend LayoutNode Column(std::initializer_list<LayoutNode>);
  friend LayoutNode Table(int, std::initializer_list<LayoutNode>);
  friend LayoutNode Group(Container&, LayoutNode);
  friend LayoutNode PageStack(Pages&, std::initializer_list<LayoutNode>);
  friend LayoutNode SameWidth(std::initializer_list<LayoutNode>);
  friend LayoutNode Space(int);
  explicit LayoutNode(std::shared_ptr<Data> data) : m_data(std::move(data)) {}
  std::shared_ptr<Data> m_data;
};

/// Children side by side, from left to right.
LayoutNode Row(std::initializer_list<LayoutNode> children);
/// Children below each other.
LayoutNode Column(std::initializer_list<LayoutNode> children);
/// Children filled in row by row into `columns` columns; each column as wide as its widest child, and stretching when
/// one of its children does.
LayoutNode Table(int columns, std::initializer_list<LayoutNode> children);
/// A frame or panel with one node inside it.
LayoutNode Group(Container& container, LayoutNode content);
/// The pages of a `Pages` control, one node each, all given the room of the largest.
LayoutNode PageStack(Pages& pages, std::initializer_list<LayoutNode> contents);
/// A row whose children are all as wide as the widest: for command buttons.
LayoutNode SameWidth(std::initializer_list<LayoutNode> children);
/// Empty room.
LayoutNode Space(int dip);

/// The least size of a node, in pixels, without the form's margins.
Size MeasureLayout(const LayoutNode& root, const TextMeasurer& measurer);

/// Gives every control below `root` its bounds for a client area of that size, within the form's margins. An area
/// that is too small is used as if it had the least size.
void PlaceLayout(const LayoutNode& root, Size client, const TextMeasurer& measurer);

/// The margin around a form's content, in dip.
inline constexpr int kFormMargin = 11;

}  // namespace pellora
