#include "workbook/Shift.h"

#include "workbook/Area.h"

namespace pellora::workbook {
namespace {

bool IsWord(char c) {
  const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
  return letter || (c >= '0' && c <= '9') || c == '$' || c == '_' || c == '.' || c == '\\' || c == '?';
}

// A part of a reference, "$E" or "7", moved unless it is absolute.
std::string Moved(int number, int most, bool absolute, int by, bool column) {
  const int moved = absolute ? number : number + by;
  if (moved < 1 || moved > most) return {};
  return (absolute ? "$" : "") + (column ? ColumnLetters(moved) : std::to_string(moved));
}

// A cell, or beside a colon a whole column or row; the word itself when it is none of them.
std::string ShiftWord(std::string_view word, bool besideColon, int rows, int columns) {
  const bool columnAbsolute = word.starts_with('$');
  const bool rowAbsolute = word.find('$', 1) != std::string_view::npos;
  if (const auto cell = ParseCell(word)) {
    const std::string column = Moved(cell->column, kMaxColumns, columnAbsolute, columns, true);
    const std::string row = Moved(cell->row, kMaxRows, rowAbsolute, rows, false);
    return column.empty() || row.empty() ? "#REF!" : column + row;
  }
  const std::string line(word);
  const auto area = besideColon ? ParseArea(line + ":" + line) : std::nullopt;
  if (!area) return line;
  const std::string moved = area->WholeColumns() ? Moved(area->left, kMaxColumns, columnAbsolute, columns, true)
                                                 : Moved(area->top, kMaxRows, columnAbsolute, rows, false);
  return moved.empty() ? "#REF!" : moved;
}

}  // namespace

std::string ShiftFormula(std::string_view formula, int rows, int columns) {
  std::string out;
  for (std::size_t at = 0; at < formula.size();) {
    const char c = formula[at];
    std::size_t end = at + 1;
    if (c == '"' || c == '\'') {
      // Texts and quoted sheet names; a doubled mark only begins the next one.
      end = formula.find(c, at + 1);
      end = end == std::string_view::npos ? formula.size() : end + 1;
      out += formula.substr(at, end - at);
    } else if (IsWord(c)) {
      while (end < formula.size() && IsWord(formula[end])) ++end;
      const std::string_view word = formula.substr(at, end - at);
      const char after = end < formula.size() ? formula[end] : '\0', before = at > 0 ? formula[at - 1] : '\0';
      const bool fixed = after == '(' || after == '!';
      out += fixed ? std::string(word) : ShiftWord(word, after == ':' || before == ':', rows, columns);
    } else {
      out += c;
    }
    at = end;
  }
  return out;
}

}  // namespace pellora::workbook
