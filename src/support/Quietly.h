#pragma once

#include <utility>

namespace pellora {

/// Runs a statement whose failure is of no interest: for what must never fail outward, and for the error reporter
/// itself, which has nobody to report to.
template <class Statement>
void Quietly(Statement&& statement) noexcept {
  try {
    std::forward<Statement>(statement)();
  } catch (...) {
  }
}

}  // namespace pellora
