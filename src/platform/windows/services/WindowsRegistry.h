#pragma once

#include "support/Platform.h"

namespace pellora::windows {

/// The system's registry, by its functions without Unicode: names and texts pass through the system's code page, and
/// so stay readable for programs that have always done so.
class WindowsRegistry : public Registry {
 public:
  std::int32_t SetValue(std::int32_t root, std::string_view path, std::string_view name,
                        const RegistryValue& value) override;
  std::optional<RegistryValue> QueryValue(std::int32_t root, std::string_view path, std::string_view name) override;
  std::int32_t EnumerateValues(std::int32_t root, std::string_view path, std::vector<std::string>& names) override;
  std::int32_t DeleteKey(std::int32_t root, std::string_view path) override;
};

}  // namespace pellora::windows
