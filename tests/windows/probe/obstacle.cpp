// What may stand in an installation's way. Put in the place of the system's tasklist.exe, it lists a running Excel.
// Called with a key of the user, it makes that key a volatile one, below which nothing lasting can be written.

#include <cwchar>

#include "platform/windows/Windows.h"

int wmain(int count, wchar_t** arguments) {
  if (count != 2) {
    std::wprintf(L"EXCEL.EXE    4711 Console    1    90.000 K\n");
    return 0;
  }
  HKEY key = nullptr;
  return static_cast<int>(RegCreateKeyExW(HKEY_CURRENT_USER, arguments[1], 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE,
                                          nullptr, &key, nullptr));
}
