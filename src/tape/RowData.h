#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pellora {

/// What the instrument grid keeps with each row, as a text of two lines: "1" for a complete instrument or "0", and the
/// row's absolute address on the quote sheet.
struct RowData {
  bool complete = false;
  std::string address;
  bool operator==(const RowData&) const = default;
};

std::string FormatRowData(const RowData& data);
/// Nothing for an empty text. Only a first line "0" is incomplete; a missing second line is an empty address.
std::optional<RowData> ParseRowData(std::string_view text);

}  // namespace pellora
