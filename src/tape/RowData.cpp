#include "tape/RowData.h"

#include "core/Text.h"

namespace pellora {
namespace {

constexpr std::string_view kLineBreak = "\r\n";

}  // namespace

std::string FormatRowData(const RowData& data) {
  return std::string(data.complete ? "1" : "0").append(kLineBreak).append(data.address);
}

std::optional<RowData> ParseRowData(std::string_view text) {
  const auto lines = Split(text, kLineBreak);
  if (lines.empty()) return std::nullopt;
  return RowData{lines[0] != "0", lines.size() > 1 ? lines[1] : std::string()};
}

}  // namespace pellora
