#pragma once

#include <functional>
#include <string>

#include "support/Platform.h"

namespace pellora::libreoffice {

/// The system's log. An entry is an error of the user's program; its text is "source: text", in UTF-8, the lines of a
/// longer one apart by line feeds. The process's own settings of the log (its name there) are the host's and stay.
class SystemLog : public EventLog {
 public:
  /// Takes an entry's priority and text.
  using Writer = std::function<void(int priority, const std::string& text)>;
  /// `write` is where entries go: to syslog unless told otherwise.
  explicit SystemLog(Writer write = {});

  /// Always true: the system does not tell what becomes of an entry.
  bool WriteError(std::string_view source, std::string_view text) override;
  bool Available() override { return true; }

 private:
  Writer m_write;
};

}  // namespace pellora::libreoffice
