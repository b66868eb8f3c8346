#include "excel/Interior.h"

namespace pellora::excel {

void Interior::ColorIndex(std::int32_t index) const { Put("ColorIndex", index); }

}  // namespace pellora::excel
