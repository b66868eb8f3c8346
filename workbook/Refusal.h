#pragma once

#include <string_view>

namespace pellora::workbook {

/// Raises 1004, the spreadsheet's general refusal, with its general text or a given one.
[[noreturn]] void Refuse();
[[noreturn]] void Refuse(std::string_view text);

}  // namespace pellora::workbook
