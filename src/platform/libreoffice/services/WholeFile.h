#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "platform/libreoffice/services/Descriptor.h"

namespace pellora::libreoffice {

/// Small files that are read and replaced as a whole. Every status is 0 or the system's error number.

/// Reads a plain file. `content` is written only on success; ENOENT when there is no such file, EFBIG for one of more
/// than two megabytes.
int ReadWholeFile(const std::string& path, std::string& content);

/// Puts new content in the place of a file, or makes the file for its owner alone (0600). Whoever looks meanwhile, or
/// after the power failed, sees the old content or the new, whole. Permissions stay, and the owner where the system
/// allows. A file that may not be written is not replaced either. One at a time: uses `path`.new meanwhile.
int ReplaceWholeFile(const std::string& path, std::string_view content);

/// Writes all bytes, however many calls it takes.
int WriteAll(int descriptor, std::string_view bytes);

/// Where a path leads when links are followed, whether a file is there or not; the path itself when it is no link.
std::string LinkTarget(const std::string& path);

/// Makes the folder that a path lies in, with those above it, for their owner alone.
int MakeFolderOf(const std::string& path);

/// A lock between programs: one holds it at a time, and a program that dies gives it back. It is a file, which stays.
class FileLock {
 public:
  /// Waits up to `patience` for the lock; ETIMEDOUT when another kept it that long.
  int Take(const std::string& path, std::chrono::milliseconds patience);

 private:
  Descriptor m_file;
};

}  // namespace pellora::libreoffice
