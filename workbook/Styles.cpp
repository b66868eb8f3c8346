#include "workbook/Styles.h"

#include <array>
#include <map>

#include "workbook/Palette.h"

namespace pellora::workbook {
namespace {

constexpr int kShortDate = 14;
// Colour numbers of files: the palette twice, the first time its first eight colours only.
constexpr int kPaletteShift = 7, kFirstColors = 8, kLastColor = 63;

struct Side {
  std::string_view name;
  int place;
};
// In the order in which files have them; a diagonal line is one for both directions.
constexpr std::array kSides = {Side{"left", 2}, Side{"right", 5}, Side{"top", 3}, Side{"bottom", 4}};
constexpr int kDown = 0, kUp = 1;

bool IsTrue(std::string_view attributes, std::string_view name) {
  const auto value = Attribute(attributes, name);
  return value && (*value == "1" || *value == "true");
}

}  // namespace

std::string WithAttributes(std::string_view element, std::string_view attributes) {
  XmlReader reader(element);
  reader.Next();
  const std::string name = std::string(reader.Prefix()) + std::string(reader.Name());
  const bool empty = reader.Position() == element.size();
  const std::string open = "<" + name + std::string(attributes);
  return empty ? open + "/>" : open + ">" + std::string(element.substr(reader.Position()));
}

StyleBook::StyleBook(std::string_view xml) {
  if (!Read(xml)) Read(Standard());
  ReadLists();
}

std::string_view StyleBook::Standard() {
  return R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<styleSheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"><fonts count="1"><font><sz val="11"/><name val="Calibri"/></font></fonts><fills count="2"><fill><patternFill patternType="none"/></fill><fill><patternFill patternType="gray125"/></fill></fills><borders count="1"><border><left/><right/><top/><bottom/><diagonal/></border></borders><cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs><cellXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/></cellXfs><cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles></styleSheet>)";
}

bool StyleBook::Read(std::string_view xml) {
  m_parts = XmlParts::Of(xml);
  const std::pair<const char*, List*> lists[] = {{"fills", &m_fills}, {"borders", &m_borders}, {"cellXfs", &m_styles}};
  for (const auto& [name, list] : lists) {
    const auto* child = m_parts.Find(name);
    if (!child) return false;
    list->xml = XmlParts::Of(child->whole);
    if (list->xml.children.empty()) return false;
  }
  return true;
}

void StyleBook::ReadLists() {
  if (const auto* colors = m_parts.Find("colors"))
    for (const auto& child : XmlParts::Of(colors->whole).children)
      if (child.name == "indexedColors")
        for (const auto& color : XmlParts::Of(child.whole).children)
          m_palette.push_back(Attribute(color.attributes, "rgb").value_or(""));
  std::map<int, std::string> codes;
  if (const auto* formats = m_parts.Find("numFmts"))
    for (const auto& format : XmlParts::Of(formats->whole).children)
      codes[NumberAttribute(format.attributes, "numFmtId", -1)] =
          Attribute(format.attributes, "formatCode").value_or("");
  const auto item = [](const List& list, int index) {
    const auto& items = list.xml.children;
    return index >= 0 && static_cast<std::size_t>(index) < items.size() ? &items[static_cast<std::size_t>(index)]
                                                                        : nullptr;
  };
  for (const auto& style : m_styles.xml.children) {
    CellFormat look;
    if (const auto* fill = item(m_fills, NumberAttribute(style.attributes, "fillId", 0)))
      look.interior = ReadFill(fill->whole);
    if (const auto* border = item(m_borders, NumberAttribute(style.attributes, "borderId", 0)))
      ReadBorder(border->whole, look);
    const int number = NumberAttribute(style.attributes, "numFmtId", 0);
    const auto code = codes.find(number);
    m_dates.push_back(IsDateFormat(number, code == codes.end() ? "" : code->second));
    look.fileStyle = m_looks.empty() ? -1 : static_cast<int>(m_looks.size());
    m_looks.push_back(look);
  }
}

// The palette's index of a colour element, automatic for one outside of it.
int StyleBook::Color(std::string_view attributes) const {
  const int indexed = NumberAttribute(attributes, "indexed", -1);
  if (indexed >= 0 && static_cast<std::size_t>(indexed) < m_palette.size())
    return PaletteIndex(m_palette[static_cast<std::size_t>(indexed)]).value_or(kAutomatic);
  if (indexed >= 0 && indexed <= kLastColor) return indexed < kFirstColors ? indexed + 1 : indexed - kPaletteShift;
  return PaletteIndex(Attribute(attributes, "rgb").value_or("")).value_or(kAutomatic);
}

int StyleBook::ReadFill(const std::string& xml) const {
  bool solid = false;
  for (XmlReader reader(xml); reader.Next() != XmlReader::Kind::End;) {
    if (reader.kind() != XmlReader::Kind::Open) continue;
    if (reader.Name() == "patternFill") solid = Attribute(reader.Attributes(), "patternType") == "solid";
    const int color = reader.Name() == "fgColor" && solid ? Color(reader.Attributes()) : kAutomatic;
    if (color != kAutomatic) return color;
  }
  return kNone;
}

void StyleBook::ReadBorder(const std::string& xml, CellFormat& look) const {
  const XmlParts border = XmlParts::Of(xml);
  for (const auto& child : border.children) {
    BorderLine line = LineOfName(Attribute(child.attributes, "style").value_or(""));
    if (line.style == kNone) continue;
    for (const auto& color : XmlParts::Of(child.whole).children) line.colorIndex = Color(color.attributes);
    for (const auto& side : kSides)
      if (side.name == child.name) look.borders[side.place] = line;
    if (child.name != "diagonal") continue;
    if (IsTrue(border.rootAttributes, "diagonalDown")) look.borders[kDown] = line;
    if (IsTrue(border.rootAttributes, "diagonalUp")) look.borders[kUp] = line;
  }
}

CellFormat StyleBook::LookOf(int style) const {
  return style >= 0 && static_cast<std::size_t>(style) < m_looks.size() ? m_looks[static_cast<std::size_t>(style)]
                                                                        : m_looks.front();
}

bool StyleBook::ShowsDates(int style) const {
  return style >= 0 && static_cast<std::size_t>(style) < m_dates.size() && m_dates[static_cast<std::size_t>(style)];
}

int StyleBook::StyleFor(const CellFormat& look, bool date) {
  const int base = look.fileStyle > 0 && static_cast<std::size_t>(look.fileStyle) < m_looks.size() ? look.fileStyle : 0;
  const CellFormat held = m_looks[static_cast<std::size_t>(base)];
  const bool sameBorders = std::equal(std::begin(held.borders), std::end(held.borders), std::begin(look.borders));
  if (sameBorders && held.interior == look.interior && (!date || ShowsDates(base))) return base;
  for (const auto& [key, style] : m_made)
    if (key.first == look && key.second == date) return style;
  const auto& from = m_styles.xml.children[static_cast<std::size_t>(base)];
  std::string attributes = from.attributes;
  const auto set = [&](const char* name, int value) {
    attributes = WithAttribute(attributes, name, std::to_string(value));
  };
  if (!sameBorders) set("borderId", Add(m_borders, BorderText(look))), set("applyBorder", 1);
  if (held.interior != look.interior) set("fillId", Add(m_fills, FillText(look.interior))), set("applyFill", 1);
  if (date && !ShowsDates(base)) set("numFmtId", kShortDate), set("applyNumberFormat", 1);
  const int made = Add(m_styles, WithAttributes(from.whole, attributes));
  m_made.push_back({{look, date}, made});
  return made;
}

int StyleBook::Add(List& list, std::string item) {
  auto& items = list.xml.children;
  for (std::size_t i = 0; i < items.size(); ++i)
    if (items[i].whole == item && &list != &m_styles) return static_cast<int>(i);
  items.push_back({{}, {}, {}, std::move(item)});
  return static_cast<int>(items.size()) - 1;
}

std::string StyleBook::BorderText(const CellFormat& look) const {
  const std::string& p = m_parts.prefix;
  const auto element = [&](std::string_view name, const BorderLine& line) {
    const std::string tag = p + std::string(name);
    if (line.style == kNone) return "<" + tag + "/>";
    const std::string color = line.colorIndex == kAutomatic
                                  ? "auto=\"1\""
                                  : "indexed=\"" + std::to_string(line.colorIndex + kPaletteShift) + "\"";
    return "<" + tag + " style=\"" + std::string(NameOfLine(line)) + "\"><" + p + "color " + color + "/></" + tag + ">";
  };
  const bool down = look.borders[kDown].style != kNone, up = look.borders[kUp].style != kNone;
  std::string text = "<" + p + "border" + (up ? " diagonalUp=\"1\"" : "") + (down ? " diagonalDown=\"1\"" : "") + ">";
  for (const auto& side : kSides) text += element(side.name, look.borders[side.place]);
  return text + element("diagonal", look.borders[down ? kDown : kUp]) + "</" + p + "border>";
}

std::string StyleBook::FillText(int color) const {
  const std::string& p = m_parts.prefix;
  const std::string open = "<" + p + "fill><" + p + "patternFill patternType=\"";
  if (color == kNone) return open + "none\"/></" + p + "fill>";
  return open + "solid\"><" + p + "fgColor indexed=\"" + std::to_string(color + kPaletteShift) + "\"/><" + p +
         "bgColor indexed=\"64\"/></" + p + "patternFill></" + p + "fill>";
}

std::string StyleBook::List::Text() const {
  XmlParts counted = xml;
  counted.rootAttributes = WithAttribute(xml.rootAttributes, "count", std::to_string(xml.children.size()));
  return counted.Text();
}

std::string StyleBook::Text() const {
  XmlParts parts = m_parts;
  parts.Find("fills")->whole = m_fills.Text();
  parts.Find("borders")->whole = m_borders.Text();
  parts.Find("cellXfs")->whole = m_styles.Text();
  return parts.Text();
}

}  // namespace pellora::workbook
