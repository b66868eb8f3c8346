#pragma once

#include "support/Platform.h"

namespace pellora::windows {

/// Plain files, by the path as given: a bare name is one in the process's current directory. Others may read a log
/// while it is written.
class WindowsLogFiles : public LogFiles {
 public:
  bool Append(std::string_view path, std::string_view bytes) override;
  bool Delete(std::string_view path) override;
};

}  // namespace pellora::windows
