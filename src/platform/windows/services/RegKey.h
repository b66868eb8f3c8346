#pragma once

#include <utility>

#include "platform/windows/Windows.h"

namespace pellora::windows {

/// An open registry key.
class RegKey {
 public:
  RegKey() = default;
  RegKey(RegKey&& other) noexcept : m_key(other.detach()) {}
  RegKey& operator=(RegKey&& other) noexcept {
    if (this != &other) attach(other.detach());
    return *this;
  }
  ~RegKey() { reset(); }

  HKEY get() const { return m_key; }
  explicit operator bool() const { return m_key != nullptr; }
  HKEY* put() {
    reset();
    return &m_key;
  }
  void attach(HKEY key) {
    reset();
    m_key = key;
  }
  HKEY detach() { return std::exchange(m_key, nullptr); }
  void reset() {
    if (m_key) RegCloseKey(std::exchange(m_key, nullptr));
  }

 private:
  HKEY m_key = nullptr;
};

}  // namespace pellora::windows
