#include "excel/Border.h"

namespace pellora::excel {

void Border::LineStyle(std::int32_t style) const { Put("LineStyle", style); }
void Border::Weight(std::int32_t weight) const { Put("Weight", weight); }
void Border::ColorIndex(std::int32_t index) const { Put("ColorIndex", index); }

}  // namespace pellora::excel
