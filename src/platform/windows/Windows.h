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

// The automation headers need the basic one first.
// clang-format off
#include <windows.h>
#include <objbase.h>
#include <oleauto.h>
#include <olectl.h>
#include <shellapi.h>
// clang-format on
