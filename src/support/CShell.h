#pragma once

#include <cstdint>
#include <string_view>

namespace pellora {

/// The system's shell: documents, folders, links, programs, mail. Failures are raised with source "Pellora.CShell" and
/// the number and message that the shell's result has in one table (see CShell.cpp); a result above 32 is success.
class CShell {
 public:
  void CreateNewMailMessage(std::string_view RecipientAddress, std::string_view CCRecipientAddress,
                            std::string_view Subject, std::string_view Body);
  void ExploreFolder(std::string_view FolderName);
  void LaunchProgram(std::string_view PathFileName, std::string_view Parameters, bool WaitToFinish,
                     std::string_view StartDirectory);
  void OpenDocument(std::string_view PathFileName);
  void OpenFolder(std::string_view FolderName);
  void OpenUrl(std::string_view Url);
  void ShowProperties(std::string_view PathFileName, std::intptr_t HWndOwner);
};

}  // namespace pellora
