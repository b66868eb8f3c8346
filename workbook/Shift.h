#pragma once

#include <string>
#include <string_view>

namespace pellora::workbook {

/// A formula as it reads in a cell that lies so many rows and columns further: relative references move, absolute
/// ones, names, functions and texts stay. A reference that leaves the sheet becomes #REF!.
std::string ShiftFormula(std::string_view formula, int rows, int columns);

}  // namespace pellora::workbook
