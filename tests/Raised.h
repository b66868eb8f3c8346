#pragma once

#include <cstdint>

#include "core/Error.h"

namespace pellora::test {

/// The number of the `Error` that an act raises, 0 for none.
template <class Act>
std::int32_t NumberRaisedBy(Act&& act) {
  try {
    act();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace pellora::test
