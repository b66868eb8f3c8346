#pragma once

#include <rtl/ustring.hxx>
#include <string_view>

namespace pellora::libreoffice {

/// A caption as the toolkit's windows want it: tildes doubled, and one before the first occurrence of the access key,
/// letter case apart. A caption without that letter gets it appended in brackets. `accessKey` may be 0.
rtl::OUString NativeCaption(std::string_view caption, char accessKey);

}  // namespace pellora::libreoffice
