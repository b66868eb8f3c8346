// Stands in for the user's mail program: writes what it is called with to a file, as UTF-8, one argument a line.
//
//   mailing FILE [ARGUMENT...]
//
// The file appears whole, under its name, once everything is written.

#include <filesystem>
#include <fstream>

#include "platform/windows/Windows.h"

namespace {

std::string Utf8(const std::wstring& text) {
  std::string narrow(text.size() * 3, '\0');
  const auto size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), narrow.data(),
                                        static_cast<int>(narrow.size()), nullptr, nullptr);
  narrow.resize(static_cast<std::size_t>(size));
  return narrow;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count < 2) return 1;
  const std::filesystem::path file(words[1]), beginning(std::wstring(words[1]) + L".part");
  {
    std::ofstream stream(beginning, std::ios::binary);
    for (int i = 2; i < count; ++i) stream << Utf8(words[i]) << '\n';
    if (!stream.flush()) return 1;
  }
  std::filesystem::rename(beginning, file);
  return 0;
}
