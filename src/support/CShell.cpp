#include "support/CShell.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/Text.h"
#include "support/ComponentErrors.h"
#include "support/Platform.h"
#include "support/mGlobal.h"

namespace pellora {
namespace {

constexpr std::uint32_t kFileNotFound = 0x4679;
constexpr std::uint32_t kCannotCreateProcess = 0x4685;
constexpr std::uint32_t kCannotShowProperties = 0x4686;
constexpr std::uint32_t kComponentFailure = 0x4687;
constexpr ComponentErrors kErrors("Pellora.CShell", "CShell component failure", kFileNotFound, kComponentFailure);

/// From here on a result of the shell is success.
constexpr std::int32_t kFirstSuccess = 33;

/// A result of the shell that is an error. The opening of links and mails passes over those that only say that no
/// program is set up for them.
struct Refusal {
  std::int32_t result;
  std::uint32_t number;
  std::string_view message;
  bool ofLinks;
};

// Access denied (5) is told as a missing file on purpose, and 0x467B is not used. A result that is not here is none.
constexpr std::array kRefusals = {
    Refusal{2, kFileNotFound, "File not found", false},
    Refusal{5, kFileNotFound, "File not found", false},
    Refusal{3, 0x467A, "Path not found", false},
    Refusal{8, 0x467C, "Out of memory", true},
    Refusal{32, 0x467D, "DLL not found", false},
    Refusal{26, 0x467E, "A sharing violation occurred", true},
    Refusal{27, 0x467F, "Incomplete or invalid file association", false},
    Refusal{28, 0x4680, "DDE timeout", true},
    Refusal{29, 0x4681, "DDE transaction failed", true},
    Refusal{30, 0x4682, "DDE busy", true},
    Refusal{31, 0x4683, "No association for file extension", false},
    Refusal{11, 0x4684, "Invalid EXE file or error in EXE image", false},
};

ShellApi& CurrentShell() { return mGlobal::CurrentPlatform().shell; }

void RaiseRefusal(std::int32_t result, bool ofLink) {
  for (const auto& refusal : kRefusals)
    if (refusal.result == result && (refusal.ofLinks || !ofLink)) kErrors.Raise(refusal.number, refusal.message);
}

void Execute(std::string_view verb, std::string_view file, std::string_view parameters = {},
             std::string_view directory = {}) {
  RaiseRefusal(CurrentShell().Execute(verb, file, parameters, directory), false);
}

void OpenLink(std::string_view url) { RaiseRefusal(CurrentShell().Execute("open", url, {}, {}), true); }

void RequireFile(std::string_view path) {
  if (!CurrentShell().FileExists(path)) kErrors.Raise(kFileNotFound, "File not found");
}

/// Some document types register their open verb under its menu text, with the access key's mark.
std::string OpenVerb(std::string_view path) {
  for (const auto& verb : CurrentShell().DocumentVerbs(path))
    if (EqualAsciiNoCase(verb, "&open")) return verb;
  return "open";
}

}  // namespace

// The texts are used as they are; callers escape them. Each part brings its own separator, so that a message with a
// copy address and no subject has "&cc=" directly after the recipient.
void CShell::CreateNewMailMessage(std::string_view RecipientAddress, std::string_view CCRecipientAddress,
                                  std::string_view Subject, std::string_view Body) {
  kErrors.Guard([&] {
    std::string url = "mailto:";
    const auto add = [&url](std::string_view separator, std::string_view part) {
      if (!part.empty()) url.append(separator).append(part);
    };
    add("", RecipientAddress);
    add("?subject=", Subject);
    add("&cc=", CCRecipientAddress);
    add("&body=", Body);
    OpenLink(url);
  });
}

void CShell::ExploreFolder(std::string_view FolderName) {
  kErrors.Guard([&] { Execute("explore", FolderName); });
}

void CShell::LaunchProgram(std::string_view PathFileName, std::string_view Parameters, bool WaitToFinish,
                           std::string_view StartDirectory) {
  kErrors.Guard([&] {
    RequireFile(PathFileName);
    if (!WaitToFinish) return Execute("open", PathFileName, Parameters, StartDirectory);
    if (!CurrentShell().RunAndWait(PathFileName, Parameters, StartDirectory))
      kErrors.Raise(kCannotCreateProcess, "Cannot create process");
  });
}

void CShell::OpenDocument(std::string_view PathFileName) {
  kErrors.Guard([&] {
    RequireFile(PathFileName);
    Execute(OpenVerb(PathFileName), PathFileName);
  });
}

void CShell::OpenFolder(std::string_view FolderName) {
  kErrors.Guard([&] { Execute("open", FolderName); });
}

void CShell::OpenUrl(std::string_view Url) {
  kErrors.Guard([&] { OpenLink(Url); });
}

void CShell::ShowProperties(std::string_view PathFileName, std::intptr_t HWndOwner) {
  kErrors.Guard([&] {
    RequireFile(PathFileName);
    if (CurrentShell().ShowProperties(PathFileName, HWndOwner) < kFirstSuccess)
      kErrors.Raise(kCannotShowProperties, "Cannot show properties");
  });
}

}  // namespace pellora
