#pragma once

#include "platform/windows/Windows.h"

namespace pellora::windows::test {

/// What this process holds of the system. Wine answers none of the system's own questions for these numbers, so they
/// are counted by looking at everything. A number that could not be counted is 0.
struct Counts {
  /// The kernel's handles.
  DWORD handles = 0;
  /// Pens, brushes, fonts, bitmaps, device contexts.
  DWORD gdi = 0;
  /// Windows and menus, icons and pointers.
  DWORD user = 0;
  /// The window classes that the program can use.
  int classes = 0;
  /// The memory that is this process's alone.
  SIZE_T bytes = 0;
};

Counts CountAll();

/// The kernel's handles alone.
DWORD CountHandles();

/// The window classes that a module can use: its own and those registered for everybody in the process.
int CountClasses(HMODULE module);

}  // namespace pellora::windows::test
