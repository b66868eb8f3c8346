#include "platform/windows/server/Module.h"

#include "platform/windows/ole/Failure.h"

namespace pellora::windows {
namespace {

HINSTANCE g_module = nullptr;

}  // namespace

HINSTANCE ThisModule() { return g_module; }
void ThisModule(HINSTANCE module) { g_module = module; }

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(g_module, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) throw ole::ErrorFromCode(HRESULT_FROM_WIN32(GetLastError()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

}  // namespace pellora::windows
