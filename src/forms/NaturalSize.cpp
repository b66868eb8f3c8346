#include "forms/NaturalSize.h"

#include <algorithm>

#include "forms/CommandButton.h"
#include "forms/Grid.h"
#include "forms/Label.h"
#include "forms/Pages.h"
#include "forms/TextBox.h"

namespace pellora {
namespace {

// All in dip.
constexpr int kTextSlack = 4;
constexpr int kButtonWidth = 75;
constexpr int kButtonPadding = 12;
constexpr int kSmallButtonPadding = 6;
constexpr int kLineHeight = 23;
constexpr int kLinePadding = 10;
constexpr int kCheckHeight = 17;
constexpr int kCheckPadding = 4;
constexpr int kEditPadding = 12;
constexpr int kScrollBar = 17;
constexpr int kListBorder = 4;
constexpr int kItemPadding = 4;
constexpr int kHeaderPadding = 12;
constexpr int kColumnPadding = 14;
constexpr int kRowPadding = 6;
constexpr int kFramePadding = 9;
constexpr int kFrameTitleInset = 9;
constexpr int kTabPadding = 16;
constexpr int kTabHeight = 9;
constexpr int kPagesBorder = 3;
constexpr int kPagePadding = 8;

/// What a control shows where a layout does not ask for a size.
constexpr int kUsualChars = 20;
constexpr int kUsualLines = 5;

int LineHeight(const TextMeasurer& measurer) { return measurer.Measure("Ag", TextStyle::Normal).height; }

int CharsWidth(int chars, const TextMeasurer& measurer) {
  constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  const auto width = measurer.Measure(letters, TextStyle::Normal).width;
  const auto count = static_cast<int>(letters.size());
  return (width * chars + count - 1) / count;
}

int AskedChars(const Wishes& wishes) {
  if (wishes.chars) return wishes.chars;
  return wishes.minWidth ? 0 : kUsualChars;
}

int AskedLines(const Wishes& wishes) {
  if (wishes.lines) return wishes.lines;
  return wishes.minHeight ? 0 : kUsualLines;
}

/// The size of a caption of one or more lines.
Size TextSize(std::string_view text, TextStyle style, const TextMeasurer& measurer) {
  Size size;
  for (std::size_t begin = 0; begin <= text.size();) {
    const auto end = std::min(text.find('\n', begin), text.size());
    auto line = text.substr(begin, end - begin);
    if (line.ends_with('\r')) line.remove_suffix(1);
    const auto measured = measurer.Measure(line.empty() ? " " : line, style);
    size.width = std::max(size.width, line.empty() ? 0 : measured.width + measurer.Scale(kTextSlack));
    size.height += measured.height;
    begin = end + 1;
  }
  return size;
}

Size CaptionSize(const Control& control, TextStyle style, const TextMeasurer& measurer) {
  return TextSize(DisplayText(control.Caption()), style, measurer);
}

Size LabelSize(const Label& label, const Wishes& wishes, const TextMeasurer& measurer) {
  const auto text = CaptionSize(label, label.Style(), measurer);
  return {std::max(text.width, CharsWidth(wishes.chars, measurer)), text.height};
}

Size CheckSize(const Control& control, const TextMeasurer& measurer) {
  const auto text = CaptionSize(control, TextStyle::Normal, measurer);
  return {text.width + measurer.CheckGlyph(),
          std::max(measurer.Scale(kCheckHeight), text.height + measurer.Scale(kCheckPadding))};
}

Size ButtonSize(const CommandButton& button, const Wishes& wishes, const TextMeasurer& measurer) {
  const auto line = measurer.Scale(kLineHeight);
  if (button.Picture() != ButtonPicture::None) return {line, line};
  const auto text = CaptionSize(button, TextStyle::Normal, measurer);
  // A layout that asks for a width wants a button of its own measure, such as a small one with three points.
  const auto least = wishes.minWidth ? 0 : measurer.Scale(kButtonWidth);
  const auto padding = wishes.minWidth ? kSmallButtonPadding : kButtonPadding;
  return {std::max(least, text.width + measurer.Scale(padding)),
          std::max(line, text.height + measurer.Scale(kLinePadding))};
}

/// A line that is typed into or drops down; `extra` dip for what stands beside the text.
Size EditSize(const Wishes& wishes, int extra, const TextMeasurer& measurer) {
  return {CharsWidth(AskedChars(wishes), measurer) + measurer.Scale(kEditPadding + extra),
          std::max(measurer.Scale(kLineHeight), LineHeight(measurer) + measurer.Scale(kLinePadding))};
}

/// Several lines with a scroll bar beside them.
Size LinesSize(const Wishes& wishes, int linePadding, const TextMeasurer& measurer) {
  const auto line = LineHeight(measurer) + measurer.Scale(linePadding);
  return {CharsWidth(AskedChars(wishes), measurer) + measurer.Scale(kEditPadding + kScrollBar),
          AskedLines(wishes) * line + measurer.Scale(kListBorder + kItemPadding)};
}

Size GridSize(const Grid& grid, const Wishes& wishes, const TextMeasurer& measurer) {
  auto width = measurer.Scale(kScrollBar) + measurer.Scale(kListBorder);
  for (int column = 0; column < grid.Cols(); ++column) width += NaturalColumnWidth(grid, column, measurer);
  const auto line = LineHeight(measurer);
  const auto header = line + measurer.Scale(kHeaderPadding);
  const auto rows = AskedLines(wishes) * (line + measurer.Scale(kRowPadding));
  return {width, header + rows + measurer.Scale(kListBorder)};
}

Size KindSize(const Control& control, const Wishes& wishes, const TextMeasurer& measurer) {
  switch (control.Kind()) {
    case ControlKind::Label: return LabelSize(static_cast<const Label&>(control), wishes, measurer);
    case ControlKind::CheckBox:
    case ControlKind::OptionButton: return CheckSize(control, measurer);
    case ControlKind::CommandButton: return ButtonSize(static_cast<const CommandButton&>(control), wishes, measurer);
    case ControlKind::ComboBox: return EditSize(wishes, kScrollBar, measurer);
    case ControlKind::ListBox: return LinesSize(wishes, kItemPadding, measurer);
    case ControlKind::Grid: return GridSize(static_cast<const Grid&>(control), wishes, measurer);
    case ControlKind::TextBox:
      return static_cast<const TextBox&>(control).MultiLine() ? LinesSize(wishes, 0, measurer)
                                                              : EditSize(wishes, 0, measurer);
    default: return {};
  }
}

}  // namespace

Size NaturalSize(const Control& control, const Wishes& wishes, const TextMeasurer& measurer) {
  const auto size = KindSize(control, wishes, measurer);
  return {std::max(size.width, measurer.Scale(wishes.minWidth)),
          std::max(size.height, measurer.Scale(wishes.minHeight))};
}

Inset ContainerInset(const Container& container, const TextMeasurer& measurer) {
  if (container.Kind() != ControlKind::Frame) return {};
  const auto padding = measurer.Scale(kFramePadding);
  const auto title = container.Caption().empty() ? 0 : LineHeight(measurer);
  return {padding, title + padding, padding, padding};
}

Inset PagesInset(const Pages& pages, const TextMeasurer& measurer) {
  if (!pages.ShowTabs()) return {};
  const auto border = measurer.Scale(kPagesBorder);
  return {border, LineHeight(measurer) + measurer.Scale(kTabHeight), border, border};
}

Inset PageInset(const Pages& pages, const TextMeasurer& measurer) {
  if (!pages.ShowTabs()) return {};
  const auto padding = measurer.Scale(kPagePadding);
  return {padding, padding, padding, padding};
}

int NaturalColumnWidth(const Grid& grid, int column, const TextMeasurer& measurer) {
  const auto& asked = grid.ColumnAt(column);
  const auto header = measurer.Measure(asked.header, TextStyle::Normal).width + measurer.Scale(kColumnPadding);
  return std::max(measurer.Scale(asked.width), header);
}

int TitleWidth(const Container& container, const TextMeasurer& measurer) {
  if (container.Kind() != ControlKind::Frame) return 0;
  return CaptionSize(container, TextStyle::Normal, measurer).width + 2 * measurer.Scale(kFrameTitleInset);
}

int TabsWidth(const Pages& pages, const TextMeasurer& measurer) {
  if (!pages.ShowTabs()) return 0;
  auto width = 2 * measurer.Scale(kPagesBorder);
  for (const auto* page : pages.Children())
    width += CaptionSize(*page, TextStyle::Normal, measurer).width + measurer.Scale(kTabPadding);
  return width;
}

}  // namespace pellora
