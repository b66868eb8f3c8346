#pragma once

#include "support/Platform.h"

namespace pellora::libreoffice {

/// Plain files, by the path as given: a bare name is one in the process's current directory. Others may read and
/// append to a log meanwhile; each record goes to the end in one piece. Nothing waits: a pipe is refused.
class PlainLogFiles : public LogFiles {
 public:
  bool Append(std::string_view path, std::string_view bytes) override;
  bool Delete(std::string_view path) override;
};

}  // namespace pellora::libreoffice
