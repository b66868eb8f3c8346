#include "workbook/Palette.h"

#include <array>

#include "core/Text.h"

namespace pellora::workbook {
namespace {

constexpr std::array<std::string_view, 56> kColors = {
    "000000", "FFFFFF", "FF0000", "00FF00", "0000FF", "FFFF00", "FF00FF", "00FFFF", "800000", "008000",
    "000080", "808000", "800080", "008080", "C0C0C0", "808080", "9999FF", "993366", "FFFFCC", "CCFFFF",
    "660066", "FF8080", "0066CC", "CCCCFF", "000080", "FF00FF", "FFFF00", "00FFFF", "800080", "800000",
    "008080", "0000FF", "00CCFF", "CCFFFF", "CCFFCC", "FFFF99", "99CCFF", "FF99CC", "CC99FF", "FFCC99",
    "3366FF", "33CCCC", "99CC00", "FFCC00", "FF9900", "FF6600", "666699", "969696", "003366", "339966",
    "003300", "333300", "993300", "993366", "333399", "333333",
};

struct LineName {
  std::string_view name;
  int style, weight;
};

constexpr std::array kLines = {
    LineName{"thin", 1, 2},
    LineName{"medium", 1, -4138},
    LineName{"thick", 1, 4},
    LineName{"hair", 1, 1},
    LineName{"dashed", -4115, 2},
    LineName{"mediumDashed", -4115, -4138},
    LineName{"dotted", -4118, 2},
    LineName{"double", -4119, 4},
    LineName{"dashDot", 4, 2},
    LineName{"mediumDashDot", 4, -4138},
    LineName{"dashDotDot", 5, 2},
    LineName{"mediumDashDotDot", 5, -4138},
    LineName{"slantDashDot", 13, -4138},
};

}  // namespace

std::string_view PaletteColor(int index) { return kColors.at(static_cast<std::size_t>(index) - 1); }

std::optional<int> PaletteIndex(std::string_view rgb) {
  if (rgb.size() == 8) rgb.remove_prefix(2);
  for (std::size_t i = 0; i < kColors.size(); ++i)
    if (EqualAsciiNoCase(kColors[i], rgb)) return static_cast<int>(i) + 1;
  return std::nullopt;
}

BorderLine LineOfName(std::string_view name) {
  if (name.empty() || name == "none") return {};
  for (const auto& line : kLines)
    if (line.name == name) return {line.style, line.weight, kAutomatic};
  return {1, 2, kAutomatic};
}

std::string_view NameOfLine(const BorderLine& line) {
  for (const auto& known : kLines)
    if (known.style == line.style && known.weight == line.weight) return known.name;
  for (const auto& known : kLines)
    if (known.style == line.style) return known.name;
  return "thin";
}

bool IsDateFormat(int number, std::string_view code) {
  const auto within = [&](int first, int last) { return number >= first && number <= last; };
  if (within(14, 22) || within(27, 36) || within(45, 47) || within(50, 58)) return true;
  char closing = 0;
  for (std::size_t i = 0; i < code.size(); ++i) {
    const char c = code[i];
    if (closing) {
      closing = c == closing ? 0 : closing;
    } else if (c == '"' || c == '[') {
      closing = c == '[' ? ']' : '"';
    } else if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else if (std::string_view("dDmMyYhHsS").find(c) != std::string_view::npos) {
      return true;
    }
  }
  return false;
}

}  // namespace pellora::workbook
