#pragma once

#include "platform/windows/Windows.h"

namespace pellora::windows {

/// Keeps the text of an edit of one line, which the platform puts to its top, in the middle of its height whatever
/// height and font it gets: what is too much above and below becomes part of the edit's frame, in the edit's colour.
/// Lasts as long as the edit.
void CentreTextOf(HWND edit);

}  // namespace pellora::windows
