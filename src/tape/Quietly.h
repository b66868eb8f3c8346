#pragma once

#include <exception>
#include <utility>

namespace pellora {

/// Runs something of which failure is an answer, for the few routines that must not report: true when it did not fail.
template <class Attempt>
bool Quietly(Attempt&& attempt) {
  try {
    std::forward<Attempt>(attempt)();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace pellora
