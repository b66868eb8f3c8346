#include "platform/libreoffice/services/Links.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace pellora::libreoffice {
namespace {

constexpr std::string_view kMarksOfLinks = "-._~:/?#[]@!$&'()*+,;=";
constexpr std::string_view kMarksOfPaths = "-._~/";
constexpr std::string_view kMarksOfSchemes = "+-.";

// By the characters themselves: what counts as a letter here is no question of language.
bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

void AppendEscaped(std::string& link, char c) {
  std::array<char, 4> escape{};
  std::snprintf(escape.data(), escape.size(), "%%%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
  link += escape.data();
}

bool IsPlain(char c, std::string_view marks) {
  return IsLetter(c) || IsDigit(c) || marks.find(c) != std::string_view::npos;
}

}  // namespace

bool IsLink(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos || colon < 2 || !IsLetter(text.front())) return false;
  const auto scheme = text.substr(0, colon);
  return std::all_of(scheme.begin(), scheme.end(), [](char c) { return IsPlain(c, kMarksOfSchemes); });
}

std::string ProperLink(std::string_view link) {
  std::string proper;
  for (std::size_t i = 0; i < link.size(); ++i) {
    const bool escape = link[i] == '%' && i + 2 < link.size() && IsHexDigit(link[i + 1]) && IsHexDigit(link[i + 2]);
    if (escape || IsPlain(link[i], kMarksOfLinks))
      proper += link[i];
    else
      AppendEscaped(proper, link[i]);
  }
  return proper;
}

std::string FileLink(std::string_view path) {
  std::string link = "file://";
  for (const char c : path)
    if (IsPlain(c, kMarksOfPaths))
      link += c;
    else
      AppendEscaped(link, c);
  return link;
}

}  // namespace pellora::libreoffice
