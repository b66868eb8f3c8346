#include "support/CAppSettings.h"

#include "core/Convert.h"
#include "support/ComponentErrors.h"
#include "support/Platform.h"
#include "support/mGlobal.h"

namespace pellora {
namespace {

constexpr std::uint32_t kInvalidAppName = 0x427D;
constexpr std::uint32_t kInvalidCompanyName = 0x427E;
constexpr std::uint32_t kInvalidMainBranch = 0x427F;
constexpr std::uint32_t kInvalidRootKey = 0x4280;
constexpr std::uint32_t kSavingFailed = 0x4281;
constexpr std::uint32_t kDeletingFailed = 0x4282;
constexpr std::uint32_t kGettingAllFailed = 0x4283;
constexpr std::uint32_t kComponentFailure = 0x4284;

constexpr ComponentErrors kErrors("Pellora.CAppSettings", "CAppSettings component failure", kInvalidAppName,
                                  kComponentFailure);
// The operations that report failures of the registry have always named their source without the last letter; macros
// that look at it keep working.
constexpr ComponentErrors kOperationErrors("Pellora.CAppSetting", "CAppSettings component failure", kInvalidAppName,
                                           kComponentFailure);

Registry& CurrentRegistry() { return mGlobal::CurrentPlatform().registry; }

void StoreNotEmpty(std::string& field, std::string_view value, std::uint32_t offset, std::string_view message) {
  if (value.empty()) kErrors.Raise(offset, message);
  field = value;
}

RegistryValue Encode(const Variant& setting) {
  switch (setting.Kind()) {
    case Variant::Type::String:
    case Variant::Type::Date:
    case Variant::Type::Boolean: return ToText(setting);
    default: return ToLong(setting);
  }
}

}  // namespace

void CAppSettings::Init(std::string_view CompanyName, std::string_view AppName) {
  this->CompanyName(CompanyName);
  this->AppName(AppName);
}

void CAppSettings::AppName(std::string_view name) {
  StoreNotEmpty(m_appName, name, kInvalidAppName, "Invalid AppName value");
}

void CAppSettings::CompanyName(std::string_view name) {
  StoreNotEmpty(m_companyName, name, kInvalidCompanyName, "Invalid CompanyName value");
}

void CAppSettings::MainBranch(std::string_view branch) {
  StoreNotEmpty(m_mainBranch, branch, kInvalidMainBranch, "Invalid MainBranch value");
}

void CAppSettings::RootKey(std::int32_t root) {
  if (root != kCurrentUser && root != kLocalMachine) kErrors.Raise(kInvalidRootKey, "Invalid root key value");
  m_rootKey = root;
}

// Deletes keys, never values: what `SaveSetting` stored under a name stays. Callers rely on it.
void CAppSettings::DeleteSetting(std::string_view Section, std::string_view KeyName) {
  kOperationErrors.Guard([&] {
    auto path = SectionPath(Section);
    if (!KeyName.empty()) path.append("\\").append(KeyName);
    if (CurrentRegistry().DeleteKey(m_rootKey, path) != 0)
      kOperationErrors.Raise(kDeletingFailed, "Failed deleting the application setting");
  });
}

void CAppSettings::GetAllKeys(std::string_view Section, std::vector<std::string>& Keys) {
  kOperationErrors.Guard([&] {
    std::vector<std::string> names;
    if (CurrentRegistry().EnumerateValues(m_rootKey, SectionPath(Section), names) != 0)
      kOperationErrors.Raise(kGettingAllFailed, "Failed getting all the application keys");
    if (!names.empty()) Keys = std::move(names);
  });
}

Variant CAppSettings::GetSetting(std::string_view Section, std::string_view KeyName, const Variant& Default) {
  return kErrors.Guard([&]() -> Variant {
    const auto value = CurrentRegistry().QueryValue(m_rootKey, SectionPath(Section), KeyName);
    if (!value) return Default;
    if (const auto* text = std::get_if<std::string>(&*value)) return *text;
    if (const auto* number = std::get_if<std::int32_t>(&*value)) return *number;
    return Default;
  });
}

void CAppSettings::SaveSetting(std::string_view Section, std::string_view KeyName, Variant& Setting) {
  kOperationErrors.Guard([&] {
    const auto value = Encode(Setting);
    if (CurrentRegistry().SetValue(m_rootKey, SectionPath(Section), KeyName, value) != 0)
      kOperationErrors.Raise(kSavingFailed, "Failed saving the application setting");
    // The caller is shown the number that was written, which may be a rounded one.
    if (const auto* number = std::get_if<std::int32_t>(&value)) Setting = *number;
  });
}

std::string CAppSettings::SectionPath(std::string_view section) const {
  std::string path = m_mainBranch;
  for (const std::string_view part : {std::string_view(m_companyName), std::string_view(m_appName), section})
    path.append("\\").append(part);
  return path;
}

}  // namespace pellora
