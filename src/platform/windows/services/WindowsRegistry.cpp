#include "platform/windows/services/WindowsRegistry.h"

#include <algorithm>

#include "platform/windows/services/RegKey.h"
#include "platform/windows/services/WindowsTextServices.h"

namespace pellora::windows {
namespace {

constexpr REGSAM kWriteAccess = 0x3F;
constexpr REGSAM kReadAccess = 0x20019;
constexpr REGSAM kQueryAccess = 0x1;

// The predefined keys are small negative numbers, whatever the size of a handle.
HKEY Root(std::int32_t root) { return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(root)); }

const BYTE* Bytes(const void* data) { return static_cast<const BYTE*>(data); }

LSTATUS Write(HKEY key, const std::string& name, const RegistryValue& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value))
    return RegSetValueExA(key, name.c_str(), 0, REG_DWORD, Bytes(number), sizeof *number);
  if (const auto* text = std::get_if<std::string>(&value)) {
    const std::string data = ToAnsi(*text);
    return RegSetValueExA(key, name.c_str(), 0, REG_SZ, Bytes(data.c_str()), static_cast<DWORD>(data.size() + 1));
  }
  return ERROR_INVALID_PARAMETER;
}

std::optional<RegistryValue> ReadText(HKEY key, const std::string& name, DWORD size) {
  std::string data(size, '\0');
  DWORD got = size;
  if (RegQueryValueExA(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(data.data()), &got) !=
      ERROR_SUCCESS)
    return std::nullopt;
  // The last byte is the terminating zero, and is dropped whatever it is.
  data.resize(std::min<std::size_t>(got, size));
  if (!data.empty()) data.pop_back();
  return FromAnsi(data);
}

std::optional<RegistryValue> ReadNumber(HKEY key, const std::string& name) {
  std::int32_t number = 0;
  DWORD size = sizeof number;
  const auto status = RegQueryValueExA(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
  return status == ERROR_SUCCESS ? std::optional<RegistryValue>(number) : std::nullopt;
}

LSTATUS OpenKey(std::int32_t root, std::string_view path, REGSAM access, RegKey& key) {
  return RegOpenKeyExA(Root(root), ToAnsi(path).c_str(), 0, access, key.put());
}

}  // namespace

std::int32_t WindowsRegistry::SetValue(std::int32_t root, std::string_view path, std::string_view name,
                                       const RegistryValue& value) {
  RegKey key;
  const LSTATUS status = RegCreateKeyExA(Root(root), ToAnsi(path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                         kWriteAccess, nullptr, key.put(), nullptr);
  return status == ERROR_SUCCESS ? Write(key.get(), ToAnsi(name), value) : status;
}

std::optional<RegistryValue> WindowsRegistry::QueryValue(std::int32_t root, std::string_view path,
                                                         std::string_view name) {
  RegKey key;
  if (OpenKey(root, path, kReadAccess, key) != ERROR_SUCCESS) return std::nullopt;
  const std::string valueName = ToAnsi(name);
  DWORD type = REG_NONE, size = 0;
  if (RegQueryValueExA(key.get(), valueName.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
    return std::nullopt;
  if (type == REG_SZ) return ReadText(key.get(), valueName, size);
  if (type == REG_DWORD) return ReadNumber(key.get(), valueName);
  return RegistryUnknown{};
}

std::int32_t WindowsRegistry::EnumerateValues(std::int32_t root, std::string_view path,
                                              std::vector<std::string>& names) {
  RegKey key;
  if (const LSTATUS status = OpenKey(root, path, kQueryAccess, key); status != ERROR_SUCCESS) return status;
  DWORD longest = 0;
  const LSTATUS asked = RegQueryInfoKeyA(key.get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                         &longest, nullptr, nullptr, nullptr);
  if (asked != ERROR_SUCCESS) return asked;
  // The length is told in characters; one of them may take several bytes.
  std::string buffer((static_cast<std::size_t>(longest) + 1) * 2, '\0');
  for (DWORD index = 0;; ++index) {
    auto size = static_cast<DWORD>(buffer.size());
    if (RegEnumValueA(key.get(), index, buffer.data(), &size, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
      return ERROR_SUCCESS;
    names.push_back(FromAnsi({buffer.data(), size}));
  }
}

std::int32_t WindowsRegistry::DeleteKey(std::int32_t root, std::string_view path) {
  return RegDeleteKeyA(Root(root), ToAnsi(path).c_str());
}

}  // namespace pellora::windows
