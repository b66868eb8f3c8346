#pragma once

#include <string>
#include <string_view>

namespace pellora {

/// The sheet on which the quotes stand, and every address without a sheet.
inline constexpr std::string_view kQuoteSheet = "TWS_Quotes";

/// An address and its sheet, the sheet as it was written: with apostrophes when it had some.
struct SheetAddress {
  std::string sheet;
  std::string address;
  bool operator==(const SheetAddress&) const = default;
};

/// Splits at the first "!"; without one the sheet is the quote sheet.
SheetAddress SplitSheetAddress(std::string_view full);

/// The sheet's own name: without the apostrophes that an address needs around some, doubled ones inside made single.
std::string UnquotedSheet(std::string_view sheet);

}  // namespace pellora
