#pragma once

#include <optional>

#include "core/Dispatch.h"
#include "platform/windows/Windows.h"

namespace pellora::ole {

/// S_OK when the parameters of a late-bound call can be read at all: not null, an array where there is a count, names
/// no more than arguments. A dispatcher that skips this is crashed by two well-known inputs: null parameters, and one
/// named argument without an array.
HRESULT CheckShape(const DISPPARAMS* parameters) noexcept;

/// True when the one named argument, if any, is the value of a put.
bool NamesOnlyPutValue(const DISPPARAMS& parameters, WORD flags) noexcept;

/// How a member is used by those flags; nothing for flags that say none.
std::optional<CallKind> KindOf(WORD flags) noexcept;

}  // namespace pellora::ole
