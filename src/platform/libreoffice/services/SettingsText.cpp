#include "platform/libreoffice/services/SettingsText.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "core/Text.h"

namespace pellora::libreoffice {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kAroundNames = " \t\r";
constexpr std::string_view kWelcome =
    "# Settings, one a line: keys in brackets, their values below. Texts are in quotes, where %0A is a line break.";

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(kAroundNames);
  return first == std::string_view::npos ? std::string_view()
                                         : text.substr(first, text.find_last_not_of(kAroundNames) - first + 1);
}

std::string Encode(std::string_view text) {
  const bool wellFormed = ToUtf8(ToUtf16(text)) == text;
  std::string encoded;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = byte >= 0x20 && byte != 0x7F && c != '"' && c != '%' && (byte < 0x80 || wellFormed);
    char escape[4];
    std::snprintf(escape, sizeof escape, "%%%02X", byte);
    encoded.append(plain ? std::string_view(&c, 1) : std::string_view(escape));
  }
  return encoded;
}

std::string Decode(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned byte = 0;
    const char* const digits = text.data() + i + 1;
    if (text[i] == '%' && i + 2 < text.size() && std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      decoded += static_cast<char>(byte);
      i += 2;
    } else {
      decoded += text[i];
    }
  }
  return decoded;
}

std::string RootName(std::int32_t root) {
  if (root == kCurrentUser) return "CurrentUser";
  if (root == kLocalMachine) return "LocalMachine";
  char number[16];
  std::snprintf(number, sizeof number, "0x%08X", static_cast<std::uint32_t>(root));
  return number;
}

std::optional<std::int32_t> ReadRoot(std::string_view name) {
  for (const std::int32_t root : {kCurrentUser, kLocalMachine})
    if (EqualAsciiNoCase(name, RootName(root))) return root;
  if (!EqualAsciiNoCase(name.substr(0, 2), "0x")) return std::nullopt;
  std::uint32_t number = 0;
  const auto [end, fault] = std::from_chars(name.data() + 2, name.data() + name.size(), number, 16);
  if (fault != std::errc() || end != name.data() + name.size()) return std::nullopt;
  return static_cast<std::int32_t>(number);
}

std::string KeyLine(std::int32_t root, std::string_view path) {
  return "[" + RootName(root) + (path.empty() ? "" : "\\") + Encode(path) + "]";
}

std::string ValueLine(std::string_view name, const RegistryValue& value) {
  std::string line = "\"" + Encode(name) + "\" = ";
  if (const auto* text = std::get_if<std::string>(&value)) return line + "\"" + Encode(*text) + "\"";
  if (const auto* number = std::get_if<std::int32_t>(&value)) return line + std::to_string(*number);
  return line + "?";
}

bool IsQuoted(std::string_view text) { return text.size() >= 2 && text.find('"', 1) == text.size() - 1; }

RegistryValue ReadData(std::string_view data) {
  if (data.starts_with('"') && IsQuoted(data)) return Decode(data.substr(1, data.size() - 2));
  std::int32_t number = 0;
  const auto [end, fault] = std::from_chars(data.data(), data.data() + data.size(), number);
  if (!data.empty() && fault == std::errc() && end == data.data() + data.size()) return number;
  return RegistryUnknown{};
}

/// True for a key somewhere below another.
bool IsBelow(std::string_view path, std::string_view above) {
  if (above.empty()) return !path.empty();
  return path.size() > above.size() && path[above.size()] == '\\' && EqualNoCase(path.substr(0, above.size()), above);
}

}  // namespace

bool SettingsText::Line::IsIn(std::int32_t root, std::string_view path) const {
  return key && key->root == root && EqualNoCase(key->path, path);
}

SettingsText::SettingsText(std::string_view content) {
  while (!content.empty()) {
    const auto end = std::min(content.find('\n'), content.size());
    Append(content.substr(0, end));
    content.remove_prefix(std::min(end + 1, content.size()));
  }
  m_changed = false;
}

std::string SettingsText::Content() const {
  std::string content;
  for (const auto& line : m_lines) content.append(line.raw).append("\n");
  return content;
}

std::optional<RegistryValue> SettingsText::Value(std::int32_t root, std::string_view path,
                                                 std::string_view name) const {
  const auto found = FindValue(root, path, name);
  return found < m_lines.size() ? std::optional(m_lines[found].value) : std::nullopt;
}

std::vector<std::string> SettingsText::Names(std::int32_t root, std::string_view path) const {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < m_lines.size(); ++i)
    if (m_lines[i].kind == Kind::Value && m_lines[i].IsIn(root, path) && FindValue(root, path, m_lines[i].name) == i)
      names.push_back(m_lines[i].name);
  return names;
}

bool SettingsText::HasKey(std::int32_t root, std::string_view path) const {
  return std::any_of(m_lines.begin(), m_lines.end(), [&](const Line& line) { return line.IsIn(root, path); }) ||
         HasKeysBelow(root, path);
}

bool SettingsText::HasKeysBelow(std::int32_t root, std::string_view path) const {
  return std::any_of(m_lines.begin(), m_lines.end(), [&](const Line& line) {
    return line.kind == Kind::Key && line.key && line.key->root == root && IsBelow(line.key->path, path);
  });
}

void SettingsText::SetValue(std::int32_t root, std::string_view path, std::string_view name,
                            const RegistryValue& value) {
  const auto found = FindValue(root, path, name);
  if (found < m_lines.size()) {
    auto& line = m_lines[found];
    if (line.value == value) return;
    line = Understand(ValueLine(line.name, value), line.key);
  } else {
    if (EndOfKey(root, path) == 0) AppendKey(root, path);
    const auto at = EndOfKey(root, path);
    const auto key = m_lines[at - 1].key;
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(at), Understand(ValueLine(name, value), key));
  }
  m_changed = true;
}

void SettingsText::DeleteKey(std::int32_t root, std::string_view path) {
  std::erase_if(m_lines, [&](const Line& line) { return line.kind != Kind::Kept && line.IsIn(root, path); });
  m_changed = true;
  const auto slash = path.rfind('\\');
  const auto above = path.substr(0, slash == std::string_view::npos ? 0 : slash);
  if (!above.empty() && !HasKey(root, above)) AppendKey(root, above);
}

SettingsText::Line SettingsText::Understand(std::string_view raw, const std::shared_ptr<const Key>& key) {
  Line line{Kind::Kept, std::string(raw), key, {}, {}};
  const auto item = Trim(raw.starts_with(kByteOrderMark) ? raw.substr(kByteOrderMark.size()) : raw);
  if (item.empty()) {
    line.kind = Kind::Empty;
  } else if (item.starts_with('[')) {
    line.key = ReadKey(item);
    line.kind = line.key ? Kind::Key : Kind::Kept;
  } else if (key && ReadValue(item, line)) {
    line.kind = Kind::Value;
  }
  return line;
}

std::shared_ptr<const SettingsText::Key> SettingsText::ReadKey(std::string_view item) {
  if (!item.ends_with(']')) return nullptr;
  const auto inside = item.substr(1, item.size() - 2);
  const auto slash = std::min(inside.find('\\'), inside.size());
  const auto root = ReadRoot(inside.substr(0, slash));
  if (!root) return nullptr;
  return std::make_shared<const Key>(Key{*root, Decode(inside.substr(std::min(slash + 1, inside.size())))});
}

bool SettingsText::ReadValue(std::string_view item, Line& line) {
  const auto quote = item.starts_with('"') ? item.find('"', 1) : std::string_view::npos;
  if (quote == std::string_view::npos) return false;
  const auto rest = Trim(item.substr(quote + 1));
  if (!rest.starts_with('=')) return false;
  line.name = Decode(item.substr(1, quote - 1));
  line.value = ReadData(Trim(rest.substr(1)));
  return true;
}

std::size_t SettingsText::FindValue(std::int32_t root, std::string_view path, std::string_view name) const {
  const auto found = std::find_if(m_lines.begin(), m_lines.end(), [&](const Line& line) {
    return line.kind == Kind::Value && EqualNoCase(line.name, name) && line.IsIn(root, path);
  });
  return static_cast<std::size_t>(found - m_lines.begin());
}

// After the key's last value, so that values stand in the order of writing; 0 when the key has no line.
std::size_t SettingsText::EndOfKey(std::int32_t root, std::string_view path) const {
  for (std::size_t i = m_lines.size(); i > 0; --i) {
    const auto& line = m_lines[i - 1];
    if ((line.kind == Kind::Key || line.kind == Kind::Value) && line.IsIn(root, path)) return i;
  }
  return 0;
}

void SettingsText::AppendKey(std::int32_t root, std::string_view path) {
  if (m_lines.empty()) Append(kWelcome);
  if (m_lines.back().kind != Kind::Empty) Append("");
  Append(KeyLine(root, path));
}

void SettingsText::Append(std::string_view raw) {
  m_lines.push_back(Understand(raw, m_lines.empty() ? nullptr : m_lines.back().key));
  m_changed = true;
}

}  // namespace pellora::libreoffice
