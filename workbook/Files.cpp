#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>

#include "workbook/FileParts.h"
#include "workbook/Refusal.h"
#include "workbook/State.h"

namespace pellora::workbook {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestFile = std::uintmax_t{512} << 20;

fs::path PathOf(std::string_view utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string ReadFile(const fs::path& path) {
  std::error_code fault;
  const auto size = fs::file_size(path, fault);
  if (fault) Refuse("The file could not be found");
  if (size > kLargestFile) Refuse("The file is too large");
  std::ifstream file(path, std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (!file.is_open() || file.bad()) Refuse("The file could not be read");
  return bytes;
}

// Beside the file and then in its place, so that a failure on the way leaves the old one whole.
void ReplaceFile(const fs::path& path, std::string_view bytes) {
  fs::path beside = path;
  beside += ".saving";
  std::error_code fault;
  {
    std::ofstream file(beside, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
      fs::remove(beside, fault);
      Refuse("The file could not be written");
    }
  }
  fs::rename(beside, path, fault);
  if (!fault) return;
  std::error_code ignored;
  fs::remove(beside, ignored);
  Refuse("The file could not be put in place");
}

}  // namespace

void Host::State::Open(std::string_view file) {
  try {
    document = ReadWorkbook(ReadFile(PathOf(file)));
  } catch (const std::bad_alloc&) {
    Refuse("The file is too large");
  }
  path = file;
  selections.clear();
}

void Host::State::Save(std::string_view file) {
  if (file.empty()) Refuse("A workbook that has no file yet needs a name");
  ReplaceFile(PathOf(file), WriteWorkbook(document));
  path = file;
}

}  // namespace pellora::workbook
