#include "platform/windows/services/VersionResource.h"

#include <vector>

#include "platform/windows/ole/Owners.h"

namespace pellora::windows {
namespace {

// A copy, because asking for parts of it may write into it.
std::vector<char> VersionBytes(HINSTANCE module) {
  const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(16));
  const HGLOBAL loaded = resource ? LoadResource(module, resource) : nullptr;
  const auto* bytes = loaded ? static_cast<const char*>(LockResource(loaded)) : nullptr;
  if (!bytes) return {};
  // Some readers look a few bytes beyond the resource.
  std::vector<char> copy(bytes, bytes + SizeofResource(module, resource));
  copy.resize(copy.size() * 2);
  return copy;
}

std::string Title(const std::vector<char>& version) {
  void* text = nullptr;
  UINT length = 0;
  if (!VerQueryValueW(version.data(), L"\\StringFileInfo\\040904B0\\ProductName", &text, &length) || length < 2)
    return {};
  return ole::Narrow({static_cast<const wchar_t*>(text), length - 1});
}

}  // namespace

LibraryInfo ReadLibraryInfo(HINSTANCE module) {
  LibraryInfo info;
  const std::vector<char> version = VersionBytes(module);
  void* root = nullptr;
  UINT size = 0;
  if (version.empty() || !VerQueryValueW(version.data(), L"\\", &root, &size) || size < sizeof(VS_FIXEDFILEINFO))
    return info;
  const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(root);
  info.major = HIWORD(fixed.dwProductVersionMS);
  info.minor = LOWORD(fixed.dwProductVersionMS);
  info.revision = HIWORD(fixed.dwProductVersionLS);
  if (const std::string title = Title(version); !title.empty()) info.title = title;
  return info;
}

}  // namespace pellora::windows
