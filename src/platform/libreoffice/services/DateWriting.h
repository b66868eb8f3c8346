#pragma once

#include <string>
#include <string_view>

#include "core/Calendar.h"

namespace pellora::libreoffice {

/// A date or a time by a pattern as `LocaleFacts` describes them.
std::string WriteDate(CalendarDate date, std::string_view pattern);
std::string WriteTime(ClockTime time, std::string_view pattern, std::string_view am, std::string_view pm);

}  // namespace pellora::libreoffice
