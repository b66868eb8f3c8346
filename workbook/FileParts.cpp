#include "workbook/FileParts.h"

#include <algorithm>
#include <charconv>

#include "core/Text.h"

namespace pellora::workbook {
namespace {

// The code point of "_x0041_" at the beginning of a text, -1 for none.
int EscapedUnit(std::string_view text) {
  constexpr std::size_t kLength = 7;
  if (text.size() < kLength || text[0] != '_' || text[1] != 'x' || text[6] != '_') return -1;
  int unit = 0;
  const char* const end = text.data() + 6;
  return std::from_chars(text.data() + 2, end, unit, 16).ptr == end ? unit : -1;
}

void AppendEscaped(std::u16string& out, char16_t unit) {
  constexpr std::u16string_view digits = u"0123456789ABCDEF";
  out += u"_x";
  for (int shift = 12; shift >= 0; shift -= 4) out += digits[unit >> shift & 0xF];
  out += u'_';
}

}  // namespace

ZipEntry* Document::FileParts::Find(std::string_view path) {
  // Names of parts compare without regard to letter case.
  const auto hit = std::find_if(entries.begin(), entries.end(),
                                [&](const ZipEntry& entry) { return EqualAsciiNoCase(entry.name, path); });
  return hit == entries.end() ? nullptr : &*hit;
}

std::string RelationsPath(std::string_view path) {
  const auto slash = path.find_last_of('/');
  const std::string_view folder = slash == std::string_view::npos ? "" : path.substr(0, slash + 1);
  return std::string(folder) + "_rels/" + std::string(path.substr(folder.size())) + ".rels";
}

std::string TargetPath(std::string_view source, std::string_view target) {
  if (target.starts_with('/')) return std::string(target.substr(1));
  const auto slash = source.find_last_of('/');
  std::string folder(slash == std::string_view::npos ? "" : source.substr(0, slash + 1));
  while (target.starts_with("./") || target.starts_with("../")) {
    const bool up = target.starts_with("../");
    target.remove_prefix(up ? 3 : 2);
    if (up && !folder.empty()) folder.resize(folder.find_last_of('/', folder.size() - 2) + 1);
  }
  return folder + std::string(target);
}

std::string DecodedCellText(std::string_view text) {
  if (text.find("_x") == std::string_view::npos) return std::string(text);
  std::u16string out;
  for (std::size_t at = 0; at < text.size();) {
    const int unit = EscapedUnit(text.substr(at));
    if (unit >= 0) {
      out += static_cast<char16_t>(unit);
      at += 7;
      continue;
    }
    const std::size_t next = std::min(text.find('_', at + 1), text.size());
    out += ToUtf16(text.substr(at, next - at));
    at = next;
  }
  return ToUtf8(out);
}

std::string EncodedCellText(std::string_view text) {
  const std::u16string units = ToUtf16(text);
  std::u16string out;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const char16_t unit = units[i];
    const bool control = (unit < 0x20 && unit != u'\t' && unit != u'\n') || unit == 0xFFFE || unit == 0xFFFF;
    const bool looksEscaped = unit == u'_' && EscapedUnit(ToUtf8(std::u16string_view(units).substr(i, 7))) >= 0;
    if (control || looksEscaped)
      AppendEscaped(out, unit);
    else
      out += unit;
  }
  return ToUtf8(out);
}

}  // namespace pellora::workbook
