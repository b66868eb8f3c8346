#pragma once

#include <filesystem>

namespace house {

/// The folder of the sources.
inline const std::filesystem::path kRoot = PELLORA_SOURCE_DIR;

}  // namespace house
