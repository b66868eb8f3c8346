#include "platform/libreoffice/services/DesktopShell.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "core/Text.h"
#include "platform/libreoffice/services/Descriptor.h"
#include "platform/libreoffice/services/Links.h"
#include "platform/libreoffice/services/Programs.h"

namespace pellora::libreoffice {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kFileNotFound = 2;
constexpr std::int32_t kPathNotFound = 3;
constexpr std::int32_t kAccessDenied = 5;
constexpr std::int32_t kOutOfMemory = 8;
constexpr std::int32_t kNoProgramOfThisMachine = 11;
constexpr std::int32_t kSharingViolation = 26;
constexpr std::int32_t kNothingSetUp = 31;
constexpr std::int32_t kSuccess = 33;

std::int32_t ResultOf(int error) {
  switch (error) {
    case 0: return kSuccess;
    case ENOENT:
    case ELOOP:
    case ENAMETOOLONG: return kFileNotFound;
    case ENOTDIR: return kPathNotFound;
    case ENOMEM:
    case EAGAIN: return kOutOfMemory;
    case ETXTBSY: return kSharingViolation;
    case EACCES:
    case EPERM: return kAccessDenied;
    default: return kNoProgramOfThisMachine;
  }
}

/// What a path is on the disk; `result` above 32 only when it is there.
struct Place {
  explicit Place(std::string_view given) : path(SystemPath(given)) {
    struct stat status;
    if (stat(path.c_str(), &status) == 0) {
      result = kSuccess;
      isFolder = S_ISDIR(status.st_mode);
      isProgram = S_ISREG(status.st_mode) && access(path.c_str(), X_OK) == 0;
    } else {
      result = errno == ENOENT && !FolderIsThere() ? kPathNotFound : ResultOf(errno);
    }
  }
  bool FolderIsThere() const {
    const int before = errno;
    std::error_code ignored;
    const fs::path folder = fs::path(path).parent_path();
    const bool there = folder.empty() || fs::is_directory(folder, ignored);
    errno = before;
    return there;
  }
  std::string Link() const {
    std::error_code ignored;
    return FileLink(fs::absolute(path, ignored).string());
  }

  std::string path;
  std::int32_t result = kFileNotFound;
  bool isFolder = false;
  bool isProgram = false;
};

}  // namespace

DesktopShell::~DesktopShell() { ForgetEnded(); }

std::int32_t DesktopShell::Execute(std::string_view verb, std::string_view file, std::string_view parameters,
                                   std::string_view directory) {
  ForgetEnded();
  if (EqualAsciiNoCase(verb, "explore")) {
    const Place place(file);
    if (place.result != kSuccess) return place.result;
    return place.isFolder ? Open(place.Link()) : kPathNotFound;
  }
  if (!verb.empty() && !EqualAsciiNoCase(verb, "open")) return kNothingSetUp;
  return IsLink(file) && !FileExists(file) ? Open(ProperLink(file)) : OpenPath(file, parameters, directory);
}

bool DesktopShell::RunAndWait(std::string_view program, std::string_view parameters, std::string_view directory) {
  ForgetEnded();
  pid_t started = 0;
  if (StartProgram(program, CommandWords(parameters), directory, started) != 0) return false;
  WaitForEnd(started);
  return true;
}

bool DesktopShell::FileExists(std::string_view path) { return Place(path).result == kSuccess; }

std::vector<std::string> DesktopShell::DocumentVerbs(std::string_view) { return {"open"}; }

std::int32_t DesktopShell::ShowProperties(std::string_view path, std::intptr_t) {
  const Place place(path);
  return place.result == kSuccess ? kNothingSetUp : place.result;
}

std::int32_t DesktopShell::Open(const std::string& link) {
  try {
    return m_open && m_open(link) ? kSuccess : kNothingSetUp;
  } catch (...) {
    return kNothingSetUp;
  }
}

std::int32_t DesktopShell::OpenPath(std::string_view path, std::string_view parameters, std::string_view directory) {
  const Place place(path);
  if (place.result != kSuccess) return place.result;
  if (!place.isProgram) return Open(place.Link());
  const std::int32_t result = Start(place.path, parameters, directory);
  // On some disks every document counts as a program.
  return result == kNoProgramOfThisMachine ? Open(place.Link()) : result;
}

std::int32_t DesktopShell::Start(const std::string& program, std::string_view parameters, std::string_view directory) {
  pid_t started = 0;
  const int error = StartProgram(program, CommandWords(parameters), directory, started);
  if (error == 0) m_running.push_back(started);
  return ResultOf(error);
}

void DesktopShell::ForgetEnded() { std::erase_if(m_running, HasEnded); }

}  // namespace pellora::libreoffice
