#pragma once

#include <string_view>

namespace pellora {

/// The workbook's sheet on which the tapes are recorded, one a row: tape header, link formula, size header, location.
inline constexpr std::string_view kSettingsSheet = "Ticker_tape_settings";

/// The workbook name of the record table's header cell; records follow below it.
inline constexpr std::string_view kRecordTable = "Tape_header_for_Ticker";

}  // namespace pellora
