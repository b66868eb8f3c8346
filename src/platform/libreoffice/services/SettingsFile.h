#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "platform/libreoffice/services/SettingsText.h"
#include "support/Platform.h"

namespace pellora::libreoffice {

/// The registry of a desktop that has none: one file of the user's, for people to read and to carry along
/// (`SettingsText` describes its lines). All roots are in it. Every status is 0 or the system's error number: ENOENT
/// for what is not there, ENOTEMPTY for a key with keys below.
///
/// Every question reads the file, so that what another program wrote counts at once; only what the same content means
/// is not worked out again. A change takes the lock (`path`.lock, which stays), reads the file anew, changes that one
/// thing and replaces the file as a whole: no program loses another's change, and one that is killed leaves the file of
/// before or of after. A value that is the same already is not written. A file that cannot be read is never replaced.
class SettingsFile : public Registry {
 public:
  /// `path` may be a link; what it leads to is replaced, not the link. `patience` is how long a change waits for
  /// other programs.
  explicit SettingsFile(std::string path, std::chrono::milliseconds patience = std::chrono::seconds(2))
      : m_path(std::move(path)), m_patience(patience) {}

  /// The user's settings: "pellora/settings" in $XDG_CONFIG_HOME, by default in ".config" of the home folder. "" for a
  /// user without one, which no operation finds or makes.
  static std::string DefaultPath();

  /// Makes the file, and its folder, when they are not there. The file is its owner's alone.
  std::int32_t SetValue(std::int32_t root, std::string_view path, std::string_view name,
                        const RegistryValue& value) override;
  std::optional<RegistryValue> QueryValue(std::int32_t root, std::string_view path, std::string_view name) override;
  /// In the order of writing. `names` is written only on success.
  std::int32_t EnumerateValues(std::int32_t root, std::string_view path, std::vector<std::string>& names) override;
  std::int32_t DeleteKey(std::int32_t root, std::string_view path) override;

 private:
  using Edit = std::function<std::int32_t(SettingsText&)>;
  std::int32_t Read(const std::string& path, std::string& content) const;
  std::int32_t Change(const Edit& edit);
  const SettingsText& Understood(std::string content) const;

  std::string m_path;
  std::chrono::milliseconds m_patience;
  mutable std::string m_content;
  mutable std::optional<SettingsText> m_understood;
};

}  // namespace pellora::libreoffice
