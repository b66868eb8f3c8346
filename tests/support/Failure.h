#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

#include "core/Error.h"

namespace pellora {

/// What `Failure` says of a failure inside the error handler.
inline constexpr char kHandlerFailure[] = "0x800443FC|Pellora.CErrorHandler|CErrorHandler component failure";

/// What a call fails with, as "0x800443FA|source|description"; "none" when it does not fail.
template <class Call>
std::string Failure(Call&& call) {
  try {
    call();
  } catch (const Error& error) {
    char number[16];
    std::snprintf(number, sizeof number, "0x%08X", static_cast<std::uint32_t>(error.Number()));
    return std::string(number) + "|" + error.Source() + "|" + error.Description();
  }
  return "none";
}

}  // namespace pellora
