#pragma once

#include <string_view>

#include "workbook/Document.h"

namespace pellora::workbook {

/// Puts a text into a cell as if it were typed there: a leading apostrophe is the text mark and not part of the
/// value, a leading "=" makes a formula, what reads as a number, a percentage, a truth value, a date or an error
/// value becomes one, an empty text clears. The cell's look stays. Raises 1004 for a text of more than 32,767
/// characters.
void TypeInto(Cell& cell, std::string_view text);

/// Puts a value into a cell: texts as if typed, whole numbers as numbers. Raises 13 for arrays and 1004 for objects.
void PutInto(Cell& cell, const Variant& value);

}  // namespace pellora::workbook
