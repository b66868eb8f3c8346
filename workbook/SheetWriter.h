#pragma once

#include <string>

#include "workbook/FileParts.h"
#include "workbook/Styles.h"

namespace pellora::workbook {

/// A sheet's part as text: what the file held, with the present cells and column widths. `part` is what it held;
/// an empty one for a sheet that is new. `styles` gains what the cells need.
std::string SheetText(const Document& document, const std::shared_ptr<Sheet>& sheet, const SheetPart& part,
                      StyleBook& styles);

}  // namespace pellora::workbook
