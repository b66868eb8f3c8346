// Runs a program and closes every dialog it shows as soon as it is up, as a user who cancels everything would:
//
//   cancelling PROGRAM [ARGUMENT...]
//
// Ends with the program's code, or 125 when it could not be started. The program writes to the same output.

#include <string>

#include "platform/windows/Windows.h"

namespace {

constexpr DWORD kBetweenLooks = 20;
constexpr int kNotStarted = 125;

BOOL CALLBACK CloseWhenTheirs(HWND window, LPARAM process) {
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  if (owner == static_cast<DWORD>(process) && IsWindowVisible(window)) PostMessageW(window, WM_CLOSE, 0, 0);
  return TRUE;
}

std::wstring CommandLine(int count, wchar_t** words) {
  std::wstring line;
  for (int i = 1; i < count; ++i) line += (i > 1 ? L" \"" : L"\"") + std::wstring(words[i]) + L"\"";
  return line;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  std::wstring line = CommandLine(count, words);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION child{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &child))
    return kNotStarted;
  while (WaitForSingleObject(child.hProcess, kBetweenLooks) == WAIT_TIMEOUT)
    EnumWindows(CloseWhenTheirs, static_cast<LPARAM>(child.dwProcessId));
  DWORD code = 0;
  GetExitCodeProcess(child.hProcess, &code);
  CloseHandle(child.hThread);
  CloseHandle(child.hProcess);
  return static_cast<int>(code);
}
