// The one place in which the identifiers of the description become data.
#include "platform/windows/Windows.h"
// clang-format off: it changes what the next header's identifiers mean
#include <initguid.h>
// clang-format on
#include "Pellora_idl.h"
