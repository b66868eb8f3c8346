#include "tape/Area.h"

#include <algorithm>
#include <charconv>

namespace pellora {
namespace {

// One corner: a row, a column, or both; 0 for what is not there.
struct Corner {
  int row = 0;
  int column = 0;
};

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view TakeWhile(std::string_view& rest, bool (*test)(char)) {
  const auto end = std::find_if_not(rest.begin(), rest.end(), test);
  const auto taken = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
  rest.remove_prefix(taken.size());
  return taken;
}

void SkipDollar(std::string_view& rest) {
  if (!rest.empty() && rest.front() == '$') rest.remove_prefix(1);
}

// 0 for no letters, too large a number for too many.
int ColumnNumber(std::string_view letters) {
  if (letters.size() > 3) return kSheetColumns + 1;
  int column = 0;
  for (const char c : letters) column = column * 26 + ((c | 0x20) - 'a' + 1);
  return column;
}

std::optional<Corner> ParseCorner(std::string_view rest) {
  Corner corner;
  SkipDollar(rest);
  corner.column = ColumnNumber(TakeWhile(rest, IsLetter));
  if (corner.column > 0) {
    if (rest == "$") return std::nullopt;
    SkipDollar(rest);
  }
  const auto digits = TakeWhile(rest, IsDigit);
  if (digits.size() > 7 || !rest.empty() || (digits.empty() && corner.column == 0)) return std::nullopt;
  if (!digits.empty()) std::from_chars(digits.data(), digits.data() + digits.size(), corner.row);
  const bool rowFits = digits.empty() || (corner.row >= 1 && corner.row <= kSheetRows);
  return rowFits && corner.column <= kSheetColumns ? std::optional(corner) : std::nullopt;
}

std::string ColumnLetters(int column) {
  std::string letters;
  for (; column > 0; column = (column - 1) / 26) letters += static_cast<char>('A' + (column - 1) % 26);
  std::reverse(letters.begin(), letters.end());
  return letters;
}

std::string Address(const Area& area, std::string_view dollar) {
  const std::string mark(dollar);
  const auto row = [&](int number) { return mark + std::to_string(number); };
  const auto column = [&](int number) { return mark + ColumnLetters(number); };
  if (area.left == 1 && area.right == kSheetColumns) return row(area.top) + ":" + row(area.bottom);
  if (area.top == 1 && area.bottom == kSheetRows) return column(area.left) + ":" + column(area.right);
  const auto first = column(area.left) + row(area.top);
  const auto last = column(area.right) + row(area.bottom);
  return first == last ? first : first + ":" + last;
}

}  // namespace

std::optional<Area> ParseArea(std::string_view address) {
  const auto colon = address.find(':');
  const auto one = ParseCorner(address.substr(0, colon));
  const auto other = colon == std::string_view::npos ? one : ParseCorner(address.substr(colon + 1));
  if (!one || !other || (one->row == 0) != (other->row == 0) || (one->column == 0) != (other->column == 0))
    return std::nullopt;
  const bool wholeLines = one->row == 0 || one->column == 0;
  if (wholeLines && colon == std::string_view::npos) return std::nullopt;
  Area area{std::min(one->row, other->row), std::min(one->column, other->column), std::max(one->row, other->row),
            std::max(one->column, other->column)};
  if (one->row == 0) area.top = 1, area.bottom = kSheetRows;
  if (one->column == 0) area.left = 1, area.right = kSheetColumns;
  return area;
}

std::optional<std::vector<Area>> ParseAreas(std::string_view addresses) {
  std::vector<Area> areas;
  for (;;) {
    const auto comma = addresses.find(',');
    const auto area = ParseArea(addresses.substr(0, comma));
    if (!area) return std::nullopt;
    areas.push_back(*area);
    if (comma == std::string_view::npos) return areas;
    addresses.remove_prefix(comma + 1);
  }
}

std::optional<Area> Intersection(const Area& left, const Area& right) {
  const Area common{std::max(left.top, right.top), std::max(left.left, right.left), std::min(left.bottom, right.bottom),
                    std::min(left.right, right.right)};
  return common.top <= common.bottom && common.left <= common.right ? std::optional(common) : std::nullopt;
}

std::string AbsoluteAddress(const Area& area) { return Address(area, "$"); }
std::string RelativeAddress(const Area& area) { return Address(area, ""); }

}  // namespace pellora
