#include "platform/libreoffice/services/SystemClock.h"

#include <ctime>

#include "core/Calendar.h"

namespace pellora::libreoffice {

double SystemClock::Now() {
  // The zone may have changed since the program began, on a computer that travels.
  tzset();
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return DaysFromDate({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}) +
         DaysFromTime({local.tm_hour, local.tm_min, local.tm_sec});
}

}  // namespace pellora::libreoffice
