#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pellora::libreoffice {

/// One reference of an address, such as 'My Sheet'!$A$1:$B$2.
struct SheetPart {
  /// The file in brackets, without them; empty when none is named.
  std::string book;
  /// The sheet, without its apostrophes; nothing when none is named.
  std::optional<std::string> sheet;
  /// What follows the exclamation mark.
  std::string local;
};

/// The references of an address, split at commas and colons outside of apostrophes: each may name a sheet of its own.
/// A sheet's name stands in apostrophes, those in it doubled, or plain. Nothing when an apostrophe is not closed.
std::optional<std::vector<SheetPart>> SheetPartsOf(std::string_view address);

/// True for cells, columns and rows in A1 notation, several of them also, and nothing else.
bool IsPlainAddress(std::string_view address);

}  // namespace pellora::libreoffice
