#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pellora {

/// Text helpers. All text is UTF-8; positions and lengths are bytes unless a comment says otherwise.

/// UTF-8 to UTF-16 and back. Ill-formed input becomes U+FFFD, never an error.
std::u16string ToUtf16(std::string_view text);
std::string ToUtf8(std::u16string_view text);

/// True when the texts are equal without regard to letter case, in every script (`TextServices::Upper`).
bool EqualNoCase(std::string_view left, std::string_view right);

/// True when the texts are equal without regard to the case of the letters A to Z: for member and control names.
bool EqualAsciiNoCase(std::string_view left, std::string_view right);

/// The pieces of `text` between every `separator`; one piece at least, except that an empty text has none.
std::vector<std::string> Split(std::string_view text, std::string_view separator);

/// The texts one after the other, `separator` between them.
std::string Join(const std::vector<std::string>& pieces, std::string_view separator);

/// `text` with every `find` replaced, from left to right, without looking at replacements again. An empty `find`
/// replaces nothing.
std::string Replace(std::string_view text, std::string_view find, std::string_view replacement);

/// Where `find` first stands in `text`, or `std::string_view::npos`.
std::size_t Find(std::string_view text, std::string_view find);

}  // namespace pellora
