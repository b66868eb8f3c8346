#include "core/Text.h"

#include <algorithm>

#include "core/TextServices.h"

namespace pellora {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t point) {
  if (point < 0x80) {
    out += static_cast<char>(point);
  } else if (point < 0x800) {
    out += static_cast<char>(0xC0 | (point >> 6));
    out += static_cast<char>(0x80 | (point & 0x3F));
  } else if (point < 0x10000) {
    out += static_cast<char>(0xE0 | (point >> 12));
    out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (point & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (point >> 18));
    out += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (point & 0x3F));
  }
}

void AppendUtf16(std::u16string& out, char32_t point) {
  if (point < 0x10000) {
    out += static_cast<char16_t>(point);
  } else {
    out += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
    out += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
  }
}

// The code point at `position`, which moves past it.
char32_t NextPoint(std::string_view text, std::size_t& position) {
  const auto lead = static_cast<unsigned char>(text[position++]);
  if (lead < 0x80) return lead;
  const int more = lead >= 0xF0 && lead < 0xF5   ? 3
                   : lead >= 0xE0 && lead < 0xF0 ? 2
                   : lead >= 0xC2 && lead < 0xE0 ? 1
                                                 : 0;
  if (more == 0) return kReplacement;
  char32_t point = lead & (0x3F >> more);
  for (int i = 0; i < more; ++i) {
    if (position >= text.size() || (static_cast<unsigned char>(text[position]) & 0xC0) != 0x80) return kReplacement;
    point = (point << 6) | (static_cast<unsigned char>(text[position++]) & 0x3F);
  }
  const bool overlong = (more == 2 && point < 0x800) || (more == 3 && point < 0x10000);
  const bool surrogate = point >= 0xD800 && point < 0xE000;
  return overlong || surrogate || point > 0x10FFFF ? kReplacement : point;
}

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::u16string ToUtf16(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) AppendUtf16(out, NextPoint(text, position));
  return out;
}

std::string ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    const bool high = point >= 0xD800 && point < 0xDC00;
    const bool pair = high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
    if (pair)
      point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00);
    else if (point >= 0xD800 && point < 0xE000)
      point = kReplacement;
    AppendUtf8(out, point);
  }
  return out;
}

bool EqualAsciiNoCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return AsciiLower(a) == AsciiLower(b); });
}

bool EqualNoCase(std::string_view left, std::string_view right) {
  if (left == right || EqualAsciiNoCase(left, right)) return true;
  if (IsAscii(left) && IsAscii(right)) return false;
  return CurrentTextServices().Upper(left) == CurrentTextServices().Upper(right);
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string> pieces;
  if (text.empty()) return pieces;
  for (std::size_t start = 0;;) {
    const std::size_t end = separator.empty() ? std::string_view::npos : text.find(separator, start);
    pieces.emplace_back(text.substr(start, end == std::string_view::npos ? end : end - start));
    if (end == std::string_view::npos) return pieces;
    start = end + separator.size();
  }
}

std::string Join(const std::vector<std::string>& pieces, std::string_view separator) {
  std::string joined;
  for (const auto& piece : pieces) {
    if (&piece != &pieces.front()) joined += separator;
    joined += piece;
  }
  return joined;
}

std::string Replace(std::string_view text, std::string_view find, std::string_view replacement) {
  std::string result;
  for (std::size_t start = 0;;) {
    const std::size_t hit = find.empty() ? std::string_view::npos : text.find(find, start);
    result += text.substr(start, hit == std::string_view::npos ? hit : hit - start);
    if (hit == std::string_view::npos) return result;
    result += replacement;
    start = hit + find.size();
  }
}

std::size_t Find(std::string_view text, std::string_view find) { return text.find(find); }

}  // namespace pellora
