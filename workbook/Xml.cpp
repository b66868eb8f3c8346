#include "workbook/Xml.h"

#include <algorithm>
#include <charconv>

#include "core/Text.h"
#include "workbook/Refusal.h"

namespace pellora::workbook {
namespace {

constexpr std::size_t kDeepest = 256;

[[noreturn]] void RefuseXml() { Refuse("A part of the file is not well-formed"); }

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool EndsName(char c) { return IsBlank(c) || c == '/' || c == '>' || c == '=' || c == '<' || c == '"' || c == '\''; }

void AppendPoint(std::string& out, unsigned long point) {
  if (point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) point = 0xFFFD;
  std::u16string units;
  if (point >= 0x10000) {
    units += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
    units += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
  } else {
    units += static_cast<char16_t>(point);
  }
  out += ToUtf8(units);
}

// What a reference without its "&" and ";" stands for.
void AppendReference(std::string& out, std::string_view name) {
  constexpr std::pair<std::string_view, char> known[] = {
      {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
  for (const auto& [word, c] : known)
    if (word == name) {
      out += c;
      return;
    }
  if (name.size() < 2 || name[0] != '#') RefuseXml();
  const bool hex = name[1] == 'x';
  const std::string_view digits = name.substr(hex ? 2 : 1);
  unsigned long point = 0;
  const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), point, hex ? 16 : 10);
  if (fault != std::errc{} || end != digits.data() + digits.size()) RefuseXml();
  AppendPoint(out, point);
}

std::string Unescaped(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const std::size_t mark = std::min(text.find('&'), text.size());
    out += text.substr(0, mark);
    text.remove_prefix(mark);
    if (text.empty()) break;
    const std::size_t end = text.find(';');
    if (end == std::string_view::npos) RefuseXml();
    AppendReference(out, text.substr(1, end - 1));
    text.remove_prefix(end + 1);
  }
  return out;
}

struct AttributeSpot {
  std::string_view name, value;
  std::size_t begin = 0, end = 0;
};

// The attribute at or behind `at`, which moves past it; false at the end.
bool NextAttribute(std::string_view text, std::size_t& at, AttributeSpot& spot) {
  const auto skipBlanks = [&] {
    while (at < text.size() && IsBlank(text[at])) ++at;
  };
  skipBlanks();
  if (at >= text.size() || text[at] == '/') return false;
  spot.begin = at;
  while (at < text.size() && !EndsName(text[at])) ++at;
  spot.name = text.substr(spot.begin, at - spot.begin);
  skipBlanks();
  if (spot.name.empty() || at >= text.size() || text[at] != '=') RefuseXml();
  ++at;
  skipBlanks();
  if (at >= text.size() || (text[at] != '"' && text[at] != '\'')) RefuseXml();
  const std::size_t close = text.find(text[at], at + 1);
  if (close == std::string_view::npos) RefuseXml();
  spot.value = text.substr(at + 1, close - at - 1);
  spot.end = at = close + 1;
  return true;
}

std::string_view BehindPrefix(std::string_view name) {
  const auto colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

}  // namespace

XmlReader::XmlReader(std::string_view xml) : m_xml(xml) {
  if (m_xml.starts_with("\xEF\xBB\xBF")) m_at = 3;
  if (m_xml.starts_with("\xFF\xFE") || m_xml.starts_with("\xFE\xFF") || m_xml.find('\0') != std::string_view::npos)
    Refuse("A part of the file is not in UTF-8");
}

XmlReader::Kind XmlReader::Next() {
  if (m_selfClosed) {
    m_selfClosed = false;
    m_begin = m_at;
    m_open.pop_back();
    return m_kind = Kind::Close;
  }
  while (m_at < m_xml.size()) {
    m_begin = m_at;
    if (m_xml[m_at] != '<') return m_kind = ReadText();
    if (m_xml.substr(m_at).starts_with("<![CDATA[")) return m_kind = ReadText();
    if (!SkipMarkup()) return m_kind = ReadTag();
  }
  if (!m_open.empty()) RefuseXml();
  m_begin = m_at;
  return m_kind = Kind::End;
}

void XmlReader::SkipTo(std::string_view mark) {
  const std::size_t end = m_xml.find(mark, m_at);
  if (end == std::string_view::npos) RefuseXml();
  m_at = end + mark.size();
}

// Comments and processing instructions.
bool XmlReader::SkipMarkup() {
  const std::string_view rest = m_xml.substr(m_at);
  if (rest.starts_with("<?")) return SkipTo("?>"), true;
  if (rest.starts_with("<!--")) return SkipTo("-->"), true;
  if (rest.starts_with("<!")) RefuseXml();
  return false;
}

XmlReader::Kind XmlReader::ReadText() {
  constexpr std::string_view open = "<![CDATA[", close = "]]>";
  m_plainText = m_xml[m_at] != '<';
  if (m_plainText) {
    m_at = std::min(m_xml.find('<', m_at), m_xml.size());
    m_text = m_xml.substr(m_begin, m_at - m_begin);
  } else {
    SkipTo(close);
    m_text = m_xml.substr(m_begin + open.size(), m_at - m_begin - open.size() - close.size());
  }
  return Kind::Text;
}

XmlReader::Kind XmlReader::ReadTag() {
  const bool closing = m_xml.substr(m_at).starts_with("</");
  std::size_t at = m_at + (closing ? 2 : 1);
  const std::size_t nameBegin = at;
  while (at < m_xml.size() && !EndsName(m_xml[at])) ++at;
  const std::string_view full = m_xml.substr(nameBegin, at - nameBegin);
  const std::size_t attributesBegin = at;
  // The end of the tag, outside of quotes.
  for (char quote = 0; at < m_xml.size() && (quote || m_xml[at] != '>'); ++at) {
    if (quote)
      quote = m_xml[at] == quote ? 0 : quote;
    else if (m_xml[at] == '"' || m_xml[at] == '\'')
      quote = m_xml[at];
    else if (m_xml[at] == '<')
      RefuseXml();
  }
  if (full.empty() || at >= m_xml.size()) RefuseXml();
  m_at = at + 1;
  m_name = BehindPrefix(full);
  m_prefix = full.substr(0, full.size() - m_name.size());
  if (closing) {
    if (m_open.empty() || m_open.back() != full) RefuseXml();
    m_open.pop_back();
    return Kind::Close;
  }
  m_attributes = m_xml.substr(attributesBegin, at - attributesBegin);
  m_selfClosed = m_attributes.ends_with('/');
  if (m_selfClosed) m_attributes.remove_suffix(1);
  if (m_open.size() >= kDeepest) RefuseXml();
  m_open.push_back(full);
  return Kind::Open;
}

std::string XmlReader::Text() const { return m_plainText ? Unescaped(m_text) : std::string(m_text); }

std::string_view XmlReader::Whole() {
  const std::size_t begin = m_begin, depth = m_open.size();
  while (Next() != Kind::End && m_open.size() >= depth) continue;
  return m_xml.substr(begin, m_at - begin);
}

std::string XmlReader::InnerText() {
  std::string text;
  for (const std::size_t depth = m_open.size(); Next() != Kind::End && m_open.size() >= depth;)
    if (m_kind == Kind::Text) text += Text();
  return text;
}

std::optional<std::string> Attribute(std::string_view attributes, std::string_view name) {
  AttributeSpot spot;
  for (std::size_t at = 0; NextAttribute(attributes, at, spot);)
    if (spot.name == name) return Unescaped(spot.value);
  return std::nullopt;
}

std::optional<std::string> PrefixedAttribute(std::string_view attributes, std::string_view name) {
  AttributeSpot spot;
  for (std::size_t at = 0; NextAttribute(attributes, at, spot);)
    if (spot.name != name && BehindPrefix(spot.name) == name) return Unescaped(spot.value);
  return std::nullopt;
}

int NumberAttribute(std::string_view attributes, std::string_view name, int otherwise) {
  const auto text = Attribute(attributes, name);
  int number = otherwise;
  if (!text) return otherwise;
  const auto [end, fault] = std::from_chars(text->data(), text->data() + text->size(), number);
  return fault == std::errc{} && end == text->data() + text->size() ? number : otherwise;
}

std::string WithAttribute(std::string_view attributes, std::string_view name, std::optional<std::string> value) {
  const std::string text = value ? " " + std::string(name) + "=\"" + XmlEscaped(*value) + "\"" : "";
  AttributeSpot spot;
  for (std::size_t at = 0; NextAttribute(attributes, at, spot);) {
    if (spot.name != name) continue;
    std::string_view before = attributes.substr(0, spot.begin);
    while (!before.empty() && IsBlank(before.back())) before.remove_suffix(1);
    return std::string(before) + text + std::string(attributes.substr(spot.end));
  }
  return std::string(attributes) + text;
}

XmlParts XmlParts::Of(std::string_view xml) {
  XmlParts parts;
  XmlReader reader(xml);
  while (reader.Next() == XmlReader::Kind::Text) continue;
  if (reader.kind() != XmlReader::Kind::Open) RefuseXml();
  parts.head = xml.substr(0, reader.Begin());
  parts.prefix = reader.Prefix();
  parts.rootAttributes = reader.Attributes();
  const std::string root = parts.prefix + std::string(reader.Name());
  parts.head += "<" + root;
  while (reader.Next() != XmlReader::Kind::Close || reader.Depth() > 0) {
    if (reader.kind() == XmlReader::Kind::End) break;
    if (reader.kind() != XmlReader::Kind::Open) continue;
    Child child{std::string(reader.Name()), std::string(reader.Prefix()), std::string(reader.Attributes()), {}};
    child.whole = reader.Whole();
    parts.children.push_back(std::move(child));
  }
  parts.tail = "</" + root + ">";
  while (reader.Next() != XmlReader::Kind::End)
    if (reader.kind() != XmlReader::Kind::Text) RefuseXml();
  return parts;
}

XmlParts::Child* XmlParts::Find(std::string_view name) {
  const auto hit =
      std::find_if(children.begin(), children.end(), [&](const Child& child) { return child.name == name; });
  return hit == children.end() ? nullptr : &*hit;
}

std::string XmlParts::Text() const {
  std::string text = head + rootAttributes + ">";
  for (const Child& child : children) text += child.whole;
  return text + tail;
}

std::string XmlEscaped(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

}  // namespace pellora::workbook
