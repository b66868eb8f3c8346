#pragma once

#include "support/Platform.h"

namespace pellora::windows {

/// The system's clock, in the local time zone.
class WindowsClock : public Clock {
 public:
  double Now() override;
};

}  // namespace pellora::windows
