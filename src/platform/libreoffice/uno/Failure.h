#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "core/Error.h"

/// Failures of the office program's objects as the library's one exception.
namespace pellora::libreoffice {

/// The number of a call to an object whose workbook was closed, as automation has it for an object that is gone.
inline constexpr std::int32_t kDisconnected = static_cast<std::int32_t>(0x80010108);

/// Raises 1004, the spreadsheet's general refusal, with its text.
[[noreturn]] void Refuse(const std::string& text);
/// Raises `kDisconnected`.
[[noreturn]] void RaiseDisconnected();

/// The failure that is being handled, whatever wraps it. Only within a catch block.
///
/// | raised by the program | number |
/// |---|---|
/// | its macro language's error | that of the code, 1004 for "method failed" and codes without a classic number |
/// | an argument that is not taken, a value that does not convert | 13 |
/// | no such method, no such property | 438 |
/// | no such element, an index out of bounds | 9 |
/// | an object that was disposed of | `kDisconnected` |
/// | no memory | 7 |
/// | anything else | 1004 |
Error CaughtFailure();

/// Runs `body`; every failure leaves it as an `Error`.
template <class Body>
auto Guarded(Body&& body) -> decltype(body()) {
  try {
    return std::forward<Body>(body)();
  } catch (const Error&) {
    throw;
  } catch (...) {
    throw CaughtFailure();
  }
}

}  // namespace pellora::libreoffice
