#pragma once

#include <string>

#include "core/Calendar.h"

namespace pellora {

/// The month after that of `today` as four digits of the year and two of the month: "200801" for any day of December
/// 2007.
std::string NextMonth(CalendarDate today);

}  // namespace pellora
