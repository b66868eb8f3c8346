#include "platform/libreoffice/uno/SheetParts.h"

#include <algorithm>

namespace pellora::libreoffice {
namespace {

constexpr std::size_t kMostLetters = 3;

// The pieces between separators that stand outside of apostrophes; nothing when one is open at the end.
std::optional<std::vector<std::string>> Pieces(std::string_view text) {
  std::vector<std::string> pieces(1);
  bool quoted = false;
  for (const char c : text) {
    if (c == '\'') quoted = !quoted;
    if (!quoted && (c == ',' || c == ':'))
      pieces.emplace_back();
    else
      pieces.back() += c;
  }
  if (quoted) return std::nullopt;
  return pieces;
}

std::size_t LastOutsideQuotes(std::string_view text, char wanted) {
  bool quoted = false;
  std::size_t last = std::string_view::npos;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\'') quoted = !quoted;
    if (!quoted && text[i] == wanted) last = i;
  }
  return last;
}

// Blanks may stand before an address, not between its parts.
std::string_view WithoutBlanksBefore(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  return text;
}

std::string Unquoted(std::string_view name) {
  if (name.size() < 2 || name.front() != '\'' || name.back() != '\'') return std::string(name);
  std::string plain;
  name = name.substr(1, name.size() - 2);
  for (std::size_t i = 0; i < name.size(); ++i) {
    plain += name[i];
    if (name[i] == '\'' && i + 1 < name.size() && name[i + 1] == '\'') ++i;
  }
  return plain;
}

SheetPart PartOf(std::string_view piece) {
  SheetPart part;
  const std::size_t mark = LastOutsideQuotes(piece, '!');
  part.local = piece.substr(mark == std::string_view::npos ? 0 : mark + 1);
  if (mark == std::string_view::npos) return part;
  std::string sheet = Unquoted(WithoutBlanksBefore(piece.substr(0, mark)));
  const std::size_t close = sheet.find(']');
  if (sheet.starts_with('[') && close != std::string::npos) {
    part.book = sheet.substr(1, close - 1);
    sheet.erase(0, close + 1);
  }
  part.sheet = sheet;
  return part;
}

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsPlainReference(std::string_view text) {
  std::size_t letters = 0, digits = 0;
  if (text.starts_with('$')) text.remove_prefix(1);
  while (!text.empty() && IsLetter(text.front())) text.remove_prefix(1), ++letters;
  if (letters > 0 && text.starts_with('$')) text.remove_prefix(1);
  while (!text.empty() && IsDigit(text.front())) text.remove_prefix(1), ++digits;
  return text.empty() && letters <= kMostLetters && letters + digits > 0;
}

}  // namespace

std::optional<std::vector<SheetPart>> SheetPartsOf(std::string_view address) {
  const auto pieces = Pieces(address);
  if (!pieces) return std::nullopt;
  std::vector<SheetPart> parts;
  for (const auto& piece : *pieces) parts.push_back(PartOf(piece));
  return parts;
}

bool IsPlainAddress(std::string_view address) {
  if (address.find('\'') != std::string_view::npos) return false;
  // A name of a few letters alone is a name; a column has its colon.
  const bool several = address.find(':') != std::string_view::npos;
  const auto pieces = Pieces(address);
  return pieces && std::all_of(pieces->begin(), pieces->end(), [&](const std::string& piece) {
           return IsPlainReference(piece) && (several || std::any_of(piece.begin(), piece.end(), IsDigit));
         });
}

}  // namespace pellora::libreoffice
