#pragma once

#include "support/Platform.h"

namespace pellora::windows {

/// The system's shell.
class WindowsShell : public ShellApi {
 public:
  std::int32_t Execute(std::string_view verb, std::string_view file, std::string_view parameters,
                       std::string_view directory) override;
  /// The parameters follow the program's path on the command line, which quotes the path.
  bool RunAndWait(std::string_view program, std::string_view parameters, std::string_view directory) override;
  bool FileExists(std::string_view path) override;
  /// The subkeys of "SOFTWARE\Classes\<type>\Shell" of the machine, the type being the class that the machine's
  /// classes name for the file's extension, otherwise the extension itself.
  std::vector<std::string> DocumentVerbs(std::string_view path) override;
  std::int32_t ShowProperties(std::string_view path, std::intptr_t owner) override;
};

}  // namespace pellora::windows
