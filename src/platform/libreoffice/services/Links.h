#pragma once

#include <string>
#include <string_view>

namespace pellora::libreoffice {

/// True for a text that begins with a scheme, as "mailto:" or "https:". One letter and a colon are a drive's name.
bool IsLink(std::string_view text);

/// A link as the desktop's programs take it: what may not stand in one (blanks, control characters, quotes, letters
/// beyond ASCII, a "%" that begins no escape) is escaped; everything else stays, escapes that are there included.
std::string ProperLink(std::string_view link);

/// The link of an absolute path.
std::string FileLink(std::string_view path);

}  // namespace pellora::libreoffice
