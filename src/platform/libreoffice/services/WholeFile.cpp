#include "platform/libreoffice/services/WholeFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>
#include <thread>

namespace pellora::libreoffice {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kOwnerOnly = 0600;
constexpr mode_t kFolderOfOwner = 0700;
/// Far above any settings. What is larger was not written here, and would be read many times over, for minutes, while
/// the user waits.
constexpr off_t kLargestFile = 2 << 20;
constexpr int kMostLinks = 40;
constexpr std::chrono::milliseconds kLockPause{2};

int Outcome(int answer) { return answer == 0 ? 0 : errno; }

int CheckPlain(int file) {
  struct stat status;
  if (fstat(file, &status) != 0) return errno;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  if (!S_ISREG(status.st_mode)) return EINVAL;
  return status.st_size > kLargestFile ? EFBIG : 0;
}

/// The new content on its way: goes again unless it took the old one's place.
class Replacement {
 public:
  explicit Replacement(std::string path) : m_path(std::move(path)) {}
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  ~Replacement() {
    if (m_there) unlink(m_path.c_str());
  }

  int Create() {
    // One that a program left when it died.
    unlink(m_path.c_str());
    m_file.attach(Uninterrupted(
        [this] { return open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kOwnerOnly); }));
    if (!m_file) return errno;
    m_there = true;
    return 0;
  }
  int TakeOver(const struct stat& old) {
    // Another owner is given back his file; where the system does not allow it, it becomes ours.
    [[maybe_unused]] const int allowed = fchown(m_file.get(), old.st_uid, old.st_gid);
    return Outcome(fchmod(m_file.get(), old.st_mode & 07777));
  }
  int Write(std::string_view content) {
    if (const int status = WriteAll(m_file.get(), content)) return status;
    if (Uninterrupted([this] { return fsync(m_file.get()); }) != 0) return errno;
    return m_file.close();
  }
  int MoveTo(const std::string& path) {
    if (rename(m_path.c_str(), path.c_str()) != 0) return errno;
    m_there = false;
    return 0;
  }

 private:
  std::string m_path;
  Descriptor m_file;
  bool m_there = false;
};

/// So that the new name survives a power failure too. A system that cannot do it has still replaced the file.
void SyncFolderOf(const std::string& path) {
  const std::string folder = fs::path(path).parent_path().string();
  const Descriptor opened(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened) fsync(opened.get());
}

}  // namespace

int ReadWholeFile(const std::string& path, std::string& content) {
  // Without waiting: a pipe would keep the program until somebody writes.
  const Descriptor file(
      Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
  if (!file) return errno;
  if (const int status = CheckPlain(file.get())) return status;
  std::string read;
  std::array<char, 16384> buffer;
  for (;;) {
    const ssize_t got = Uninterrupted([&] { return ::read(file.get(), buffer.data(), buffer.size()); });
    if (got < 0) return errno;
    if (got == 0) break;
    read.append(buffer.data(), static_cast<std::size_t>(got));
  }
  content = std::move(read);
  return 0;
}

int ReplaceWholeFile(const std::string& path, std::string_view content) {
  // It could not be read again.
  if (content.size() > static_cast<std::size_t>(kLargestFile)) return EFBIG;
  struct stat old;
  const bool replaces = stat(path.c_str(), &old) == 0;
  if (!replaces && errno != ENOENT) return errno;
  if (replaces && faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) return errno;
  Replacement replacement(path + ".new");
  int status = replacement.Create();
  if (status == 0 && replaces) status = replacement.TakeOver(old);
  if (status == 0) status = replacement.Write(content);
  if (status == 0) status = replacement.MoveTo(path);
  if (status == 0) SyncFolderOf(path);
  return status;
}

int WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = Uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
    if (written < 0) return errno;
    if (written == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

std::string LinkTarget(const std::string& path) {
  fs::path at = path;
  std::error_code error;
  for (int i = 0; i < kMostLinks; ++i) {
    const fs::path next = fs::read_symlink(at, error);
    if (error) break;
    at = at.parent_path() / next;
  }
  return at.string();
}

int MakeFolderOf(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  fs::path made;
  for (const auto& part : folder) {
    made /= part;
    if (mkdir(made.c_str(), kFolderOfOwner) == 0 || errno == EEXIST) continue;
    // On the way there may be folders that are there and cannot be made, as on a system that is read-only above.
    std::error_code ignored;
    const int status = errno;
    if (!fs::is_directory(made, ignored)) return status;
  }
  return 0;
}

int FileLock::Take(const std::string& path, std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  m_file.attach(Uninterrupted(
      [&] { return open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kOwnerOnly); }));
  if (!m_file) return errno;
  while (Uninterrupted([this] { return flock(m_file.get(), LOCK_EX | LOCK_NB); }) != 0) {
    if (errno != EWOULDBLOCK) return errno;
    if (std::chrono::steady_clock::now() >= end) return ETIMEDOUT;
    std::this_thread::sleep_for(kLockPause);
  }
  return 0;
}

}  // namespace pellora::libreoffice
