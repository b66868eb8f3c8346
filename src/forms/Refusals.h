#pragma once

#include <cstdint>

namespace pellora::errors {

/// Run-time error numbers with which controls and forms refuse, those of the form runtimes dialogs like these come
/// from. Their texts are in `StandardDescription`.
inline constexpr std::int32_t InvalidPropertyValue = 380;
inline constexpr std::int32_t InvalidPropertyIndex = 381;
inline constexpr std::int32_t PropertyReadOnly = 383;
inline constexpr std::int32_t FormAlreadyShown = 400;

}  // namespace pellora::errors
