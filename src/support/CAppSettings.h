#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/Variant.h"

namespace pellora {

/// The library's lasting settings: a key of the registry for each section, a value for each setting. The key of a
/// section is `MainBranch` \ `CompanyName` \ `AppName` \ section, below `RootKey`.
///
/// Setters and `Init` reject bad values with source "Pellora.CAppSettings"; `SaveSetting`, `DeleteSetting` and
/// `GetAllKeys` report failures with source "Pellora.CAppSetting" (without the s, deliberately). Numbers: 0x8004427D
/// AppName, 0x8004427E CompanyName, 0x8004427F MainBranch, 0x80044280 root key, 0x80044281 saving, 0x80044282
/// deleting, 0x80044283 getting all keys, 0x80044284 anything else.
class CAppSettings {
 public:
  CAppSettings() = default;

  void Init(std::string_view CompanyName, std::string_view AppName);
  const std::string& AppName() const { return m_appName; }
  void AppName(std::string_view name);
  const std::string& CompanyName() const { return m_companyName; }
  void CompanyName(std::string_view name);
  const std::string& MainBranch() const { return m_mainBranch; }
  void MainBranch(std::string_view branch);
  std::int32_t RootKey() const { return m_rootKey; }
  /// Current user (0x80000001) or local machine (0x80000002) only.
  void RootKey(std::int32_t root);

  /// Deletes the key section \ `KeyName`, or the section's key when `KeyName` is empty; never a value.
  void DeleteSetting(std::string_view Section, std::string_view KeyName);
  /// Fills `Keys` with the names of the section's values; leaves it alone when there are none.
  void GetAllKeys(std::string_view Section, std::vector<std::string>& Keys);
  /// The stored text or 32-bit number; `Default` when there is none. Never raises for what is not there.
  Variant GetSetting(std::string_view Section, std::string_view KeyName, const Variant& Default);
  /// Stores texts, dates and booleans as text, anything else as a 32-bit number, which then also replaces the
  /// caller's `Setting`.
  void SaveSetting(std::string_view Section, std::string_view KeyName, Variant& Setting);

 private:
  std::string SectionPath(std::string_view section) const;

  std::int32_t m_rootKey = static_cast<std::int32_t>(0x80000001);
  std::string m_mainBranch = "Software";
  std::string m_companyName = "Belmund";
  std::string m_appName = "Pellora";
};

}  // namespace pellora
