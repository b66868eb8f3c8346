#pragma once

#include <rtl/ustring.hxx>
#include <string>
#include <string_view>

namespace pellora::libreoffice {

/// The library's texts are UTF-8, the office program's UTF-16. What is no text in the one becomes replacement
/// characters in the other; nothing raises.
rtl::OUString Wide(std::string_view text);
std::string Narrow(const rtl::OUString& text);

/// The name of a member with the letters A to Z in lower case, as the members are kept.
std::string LowerName(std::string_view name);

}  // namespace pellora::libreoffice
