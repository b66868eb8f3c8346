#include "platform/windows/services/WindowsShell.h"

#include <array>

#include "platform/windows/services/Handle.h"
#include "platform/windows/services/RegKey.h"
#include "platform/windows/services/WindowsRegistry.h"
#include "platform/windows/services/WindowsTextServices.h"

namespace pellora::windows {
namespace {

constexpr int kNormalWindow = 1;
constexpr std::size_t kVerbBuffer = 2048;
constexpr std::string_view kClasses = "SOFTWARE\\Classes\\";

const char* OrAbsent(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

std::string Extension(std::string_view path) {
  const auto dot = path.find_last_of(".\\/:");
  return dot != std::string_view::npos && path[dot] == '.' ? std::string(path.substr(dot)) : std::string();
}

std::string DocumentType(std::string_view path) {
  const std::string extension = Extension(path);
  if (extension.empty()) return {};
  const auto named = WindowsRegistry().QueryValue(kLocalMachine, std::string(kClasses) + extension, "");
  const auto* type = named ? std::get_if<std::string>(&*named) : nullptr;
  return type && !type->empty() ? *type : extension;
}

}  // namespace

std::int32_t WindowsShell::Execute(std::string_view verb, std::string_view file, std::string_view parameters,
                                   std::string_view directory) {
  const std::string ansiVerb = ToAnsi(verb), ansiFile = ToAnsi(file), ansiParameters = ToAnsi(parameters),
                    ansiDirectory = ToAnsi(directory);
  const HINSTANCE result = ShellExecuteA(nullptr, OrAbsent(ansiVerb), ansiFile.c_str(), OrAbsent(ansiParameters),
                                         OrAbsent(ansiDirectory), kNormalWindow);
  return static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(result));
}

bool WindowsShell::RunAndWait(std::string_view program, std::string_view parameters, std::string_view directory) {
  const std::string ansiProgram = ToAnsi(program), ansiDirectory = ToAnsi(directory);
  std::string commandLine = "\"" + ansiProgram + "\"";
  if (!parameters.empty()) commandLine += " " + ToAnsi(parameters);
  STARTUPINFOA start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = kNormalWindow;
  PROCESS_INFORMATION information{};
  if (!CreateProcessA(ansiProgram.c_str(), commandLine.data(), nullptr, nullptr, FALSE, NORMAL_PRIORITY_CLASS, nullptr,
                      OrAbsent(ansiDirectory), &start, &information))
    return false;
  const Handle process(information.hProcess), thread(information.hThread);
  WaitForSingleObject(process.get(), INFINITE);
  return true;
}

bool WindowsShell::FileExists(std::string_view path) {
  WIN32_FIND_DATAA found;
  const HANDLE search = FindFirstFileA(ToAnsi(path).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return true;
}

std::vector<std::string> WindowsShell::DocumentVerbs(std::string_view path) {
  std::vector<std::string> verbs;
  const std::string type = DocumentType(path);
  if (type.empty()) return verbs;
  RegKey key;
  const std::string keyPath = ToAnsi(std::string(kClasses) + type + "\\Shell");
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, keyPath.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS) return verbs;
  std::array<char, kVerbBuffer> name{};
  for (DWORD index = 0; RegEnumKeyA(key.get(), index, name.data(), static_cast<DWORD>(name.size())) == ERROR_SUCCESS;
       ++index)
    verbs.push_back(FromAnsi(name.data()));
  return verbs;
}

std::int32_t WindowsShell::ShowProperties(std::string_view path, std::intptr_t owner) {
  const std::string ansiPath = ToAnsi(path);
  SHELLEXECUTEINFOA info{};
  info.cbSize = sizeof info;
  info.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_INVOKEIDLIST | SEE_MASK_FLAG_NO_UI;
  info.hwnd = reinterpret_cast<HWND>(owner);
  info.lpVerb = "properties";
  info.lpFile = ansiPath.c_str();
  info.nShow = kNormalWindow;
  ShellExecuteExA(&info);
  const Handle process(info.hProcess);
  return static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(info.hInstApp));
}

}  // namespace pellora::windows
