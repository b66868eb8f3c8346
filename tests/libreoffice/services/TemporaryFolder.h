#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace pellora::libreoffice {

/// A folder that belongs to one test and goes with it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "pellora-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    m_path = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }

  std::string Path(std::string_view name = "") const {
    return name.empty() ? m_path : m_path + "/" + std::string(name);
  }
  std::string Content(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
  }
  /// Makes or overwrites a file, and answers its path.
  std::string Put(std::string_view name, std::string_view content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
    return Path(name);
  }
  /// The same, as a program.
  std::string PutProgram(std::string_view name, std::string_view content) const {
    const std::string path = Put(name, content);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
  }

 private:
  std::string m_path;
};

}  // namespace pellora::libreoffice
