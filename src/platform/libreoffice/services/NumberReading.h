#pragma once

#include <optional>
#include <string_view>

#include "platform/libreoffice/services/LocaleFacts.h"

namespace pellora::libreoffice {

/// The number that a text stands for by the facts of a locale, as `LocaleTextServices` describes; raises 6 (overflow)
/// for one that is too large.
std::optional<double> ReadNumber(std::string_view text, const LocaleFacts& facts);

}  // namespace pellora::libreoffice
