#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbook/Area.h"

namespace pellora::workbook {

/// Cells that a text refers to: one sheet, one area or several.
struct Reference {
  std::shared_ptr<Sheet> sheet;
  std::vector<Area> areas;
};

/// Why a text refers to nothing.
enum class ReferenceFault { None, NotAReference, UnknownName, MissingSheet };

/// What a text refers to, as the spreadsheet reads it: plain A1 notation on `base`, with a sheet in front
/// (Sheet1!B3, 'My Sheet'!A1, an apostrophe inside doubled), a workbook name in any letter case, several of them
/// joined by commas. A sheet name with characters other than letters, digits, "_" and "." needs its apostrophes.
/// Nothing for anything else; `fault` then says why.
std::optional<Reference> Resolve(const Document& document, const std::shared_ptr<Sheet>& base, std::string_view text,
                                 ReferenceFault* fault = nullptr);

/// A sheet name as it stands in a reference, in apostrophes where it needs them.
std::string SheetNameInReference(std::string_view name);

/// True for a text that may be a workbook name: begins with a letter, "_" or "\", goes on with those, digits, "."
/// and "?", and is no cell address.
bool IsNameText(std::string_view text);

}  // namespace pellora::workbook
