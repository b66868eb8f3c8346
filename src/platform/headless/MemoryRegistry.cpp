#include <algorithm>

#include "core/Text.h"
#include "platform/headless/Headless.h"

namespace pellora::headless {
namespace {

constexpr std::int32_t kFileNotFound = 2;
constexpr std::int32_t kAccessDenied = 5;

/// True for a key somewhere below another.
bool IsBelow(std::string_view path, std::string_view above) {
  return path.size() > above.size() && path[above.size()] == '\\' && EqualNoCase(path.substr(0, above.size()), above);
}

}  // namespace

std::int32_t MemoryRegistry::SetValue(std::int32_t root, std::string_view path, std::string_view name,
                                      const RegistryValue& value) {
  if (refuseWrites) return refuseWrites;
  auto& values = Create(root, path).values;
  const auto found =
      std::find_if(values.begin(), values.end(), [&](const auto& v) { return EqualNoCase(v.first, name); });
  if (found == values.end())
    values.emplace_back(name, value);
  else
    found->second = value;
  return 0;
}

std::optional<RegistryValue> MemoryRegistry::QueryValue(std::int32_t root, std::string_view path,
                                                        std::string_view name) {
  const auto* key = Find(root, path);
  if (!key) return std::nullopt;
  for (const auto& [existing, value] : key->values)
    if (EqualNoCase(existing, name)) return value;
  return std::nullopt;
}

std::int32_t MemoryRegistry::EnumerateValues(std::int32_t root, std::string_view path,
                                             std::vector<std::string>& names) {
  const auto* key = Find(root, path);
  if (!key) return kFileNotFound;
  names.clear();
  for (const auto& [name, value] : key->values) names.push_back(name);
  return 0;
}

std::int32_t MemoryRegistry::DeleteKey(std::int32_t root, std::string_view path) {
  if (refuseWrites) return refuseWrites;
  if (!Find(root, path)) return kFileNotFound;
  const auto below = [&](const Key& key) { return key.root == root && IsBelow(key.path, path); };
  if (std::any_of(m_keys.begin(), m_keys.end(), below)) return kAccessDenied;
  std::erase_if(m_keys, [&](const Key& key) { return key.root == root && EqualNoCase(key.path, path); });
  return 0;
}

std::map<std::string, RegistryValue> MemoryRegistry::Dump() const {
  std::map<std::string, RegistryValue> all;
  for (const auto& key : m_keys) {
    if (key.root != kCurrentUser) continue;
    for (const auto& [name, value] : key.values) all.emplace(key.path + "\\" + name, value);
  }
  return all;
}

bool MemoryRegistry::HasKey(std::int32_t root, std::string_view path) const { return Find(root, path) != nullptr; }

MemoryRegistry::Key& MemoryRegistry::Create(std::int32_t root, std::string_view path) {
  if (auto* existing = Find(root, path)) return *existing;
  // The keys above come into being with it, as in the system's registry.
  const auto slash = path.rfind('\\');
  if (slash != std::string_view::npos) Create(root, path.substr(0, slash));
  return m_keys.emplace_back(Key{root, std::string(path), {}});
}

MemoryRegistry::Key* MemoryRegistry::Find(std::int32_t root, std::string_view path) {
  return const_cast<Key*>(std::as_const(*this).Find(root, path));
}

const MemoryRegistry::Key* MemoryRegistry::Find(std::int32_t root, std::string_view path) const {
  const auto found = std::find_if(m_keys.begin(), m_keys.end(),
                                  [&](const Key& key) { return key.root == root && EqualNoCase(key.path, path); });
  return found == m_keys.end() ? nullptr : &*found;
}

}  // namespace pellora::headless
