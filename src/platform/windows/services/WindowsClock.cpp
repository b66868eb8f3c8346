#include "platform/windows/services/WindowsClock.h"

#include "platform/windows/Windows.h"

namespace pellora::windows {

double WindowsClock::Now() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  double days = 0;
  SystemTimeToVariantTime(&now, &days);
  return days;
}

}  // namespace pellora::windows
