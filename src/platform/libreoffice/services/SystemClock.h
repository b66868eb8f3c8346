#pragma once

#include "support/Platform.h"

namespace pellora::libreoffice {

/// The system's clock, in the local time zone, to the second.
class SystemClock : public Clock {
 public:
  double Now() override;
};

}  // namespace pellora::libreoffice
