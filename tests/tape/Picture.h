#pragma once

#include <sstream>
#include <string>

#include "workbook/Document.h"
#include "workbook/Host.h"

namespace pellora::test {

/// Everything one sheet shows, as one text.
inline std::string Picture(const workbook::Sheet& sheet) {
  std::ostringstream out;
  out << "[" << sheet.name << "]\n";
  for (const auto& [place, cell] : sheet.cells) {
    out << place.row << "," << place.column << "=" << cell.formula << "|";
    if (cell.value.Is(Variant::Type::String)) out << cell.value.String();
    for (const auto& line : cell.format.borders)
      out << " " << line.style << "/" << line.weight << "/" << line.colorIndex;
    out << " " << cell.format.interior << "\n";
  }
  for (const auto& [column, width] : sheet.columnWidths) out << column << ":" << width << "\n";
  return out.str();
}

/// Everything a workbook shows, and which sheet is active, and whether the screen is updated.
inline std::string Picture(workbook::Host& host) {
  auto& document = host.document();
  std::string text;
  for (const auto& sheet : document.sheets) text += Picture(*sheet);
  text += "active " + document.sheets[document.active]->name + "\n";
  const bool updating = host.Application()->Invoke("ScreenUpdating", CallKind::Get, {}).Boolean();
  return text + (updating ? "updating 1" : "updating 0");
}

}  // namespace pellora::test
