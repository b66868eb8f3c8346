#include "platform/windows/services/WindowsLogFiles.h"

#include "platform/windows/ole/Owners.h"
#include "platform/windows/services/Handle.h"

namespace pellora::windows {

bool WindowsLogFiles::Append(std::string_view path, std::string_view bytes) {
  const Handle file(CreateFileW(ole::Wide(path).c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return false;
  DWORD written = 0;
  const auto size = static_cast<DWORD>(bytes.size());
  return WriteFile(file.get(), bytes.data(), size, &written, nullptr) && written == size;
}

bool WindowsLogFiles::Delete(std::string_view path) { return DeleteFileW(ole::Wide(path).c_str()); }

}  // namespace pellora::windows
