#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/Error.h"

namespace pellora {

/// The block of error numbers of one service class: 0x80040000 plus an offset, all with one source. The last number of
/// a block is "<class> component failure" and stands for every failure that has no number of its own.
class ComponentErrors {
 public:
  constexpr ComponentErrors(std::string_view source, std::string_view failure, std::uint32_t first, std::uint32_t last)
      : m_source(source), m_failure(failure), m_first(first), m_last(last) {}

  [[noreturn]] void Raise(std::uint32_t offset, std::string_view message) const {
    throw Error(errors::Component(offset), std::string(m_source), std::string(message));
  }
  [[noreturn]] void RaiseFailure() const { Raise(m_last, m_failure); }

  /// Runs a member's body: an error with a number of the block passes, everything else becomes the component failure.
  template <class Body>
  decltype(auto) Guard(Body&& body) const {
    try {
      return body();
    } catch (const Error& error) {
      if (Owns(error.Number())) throw;
    } catch (...) {
    }
    RaiseFailure();
  }

 private:
  bool Owns(std::int32_t number) const {
    return number >= errors::Component(m_first) && number <= errors::Component(m_last);
  }

  std::string_view m_source;
  std::string_view m_failure;
  std::uint32_t m_first;
  std::uint32_t m_last;
};

}  // namespace pellora
