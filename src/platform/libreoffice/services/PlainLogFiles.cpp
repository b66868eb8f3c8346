#include "platform/libreoffice/services/PlainLogFiles.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/libreoffice/services/WholeFile.h"

namespace pellora::libreoffice {
namespace {

// As every program makes files; the user's mask takes what others shall not have.
constexpr mode_t kNewFile = 0666;

/// A pipe could end the program by its signal when the reader leaves.
bool IsFileOrDevice(int file) {
  struct stat status;
  return fstat(file, &status) == 0 && (S_ISREG(status.st_mode) || S_ISCHR(status.st_mode));
}

}  // namespace

bool PlainLogFiles::Append(std::string_view path, std::string_view bytes) {
  constexpr int kFlags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
  const std::string name = SystemPath(path);
  Descriptor file(Uninterrupted([&] { return open(name.c_str(), kFlags, kNewFile); }));
  if (!file || !IsFileOrDevice(file.get())) return false;
  const bool written = WriteAll(file.get(), bytes) == 0;
  return file.close() == 0 && written;
}

bool PlainLogFiles::Delete(std::string_view path) { return unlink(SystemPath(path).c_str()) == 0; }

}  // namespace pellora::libreoffice
