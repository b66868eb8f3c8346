#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

#include "support/Platform.h"

namespace pellora::libreoffice {

/// The shell of a desktop without verbs: documents, folders and links are opened by the program that the desktop has
/// for them, programs are started as they are. No command line is ever given to a command shell.
///
/// Results are those of the first platform, so that the messages for them are the same everywhere: 2 and 3 for a file
/// and a folder that are not there, 5 access denied, 8 out of memory, 11 no program for this machine, 26 a program that
/// is being written, 31 nothing is set up for it.
class DesktopShell : public ShellApi {
 public:
  /// Opens a link: a document or folder as "file://...", mails and pages by their own scheme, properly escaped. False
  /// when there is no program for it, or it could not be started. Whatever it throws counts as false.
  using Opener = std::function<bool(const std::string& link)>;
  explicit DesktopShell(Opener open) : m_open(std::move(open)) {}
  /// Programs that were started and not waited for go on.
  ~DesktopShell() override;

  /// "open" (or none) on a program, a document, a folder or a link; "explore" on a folder. Every other verb: 31.
  /// Parameters and directory are those of a program; documents and links have none.
  std::int32_t Execute(std::string_view verb, std::string_view file, std::string_view parameters,
                       std::string_view directory) override;
  /// The parameters are words as in `CommandWords`. Waits without limit.
  bool RunAndWait(std::string_view program, std::string_view parameters, std::string_view directory) override;
  bool FileExists(std::string_view path) override;
  /// "open", of every document.
  std::vector<std::string> DocumentVerbs(std::string_view path) override;
  /// There are no property sheets here: 31, or what is wrong with the path.
  std::int32_t ShowProperties(std::string_view path, std::intptr_t owner) override;

 private:
  std::int32_t Open(const std::string& link);
  std::int32_t OpenPath(std::string_view path, std::string_view parameters, std::string_view directory);
  std::int32_t Start(const std::string& program, std::string_view parameters, std::string_view directory);
  void ForgetEnded();

  Opener m_open;
  /// Started and not known to have ended; each is asked for once it has, so that the system forgets it too.
  std::vector<pid_t> m_running;
};

}  // namespace pellora::libreoffice
