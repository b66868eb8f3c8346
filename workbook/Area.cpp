#include "workbook/Area.h"

#include <algorithm>
#include <charconv>

namespace pellora::workbook {
namespace {

// One end of an area: a cell, a column (row 0) or a row (column 0).
struct End {
  int row = 0, column = 0;
};

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

void SkipDollar(std::string_view& text) {
  if (!text.empty() && text.front() == '$') text.remove_prefix(1);
}

template <class Test>
std::string_view TakeWhile(std::string_view& text, Test test) {
  const auto end = std::find_if_not(text.begin(), text.end(), test);
  const auto length = static_cast<std::size_t>(end - text.begin());
  const std::string_view taken = text.substr(0, length);
  text.remove_prefix(length);
  return taken;
}

std::optional<int> ParseRow(std::string_view digits) {
  int row = 0;
  const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), row);
  const bool whole = fault == std::errc{} && end == digits.data() + digits.size();
  return whole && row >= 1 && row <= kMaxRows ? std::optional(row) : std::nullopt;
}

std::optional<End> ParseEnd(std::string_view text) {
  End end;
  SkipDollar(text);
  const std::string_view letters = TakeWhile(text, IsLetter);
  if (!letters.empty()) {
    const auto column = ParseColumn(letters);
    if (!column) return std::nullopt;
    end.column = *column;
    if (text.empty()) return end;
    SkipDollar(text);
  }
  const auto row = ParseRow(text);
  if (!row) return std::nullopt;
  end.row = *row;
  return end;
}

Area Between(const End& one, const End& other) {
  Area area{std::min(one.row, other.row), std::min(one.column, other.column), std::max(one.row, other.row),
            std::max(one.column, other.column)};
  if (area.top == 0) area.top = 1, area.bottom = kMaxRows;
  if (area.left == 0) area.left = 1, area.right = kMaxColumns;
  return area;
}

std::string EndText(int row, int column, bool rowAbsolute, bool columnAbsolute) {
  std::string text;
  if (column != 0) text += (columnAbsolute ? "$" : "") + ColumnLetters(column);
  if (row != 0) text += (rowAbsolute ? "$" : "") + std::to_string(row);
  return text;
}

}  // namespace

std::optional<Area> Common(const Area& left, const Area& right) {
  const Area common{std::max(left.top, right.top), std::max(left.left, right.left), std::min(left.bottom, right.bottom),
                    std::min(left.right, right.right)};
  return common.top <= common.bottom && common.left <= common.right ? std::optional(common) : std::nullopt;
}

Area Around(const Area& left, const Area& right) {
  return {std::min(left.top, right.top), std::min(left.left, right.left), std::max(left.bottom, right.bottom),
          std::max(left.right, right.right)};
}

std::optional<int> ParseColumn(std::string_view letters) {
  int column = 0;
  for (const char c : letters) {
    if (!IsLetter(c)) return std::nullopt;
    column = column * 26 + ((c & ~0x20) - 'A' + 1);
    if (column > kMaxColumns) return std::nullopt;
  }
  return column > 0 ? std::optional(column) : std::nullopt;
}

std::optional<CellPlace> ParseCell(std::string_view text) {
  const auto end = ParseEnd(text);
  if (!end || end->row == 0 || end->column == 0) return std::nullopt;
  return CellPlace{end->row, end->column};
}

std::optional<Area> ParseArea(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos) {
    const auto cell = ParseCell(text);
    return cell ? std::optional(Area::Of(*cell)) : std::nullopt;
  }
  const auto one = ParseEnd(text.substr(0, colon));
  const auto other = ParseEnd(text.substr(colon + 1));
  // Both ends must be of one kind: cells, columns or rows.
  if (!one || !other || (one->row == 0) != (other->row == 0) || (one->column == 0) != (other->column == 0))
    return std::nullopt;
  return Between(*one, *other);
}

std::string ColumnLetters(int column) {
  std::string letters;
  for (; column > 0; column = (column - 1) / 26)
    letters.insert(letters.begin(), static_cast<char>('A' + (column - 1) % 26));
  return letters;
}

std::string AreaText(const Area& area, bool rowAbsolute, bool columnAbsolute) {
  const bool rowsOnly = area.WholeRows();
  const bool columnsOnly = area.WholeColumns() && !rowsOnly;
  const auto text = [&](int row, int column) {
    return EndText(columnsOnly ? 0 : row, rowsOnly ? 0 : column, rowAbsolute, columnAbsolute);
  };
  const std::string first = text(area.top, area.left);
  const bool single = area.Count() == 1;
  return single ? first : first + ":" + text(area.bottom, area.right);
}

}  // namespace pellora::workbook
