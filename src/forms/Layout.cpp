#include "forms/Layout.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <optional>
#include <utility>

#include "forms/Frame.h"
#include "forms/NaturalSize.h"
#include "forms/Pages.h"
#include "forms/TextBox.h"

namespace pellora {

struct LayoutNode::Data {
  enum class Kind { Leaf, Row, Column, Table, Group, PageStack, SameWidth, Space };
  Kind kind = Kind::Leaf;
  /// The leaf, or the container around the children.
  Control* control = nullptr;
  std::vector<LayoutNode> children;
  int columns = 1;
  int space = 0;
  int stretch = 0;
  int gap = kUsualGap;
  Wishes wishes;
  std::optional<Align> align;
};

namespace {

using Data = LayoutNode::Data;
using Kind = Data::Kind;
using Align = LayoutNode::Align;

enum class Axis { Horizontal, Vertical };

int Along(Axis axis, Size size) { return axis == Axis::Horizontal ? size.width : size.height; }
int Across(Axis axis, Size size) { return axis == Axis::Horizontal ? size.height : size.width; }
Size Oriented(Axis axis, int along, int across) {
  return axis == Axis::Horizontal ? Size{along, across} : Size{across, along};
}

/// A part of a line: where it begins and how long it is.
struct Span {
  int begin = 0;
  int length = 0;
};

Rect Area(Span horizontal, Span vertical) {
  return {horizontal.begin, vertical.begin, horizontal.begin + horizontal.length, vertical.begin + vertical.length};
}
Span Horizontally(const Rect& area) { return {area.left, area.Width()}; }
Span Vertically(const Rect& area) { return {area.top, area.Height()}; }

Rect Inside(const Rect& area, const Inset& inset) {
  return {area.left + inset.left, area.top + inset.top, area.right - inset.right, area.bottom - inset.bottom};
}
Size Around(Size content, const Inset& inset) {
  return {content.width + inset.left + inset.right, content.height + inset.top + inset.bottom};
}

/// A child of a line, or a whole row or column of a table: its least length and how eagerly it takes what is left.
struct Part {
  int least = 0;
  int weight = 0;
  bool present = false;
};

int LeastLength(const std::vector<Part>& parts, int gap) {
  int length = 0;
  int count = 0;
  for (const auto& part : parts) {
    if (!part.present) continue;
    length += part.least;
    ++count;
  }
  return length + std::max(0, count - 1) * gap;
}

/// Distributes a line among its parts. Shares are rounded where they begin, so they add up to what there is.
std::vector<Span> Distribute(const std::vector<Part>& parts, int gap, Span line) {
  const auto left = std::max(0, line.length - LeastLength(parts, gap));
  const auto all = std::accumulate(parts.begin(), parts.end(), 0,
                                   [](int sum, const Part& part) { return sum + (part.present ? part.weight : 0); });
  std::vector<Span> spans(parts.size());
  int begin = line.begin;
  int weights = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (!parts[i].present) continue;
    const auto given = all ? left * weights / all : 0;
    weights += parts[i].weight;
    const auto share = all ? left * weights / all - given : 0;
    spans[i] = {begin, parts[i].least + share};
    begin += spans[i].length + gap;
  }
  return spans;
}

/// Where something stands that may be shorter than the room it has.
Span Aligned(Align align, int least, Span room) {
  if (align == Align::Fill || least >= room.length) return room;
  const auto spare = room.length - least;
  if (align == Align::Start) return {room.begin, least};
  return {room.begin + (align == Align::Center ? spare / 2 : spare), least};
}

/// Controls of one line stand in the middle of a row; what shows several lines fills its height.
bool IsOneLine(const Data& node) {
  if (node.kind != Kind::Leaf) return false;
  switch (node.control->Kind()) {
    case ControlKind::TextBox: return !static_cast<const TextBox&>(*node.control).MultiLine();
    case ControlKind::ListBox:
    case ControlKind::Grid: return false;
    default: return true;
  }
}

Align VerticalAlign(const Data& node) { return node.align.value_or(IsOneLine(node) ? Align::Center : Align::Fill); }
Align HorizontalAlign(const Data& node) { return node.align.value_or(Align::Fill); }

bool Present(const Data& node) {
  if (node.control && !node.control->Visible()) return false;
  if (node.kind == Kind::Leaf || node.kind == Kind::Space || node.kind == Kind::PageStack) return true;
  return std::any_of(node.children.begin(), node.children.end(), [](const auto& c) { return Present(c.data()); });
}

/// The two passes over a tree for one display.
class Pass {
 public:
  explicit Pass(const TextMeasurer& measurer) : m_measurer(measurer) {}

  Size Measure(const Data& node) const;
  void Place(const Data& node, const Rect& area) const;

 private:
  struct TableParts {
    std::vector<Part> columns;
    std::vector<Part> rows;
  };

  Size MeasureContent(const Data& node) const;
  std::vector<Size> MeasureChildren(const Data& node) const;
  static std::vector<Part> LineParts(const Data& node, Axis axis, const std::vector<Size>& sizes);
  Size MeasureLine(const Data& node, Axis axis) const;
  void PlaceLine(const Data& node, Axis axis, const Rect& area) const;
  TableParts PartsOf(const Data& table) const;
  Size MeasureTable(const Data& node) const;
  void PlaceTable(const Data& node, const Rect& area) const;
  Size MeasureGroup(const Data& node) const;
  Size MeasurePages(const Data& node) const;
  void PlacePages(const Data& node, const Rect& area) const;
  int Gap(const Data& node) const { return m_measurer.Scale(node.gap); }

  const TextMeasurer& m_measurer;
};

Size Pass::Measure(const Data& node) const {
  if (!Present(node)) return {};
  const auto size = MeasureContent(node);
  return {std::max(size.width, m_measurer.Scale(node.wishes.minWidth)),
          std::max(size.height, m_measurer.Scale(node.wishes.minHeight))};
}

Size Pass::MeasureContent(const Data& node) const {
  switch (node.kind) {
    case Kind::Leaf: return NaturalSize(*node.control, node.wishes, m_measurer);
    case Kind::Row:
    case Kind::SameWidth: return MeasureLine(node, Axis::Horizontal);
    case Kind::Column: return MeasureLine(node, Axis::Vertical);
    case Kind::Table: return MeasureTable(node);
    case Kind::Group: return MeasureGroup(node);
    case Kind::PageStack: return MeasurePages(node);
    case Kind::Space: return {m_measurer.Scale(node.space), m_measurer.Scale(node.space)};
  }
  return {};
}

void Pass::Place(const Data& node, const Rect& area) const {
  if (!Present(node)) return;
  if (node.control) node.control->Bounds(area);
  switch (node.kind) {
    case Kind::Leaf:
    case Kind::Space: return;
    case Kind::Row:
    case Kind::SameWidth: return PlaceLine(node, Axis::Horizontal, area);
    case Kind::Column: return PlaceLine(node, Axis::Vertical, area);
    case Kind::Table: return PlaceTable(node, area);
    case Kind::Group: {
      const auto inset = ContainerInset(static_cast<const Container&>(*node.control), m_measurer);
      return Place(node.children.front().data(), Inside(area, inset));
    }
    case Kind::PageStack: return PlacePages(node, area);
  }
}

// Once for each child: a size asked for twice would be measured twice as often with every level of the tree.
std::vector<Size> Pass::MeasureChildren(const Data& node) const {
  std::vector<Size> sizes;
  for (const auto& child : node.children) sizes.push_back(Measure(child.data()));
  return sizes;
}

std::vector<Part> Pass::LineParts(const Data& node, Axis axis, const std::vector<Size>& sizes) {
  std::vector<Part> parts;
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const auto& child = node.children[i].data();
    parts.push_back({Along(axis, sizes[i]), child.stretch, Present(child)});
  }
  if (node.kind != Kind::SameWidth) return parts;
  int widest = 0;
  for (const auto& part : parts) widest = std::max(widest, part.least);
  for (auto& part : parts) part.least = widest;
  return parts;
}

Size Pass::MeasureLine(const Data& node, Axis axis) const {
  const auto sizes = MeasureChildren(node);
  int across = 0;
  for (std::size_t i = 0; i < sizes.size(); ++i)
    if (node.children[i].data().kind != Kind::Space) across = std::max(across, Across(axis, sizes[i]));
  return Oriented(axis, LeastLength(LineParts(node, axis, sizes), Gap(node)), across);
}

void Pass::PlaceLine(const Data& node, Axis axis, const Rect& area) const {
  const auto horizontal = axis == Axis::Horizontal;
  const auto line = horizontal ? Horizontally(area) : Vertically(area);
  const auto room = horizontal ? Vertically(area) : Horizontally(area);
  const auto sizes = MeasureChildren(node);
  const auto spans = Distribute(LineParts(node, axis, sizes), Gap(node), line);
  for (std::size_t i = 0; i < spans.size(); ++i) {
    const auto& child = node.children[i].data();
    const auto align = horizontal ? VerticalAlign(child) : HorizontalAlign(child);
    const auto across = Aligned(align, Across(axis, sizes[i]), room);
    Place(child, horizontal ? Area(spans[i], across) : Area(across, spans[i]));
  }
}

Pass::TableParts Pass::PartsOf(const Data& table) const {
  const auto columns = static_cast<std::size_t>(table.columns);
  TableParts parts;
  parts.columns.resize(columns);
  parts.rows.resize((table.children.size() + columns - 1) / columns);
  for (std::size_t i = 0; i < table.children.size(); ++i) {
    const auto& child = table.children[i].data();
    if (!Present(child)) continue;
    const auto size = Measure(child);
    auto& column = parts.columns[i % columns];
    column = {std::max(column.least, size.width), std::max(column.weight, child.stretch), true};
    auto& row = parts.rows[i / columns];
    row = {std::max(row.least, child.kind == Kind::Space ? 0 : size.height), 0, true};
  }
  return parts;
}

Size Pass::MeasureTable(const Data& node) const {
  const auto parts = PartsOf(node);
  return {LeastLength(parts.columns, Gap(node)), LeastLength(parts.rows, Gap(node))};
}

void Pass::PlaceTable(const Data& node, const Rect& area) const {
  const auto parts = PartsOf(node);
  const auto columns = Distribute(parts.columns, Gap(node), Horizontally(area));
  const auto rows = Distribute(parts.rows, Gap(node), Vertically(area));
  for (std::size_t i = 0; i < node.children.size(); ++i) {
    const auto& child = node.children[i].data();
    const auto size = Measure(child);
    const auto& column = columns[i % columns.size()];
    const auto& row = rows[i / columns.size()];
    Place(child,
          Area(Aligned(HorizontalAlign(child), size.width, column), Aligned(VerticalAlign(child), size.height, row)));
  }
}

Size Pass::MeasureGroup(const Data& node) const {
  const auto& container = static_cast<const Container&>(*node.control);
  const auto size = Around(Measure(node.children.front().data()), ContainerInset(container, m_measurer));
  return {std::max(size.width, TitleWidth(container, m_measurer)), size.height};
}

Size Pass::MeasurePages(const Data& node) const {
  const auto& pages = static_cast<const Pages&>(*node.control);
  Size largest;
  for (const auto& content : node.children) {
    const auto size = Measure(content.data());
    largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
  }
  const auto size = Around(Around(largest, PageInset(pages, m_measurer)), PagesInset(pages, m_measurer));
  return {std::max(size.width, TabsWidth(pages, m_measurer)), size.height};
}

void Pass::PlacePages(const Data& node, const Rect& area) const {
  const auto& pages = static_cast<const Pages&>(*node.control);
  const auto page = Inside(area, PagesInset(pages, m_measurer));
  const auto content = Inside(page, PageInset(pages, m_measurer));
  for (std::size_t i = 0; i < node.children.size(); ++i) {
    if (i < pages.Children().size()) pages.Children()[i]->Bounds(page);
    Place(node.children[i].data(), content);
  }
}

std::shared_ptr<Data> MakeNode(Kind kind, std::initializer_list<LayoutNode> children, Control* control = nullptr) {
  auto data = std::make_shared<Data>();
  data->kind = kind;
  data->children = children;
  data->control = control;
  return data;
}

}  // namespace

LayoutNode::LayoutNode(Control& control) : m_data(MakeNode(Kind::Leaf, {}, &control)) {}

LayoutNode LayoutNode::Stretch(int weight) && {
  m_data->stretch = weight;
  return std::move(*this);
}

LayoutNode LayoutNode::Aligned(Align align) && {
  m_data->align = align;
  return std::move(*this);
}

LayoutNode LayoutNode::MinWidth(int dip) && {
  m_data->wishes.minWidth = dip;
  return std::move(*this);
}

LayoutNode LayoutNode::MinHeight(int dip) && {
  m_data->wishes.minHeight = dip;
  return std::move(*this);
}

LayoutNode LayoutNode::Chars(int characters) && {
  m_data->wishes.chars = characters;
  return std::move(*this);
}

LayoutNode LayoutNode::Lines(int lines) && {
  m_data->wishes.lines = lines;
  return std::move(*this);
}

LayoutNode LayoutNode::Gap(int dip) && {
  m_data->gap = dip;
  return std::move(*this);
}

LayoutNode Row(std::initializer_list<LayoutNode> children) { return LayoutNode(MakeNode(Kind::Row, children)); }

LayoutNode Column(std::initializer_list<LayoutNode> children) { return LayoutNode(MakeNode(Kind::Column, children)); }

LayoutNode Table(int columns, std::initializer_list<LayoutNode> children) {
  auto data = MakeNode(Kind::Table, children);
  data->columns = std::max(1, columns);
  return LayoutNode(std::move(data));
}

LayoutNode Group(Container& container, LayoutNode content) {
  return LayoutNode(MakeNode(Kind::Group, {std::move(content)}, &container));
}

LayoutNode PageStack(Pages& pages, std::initializer_list<LayoutNode> contents) {
  return LayoutNode(MakeNode(Kind::PageStack, contents, &pages));
}

LayoutNode SameWidth(std::initializer_list<LayoutNode> children) {
  return LayoutNode(MakeNode(Kind::SameWidth, children));
}

LayoutNode Space(int dip) {
  auto data = MakeNode(Kind::Space, {});
  data->space = dip;
  return LayoutNode(std::move(data));
}

Size MeasureLayout(const LayoutNode& root, const TextMeasurer& measurer) { return Pass(measurer).Measure(root.data()); }

void PlaceLayout(const LayoutNode& root, Size client, const TextMeasurer& measurer) {
  const Pass pass(measurer);
  const auto least = pass.Measure(root.data());
  const auto margin = measurer.Scale(kFormMargin);
  const Span width{margin, std::max(least.width, client.width - 2 * margin)};
  const Span height{margin, std::max(least.height, client.height - 2 * margin)};
  pass.Place(root.data(), Area(width, height));
}

}  // namespace pellora
