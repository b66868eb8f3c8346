#pragma once

#include <cstdio>

#include "tests/hosts/SheetHost.h"

namespace pellora::bench {

/// Opens the ticker tape dialog on workbooks of several sizes, makes another row current and inserts a tape; writes a
/// table of the calls to the spreadsheet and the milliseconds that each took. The calls are the same for any size.
void ReportTapeDialog(test::SheetHost& host, std::FILE* report);

}  // namespace pellora::bench
