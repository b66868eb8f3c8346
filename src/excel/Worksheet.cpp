#include "excel/Worksheet.h"

#include "core/Convert.h"

namespace pellora::excel {

std::string Worksheet::Name() const { return ToText(Get("Name")); }
void Worksheet::Select() const { Call("Select"); }
Range Worksheet::Range(std::string_view address) const { return excel::Range(GetObject("Range", {address})); }
Range Worksheet::Cells() const { return excel::Range(GetObject("Cells")); }

}  // namespace pellora::excel
