#pragma once

#include "platform/libreoffice/uno/Differences.h"

/// The rows of the table that are about which cells a call means.
namespace pellora::libreoffice {

/// True when a text argument names a sheet ("Sheet1!A1").
bool HasSheetPart(const Call& call);
/// True when a text argument is anything else than cells in plain notation ("$A$1:$B$2", "A:D", "5:7").
bool IsNoPlainAddress(const Call& call);
/// True when an index is past what every sheet has.
bool HasLargeIndex(const Call& call);
bool AsksForLastCell(const Call& call);

Variant RangeOfApplication(const Call& call);
/// Also of a range: refuses cells of another sheet.
Variant RangeOfWorksheet(const Call& call);
Variant IntersectionOnOneSheet(const Call& call);
Variant LinesInsideSheet(const Call& call);
Variant ResizeInsideSheet(const Call& call);
Variant CountWithoutOverflow(const Call& call);
Variant AddressWithFlags(const Call& call);
Variant SelectOnActiveSheet(const Call& call);
Variant SelectVisibleSheet(const Call& call);
Variant LastCell(const Call& call);

}  // namespace pellora::libreoffice
