// The one place in which the identifiers of the description become data: the second header changes what the third one's
// identifiers mean.
// clang-format off
#include "platform/windows/Windows.h"
#include <initguid.h>
#include "Pellora_idl.h"
// clang-format on
