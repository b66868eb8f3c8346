#include "tape/SheetAddress.h"

#include "core/Text.h"

namespace pellora {

SheetAddress SplitSheetAddress(std::string_view full) {
  const auto mark = Find(full, "!");
  if (mark == std::string_view::npos) return {std::string(kQuoteSheet), std::string(full)};
  return {std::string(full.substr(0, mark)), std::string(full.substr(mark + 1))};
}

std::string UnquotedSheet(std::string_view sheet) {
  if (sheet.size() < 2 || sheet.front() != '\'' || sheet.back() != '\'') return std::string(sheet);
  return Replace(sheet.substr(1, sheet.size() - 2), "''", "'");
}

}  // namespace pellora
