#pragma once

#include <optional>
#include <string_view>

#include "platform/libreoffice/services/LocaleFacts.h"

namespace pellora::libreoffice {

/// The date, time or both that a text stands for by the facts of a locale, as `LocaleTextServices` describes: days
/// since 1899-12-30.
std::optional<double> ReadDate(std::string_view text, const LocaleFacts& facts);

}  // namespace pellora::libreoffice
