#pragma once

#include "support/Platform.h"

namespace pellora::windows {

/// The application event log.
class WindowsEventLog : public EventLog {
 public:
  bool WriteError(std::string_view source, std::string_view text) override;
  /// The system's version is asked with the extended record first and the basic one where that fails; false where
  /// both do.
  bool Available() override;
};

}  // namespace pellora::windows
