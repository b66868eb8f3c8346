#pragma once

#include <utility>

#include "platform/windows/Windows.h"

namespace pellora::windows {

/// A handle of the kernel; null for none. The invalid handle of files counts as none too.
class Handle {
 public:
  Handle() = default;
  explicit Handle(HANDLE handle) : m_handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { reset(); }

  HANDLE get() const { return m_handle; }
  explicit operator bool() const { return m_handle != nullptr; }
  void reset() {
    if (m_handle) CloseHandle(std::exchange(m_handle, nullptr));
  }

 private:
  HANDLE m_handle = nullptr;
};

}  // namespace pellora::windows
