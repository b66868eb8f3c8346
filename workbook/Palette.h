#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workbook/Document.h"

namespace pellora::workbook {

/// The 56 colours that colour indexes number from 1, as "RRGGBB".
std::string_view PaletteColor(int index);
/// The index of a colour given as "RRGGBB" or "AARRGGBB"; nothing for one outside the palette.
std::optional<int> PaletteIndex(std::string_view rgb);

/// A line's style and weight by the name that files use for them, and back. Unknown names are a thin line.
BorderLine LineOfName(std::string_view name);
std::string_view NameOfLine(const BorderLine& line);

/// True for a number format, by its number and its code, that shows dates or times.
bool IsDateFormat(int number, std::string_view code);

}  // namespace pellora::workbook
