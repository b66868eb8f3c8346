#pragma once

#include <string>
#include <string_view>

#include "platform/windows/Windows.h"

namespace pellora::windows {

/// UTF-8 to the platform's text and back.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

/// A window's whole text.
std::wstring TextOf(HWND window);

/// A caption as native controls want it: ampersands doubled, and one before the first occurrence of the access key,
/// letter case apart. A caption without that letter gets it appended in brackets. `accessKey` may be 0.
std::wstring NativeCaption(std::string_view caption, char accessKey);

}  // namespace pellora::windows
