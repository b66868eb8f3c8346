#pragma once

#include <cstddef>

#include "excel/Application.h"

namespace pellora::bench {

/// Reads instruments and their recorded tapes the way macros usually do, one cell a call and every record once for
/// every instrument: what the dialog's reading is measured against. Reads the first `rows` instruments only; answers
/// how many tapes it found.
std::size_t ReadCellByCell(const excel::Application& excel, int rows, int tapes);

}  // namespace pellora::bench
