#pragma once

#include "platform/libreoffice/uno/Differences.h"

/// The rows of the table that are about what cells hold.
namespace pellora::libreoffice {

/// Whether a value is text by the mark of an apostrophe before it.
bool IsMarked(const Variant& value);
Variant ReadValue(const Call& call);
/// As `ReadValue`, dates as their numbers.
Variant ReadValue2(const Call& call);
Variant PutValue(const Call& call);
Variant ReadFormula(const Call& call);
Variant PutFormula(const Call& call);
Variant ReadColumnWidth(const Call& call);
Variant PutColumnWidth(const Call& call);

/// The spreadsheet's error value for a cell's error number in the program's own terms.
Variant CellErrorOf(std::int32_t nativeError);
/// The formula that shows an error value; raises 13 for a code that is none.
std::string_view FormulaOfError(std::int32_t code);

/// A link to another program as a formula, =app|topic!item, in the form of a function that this program reads; any
/// other text unchanged. And back.
std::string LinkAsFunction(std::string_view formula);
std::string FunctionAsLink(std::string_view formula);

}  // namespace pellora::libreoffice
