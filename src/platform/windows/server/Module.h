#pragma once

#include <string>

#include "platform/windows/Windows.h"

namespace pellora::windows {

/// This library's module, known from the moment it is loaded.
HINSTANCE ThisModule();
void ThisModule(HINSTANCE module);

/// The full path of its file.
std::wstring ModulePath();

}  // namespace pellora::windows
