#pragma once

#include "platform/libreoffice/uno/Differences.h"

/// The rows of the table that are about the lines around cells. The program's own object model knows their width alone;
/// they are read and drawn through the native properties of the range.
namespace pellora::libreoffice {

/// True for a line, or the lines, of a range of cells.
bool OfRange(const Call& call);

/// The styles, weights and colours of the spreadsheet's object model; null where the cells differ. A style or a colour
/// keeps what the line was otherwise; a line that was none becomes a thin, plain, black one first. Raise 1004 for
/// anything that is none.
Variant ReadLineStyle(const Call& call);
Variant PutLineStyle(const Call& call);
Variant ReadWeight(const Call& call);
Variant PutWeight(const Call& call);
Variant ReadColorIndex(const Call& call);
Variant PutColorIndex(const Call& call);
/// Of a range's inside, not its lines: null where the cells differ.
Variant ReadBackground(const Call& call);

}  // namespace pellora::libreoffice
