#include "excel/Workbook.h"

namespace pellora::excel {

Worksheet Workbook::Worksheets(std::string_view name) const { return Worksheet(GetObject("Worksheets", {name})); }
void Workbook::Activate() const { Call("Activate"); }

}  // namespace pellora::excel
