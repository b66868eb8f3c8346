// What may stand in an installation's way. Put in the place of the system's tasklist.exe, it lists a running Excel of
// the user who is asked for, by the name in the environment's OBSTACLE_NAME if there is one; in the place of reg.exe,
// it says that every key is there and does nothing; in the place of cscript.exe, it runs no script. Called with a key
// of the user, it makes that key a volatile one, below which nothing lasting can be written. Called with "hold" and a
// file, it keeps that file open for a while.

#include <cstdio>
#include <cwchar>
#include <string_view>

#include "platform/windows/Windows.h"

namespace {

int MakeVolatile(const wchar_t* path) {
  HKEY key = nullptr;
  return static_cast<int>(
      RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE, nullptr, &key, nullptr));
}

int Hold(const wchar_t* path) {
  const HANDLE file = CreateFileW(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  std::wprintf(L"held\n");
  std::fflush(stdout);
  constexpr DWORD kLongerThanAnyTest = 60'000;
  Sleep(kLongerThanAnyTest);
  return 0;
}

bool AsksForOneUser(int count, wchar_t** arguments) {
  for (int i = 1; i < count; ++i)
    if (std::wstring_view(arguments[i]).starts_with(L"username eq ")) return true;
  return false;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count == 2) return MakeVolatile(arguments[1]);
  if (count == 3 && std::wstring_view(arguments[1]) == L"hold") return Hold(arguments[2]);
  const wchar_t* const name = _wgetenv(L"OBSTACLE_NAME");
  if (AsksForOneUser(count, arguments))
    std::wprintf(L"%ls    4711 Console    1    90.000 K\n", name ? name : L"EXCEL.EXE");
  return 0;
}
