#include "workbook/SheetWriter.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/Convert.h"
#include "workbook/Area.h"
#include "workbook/FileParts.h"
#include "workbook/Showing.h"

namespace pellora::workbook {
namespace {

constexpr std::string_view kNewSheet =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"><sheetViews><sheetView workbookViewId="0"/></sheetViews><sheetFormatPr defaultRowHeight="15"/><sheetData/></worksheet>)";

// The shortest text that reads back as the same number.
std::string NumberText(double value) {
  std::array<char, 32> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return std::string(buffer.data(), result.ptr);
}

std::string WithRow(const CellPlace& place) { return ColumnLetters(place.column) + std::to_string(place.row); }

bool NeedsSpaceKept(std::string_view text) {
  constexpr std::string_view blanks = " \t\n";
  return !text.empty() && (blanks.find(text.front()) != blanks.npos || blanks.find(text.back()) != blanks.npos ||
                           text.find('\n') != text.npos || text.find("  ") != text.npos);
}

class CellsWriter {
 public:
  CellsWriter(const Document& document, std::shared_ptr<Sheet> sheet, const SheetPart& part, StyleBook& styles,
              std::string prefix)
      : m_document(document), m_sheet(std::move(sheet)), m_part(part), m_styles(styles), m_prefix(std::move(prefix)) {}

  std::string Text() {
    Open("sheetData");
    m_out += ">";
    auto kept = m_part.rows.begin();
    auto cell = m_sheet->cells.begin();
    while (kept != m_part.rows.end() || cell != m_sheet->cells.end()) {
      const bool fromCell =
          cell != m_sheet->cells.end() && (kept == m_part.rows.end() || cell->first.row <= kept->first);
      const int row = fromCell ? cell->first.row : kept->first;
      Open("row");
      m_out += " r=\"" + std::to_string(row) + "\"";
      if (kept != m_part.rows.end() && kept->first == row) m_out += (kept++)->second;
      m_out += ">";
      for (; cell != m_sheet->cells.end() && cell->first.row == row; ++cell) Write(cell->first, cell->second);
      Close("row");
    }
    Close("sheetData");
    return std::move(m_out);
  }

 private:
  void Open(std::string_view name) { m_out.append("<").append(m_prefix).append(name); }
  void Close(std::string_view name) { m_out.append("</").append(m_prefix).append(name).append(">"); }
  void Element(std::string_view name, std::string_view text) {
    Open(name);
    m_out.append(NeedsSpaceKept(text) ? " xml:space=\"preserve\">" : ">").append(XmlEscaped(text));
    Close(name);
  }

  void Write(CellPlace place, const Cell& cell) {
    const Variant value = cell.formula.empty() ? cell.value : Shown(m_document, m_sheet, place);
    const bool date = value.Is(Variant::Type::Date);
    const int style = m_styles.StyleFor(cell.format, date);
    if (value.IsEmpty() && cell.formula.empty() && style == 0) return;
    Open("c");
    m_out += " r=\"" + WithRow(place) + "\"";
    if (style != 0) m_out += " s=\"" + std::to_string(style) + "\"";
    if (cell.formula.empty())
      WriteConstant(place, value);
    else
      WriteFormula(place, cell, value);
    Close("c");
  }

  void WriteConstant(CellPlace place, const Variant& value) {
    if (!value.Is(Variant::Type::String)) return WriteValue(value);
    const auto held = m_part.texts.find(place);
    if (held != m_part.texts.end() && m_document.fileParts->texts[held->second] == value.String()) {
      m_out += " t=\"s\">";
      return Element("v", std::to_string(held->second));
    }
    m_out += " t=\"inlineStr\">";
    Open("is");
    m_out += ">";
    Element("t", EncodedCellText(value.String()));
    Close("is");
  }

  // The type attribute, the end of the opening tag and the value.
  void WriteValue(const Variant& value) {
    using Type = Variant::Type;
    const auto typed = [&](std::string_view type, std::string_view text) {
      m_out.append(type).append(">");
      Element("v", text);
    };
    switch (value.Kind()) {
      case Type::Empty:
      case Type::Null:
      case Type::Missing: m_out += ">"; break;
      case Type::Boolean: typed(" t=\"b\"", value.Boolean() ? "1" : "0"); break;
      case Type::Error: typed(" t=\"e\"", ErrorText(value.ErrorCode())); break;
      case Type::String: typed(" t=\"str\"", EncodedCellText(value.String())); break;
      default: typed("", NumberText(Days(value)));
    }
  }

  double Days(const Variant& value) const {
    const bool shifted = value.Is(Variant::Type::Date) && m_document.fileParts && m_document.fileParts->from1904;
    return ToDouble(value) - (shifted ? kDaysTo1904 : 0);
  }

  void WriteFormula(CellPlace place, const Cell& cell, const Variant& value) {
    // The formula stands before the value, the value's type before both.
    const std::size_t start = m_out.size();
    WriteValue(value);
    const std::size_t tagEnd = m_out.find('>', start) + 1;
    const std::string valueText = m_out.substr(tagEnd);
    m_out.resize(tagEnd);
    const auto held = m_part.formulas.find(place);
    if (held != m_part.formulas.end() && held->second.first == cell.formula)
      m_out += held->second.second;
    else
      Element("f", std::string_view(cell.formula).substr(1));
    m_out += valueText;
  }

  const Document& m_document;
  const std::shared_ptr<Sheet> m_sheet;
  const SheetPart& m_part;
  StyleBook& m_styles;
  const std::string m_prefix;
  std::string m_out;
};

// The columns' element with the present widths; what else a column had stays.
std::string ColumnsText(const Sheet& sheet, const XmlParts::Child* held, const std::string& prefix) {
  std::map<int, std::string> columns;
  if (held)
    for (const auto& column : XmlParts::Of(held->whole).children) {
      std::string rest = column.attributes;
      for (const char* name : {"min", "max", "width", "customWidth", "bestFit"}) rest = WithAttribute(rest, name, {});
      const int last = std::min(NumberAttribute(column.attributes, "max", 0), kMaxColumns);
      for (int i = std::max(1, NumberAttribute(column.attributes, "min", 1)); i <= last; ++i) columns[i] = rest;
    }
  for (const auto& [column, width] : sheet.columnWidths)
    columns[column] += " width=\"" + NumberText(width + kColumnMargin) + "\" customWidth=\"1\"";
  std::string text;
  for (auto at = columns.begin(); at != columns.end();) {
    auto end = std::next(at);
    int last = at->first;
    for (; end != columns.end() && end->first == last + 1 && end->second == at->second; ++end) ++last;
    text += "<" + prefix + "col min=\"" + std::to_string(at->first) + "\" max=\"" + std::to_string(last) + "\"" +
            at->second + "/>";
    at = end;
  }
  return text.empty() ? text : "<" + prefix + "cols>" + text + "</" + prefix + "cols>";
}

// Marks one sheet as the one that is shown; several marked ones would be a group that is changed together.
std::string ViewsText(const std::string& held, bool active) {
  XmlParts views = XmlParts::Of(held);
  for (auto& view : views.children)
    view.whole = WithAttributes(view.whole, WithAttribute(view.attributes, "tabSelected",
                                                          active ? std::optional<std::string>("1") : std::nullopt));
  return views.Text();
}

Area Used(const Sheet& sheet) {
  Area used = sheet.cells.empty() ? Area{} : Area::Of(sheet.cells.begin()->first);
  for (const auto& [place, cell] : sheet.cells) used = Around(used, Area::Of(place));
  return used;
}

}  // namespace

std::string SheetText(const Document& document, const std::shared_ptr<Sheet>& sheet, const SheetPart& part,
                      StyleBook& styles) {
  XmlParts xml = part.path.empty() ? XmlParts::Of(kNewSheet) : part.xml;
  const std::string& prefix = xml.prefix;
  const bool active = document.sheets[document.active] == sheet;
  if (auto* dimension = xml.Find("dimension"))
    dimension->whole = "<" + prefix + "dimension ref=\"" + AreaText(Used(*sheet), false, false) + "\"/>";
  if (auto* views = xml.Find("sheetViews")) views->whole = ViewsText(views->whole, active);
  const auto data = std::find_if(xml.children.begin(), xml.children.end(),
                                 [](const auto& child) { return child.name == "sheetData"; });
  if (data == xml.children.end()) return xml.Text();
  data->whole = CellsWriter(document, sheet, part, styles, prefix).Text();
  if (sheet->columnWidths == part.widths) return xml.Text();
  if (auto* columns = xml.Find("cols"))
    columns->whole = ColumnsText(*sheet, columns, prefix);
  else
    xml.children.insert(data, {"cols", prefix, {}, ColumnsText(*sheet, nullptr, prefix)});
  return xml.Text();
}

}  // namespace pellora::workbook
