#pragma once

#include "platform/windows/Windows.h"
#include "support/Platform.h"

namespace pellora::windows {

/// What a module says of itself in its version resource: the product's name and the first three parts of its version.
/// The defaults of `LibraryInfo` where it has none.
LibraryInfo ReadLibraryInfo(HINSTANCE module);

}  // namespace pellora::windows
