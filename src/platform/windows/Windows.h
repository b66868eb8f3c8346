#pragma once

/// The one way to the Win32 and automation headers: everything under this folder, and the Windows half of the embedded
/// workbook, includes this file and never the system's own. Nothing below this floor includes it.

#ifndef STRICT
#define STRICT
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

// clang-format off: the automation headers need the basic one first
#include <objbase.h>
#include <oleauto.h>
#include <shellapi.h>
#include <olectl.h>
#include <windows.h>
// clang-format on
