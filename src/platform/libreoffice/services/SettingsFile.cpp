#include "platform/libreoffice/services/SettingsFile.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include "platform/libreoffice/services/WholeFile.h"

namespace pellora::libreoffice {
namespace {

std::string HomeFolder() {
  if (const char* home = std::getenv("HOME"); home && *home) return home;
  passwd entry;
  passwd* found = nullptr;
  std::array<char, 16384> buffer;
  getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
  return found && found->pw_dir ? found->pw_dir : "";
}

std::string ConfigurationFolder() {
  // A relative path in the variable counts as none.
  if (const char* folder = std::getenv("XDG_CONFIG_HOME"); folder && *folder == '/') return folder;
  const std::string home = HomeFolder();
  return home.empty() ? "" : home + "/.config";
}

}  // namespace

std::string SettingsFile::DefaultPath() {
  const std::string folder = ConfigurationFolder();
  return folder.empty() ? "" : folder + "/pellora/settings";
}

std::int32_t SettingsFile::SetValue(std::int32_t root, std::string_view path, std::string_view name,
                                    const RegistryValue& value) {
  return Change([&](SettingsText& text) {
    text.SetValue(root, path, name, value);
    return 0;
  });
}

std::optional<RegistryValue> SettingsFile::QueryValue(std::int32_t root, std::string_view path, std::string_view name) {
  std::string content;
  if (Read(m_path, content) != 0) return std::nullopt;
  return Understood(std::move(content)).Value(root, path, name);
}

std::int32_t SettingsFile::EnumerateValues(std::int32_t root, std::string_view path, std::vector<std::string>& names) {
  std::string content;
  if (const auto status = Read(m_path, content)) return status;
  const SettingsText& text = Understood(std::move(content));
  if (!text.HasKey(root, path)) return ENOENT;
  names = text.Names(root, path);
  return 0;
}

std::int32_t SettingsFile::DeleteKey(std::int32_t root, std::string_view path) {
  return Change([&](SettingsText& text) {
    if (!text.HasKey(root, path)) return ENOENT;
    if (text.HasKeysBelow(root, path)) return ENOTEMPTY;
    text.DeleteKey(root, path);
    return 0;
  });
}

// A file that is not there has no settings yet; one that cannot be read may have some.
std::int32_t SettingsFile::Read(const std::string& path, std::string& content) const {
  const int status = ReadWholeFile(path, content);
  return status == ENOENT ? 0 : status;
}

const SettingsText& SettingsFile::Understood(std::string content) const {
  if (!m_understood || m_content != content) {
    m_understood.emplace(content);
    m_content = std::move(content);
  }
  return *m_understood;
}

std::int32_t SettingsFile::Change(const Edit& edit) {
  const auto attempt = [&](const std::string& path, const std::function<std::int32_t(const SettingsText&)>& store) {
    std::string content;
    if (const auto status = Read(path, content)) return status;
    SettingsText text(content);
    if (const auto status = edit(text)) return status;
    return text.Changed() ? store(text) : 0;
  };
  if (m_path.empty()) return ENOENT;
  // First without the lock: what changes nothing needs none, nor a file that can be written.
  return attempt(m_path, [&](const SettingsText&) -> std::int32_t {
    if (const int status = MakeFolderOf(m_path)) return status;
    const std::string target = LinkTarget(m_path);
    FileLock lock;
    if (const int status = lock.Take(target + ".lock", m_patience)) return status;
    return attempt(target, [&](const SettingsText& text) { return ReplaceWholeFile(target, text.Content()); });
  });
}

}  // namespace pellora::libreoffice
