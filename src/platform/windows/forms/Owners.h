#pragma once

#include <utility>

#include "platform/windows/Windows.h"
// After the platform's header, which it builds on.
#include <commctrl.h>

namespace pellora::windows {

/// Owns one handle of the platform and gives it back with `Destroy`. The empty owner holds a null handle.
template <class Handle, auto Destroy>
class Owner {
 public:
  Owner() = default;
  explicit Owner(Handle handle) : m_handle(handle) {}
  Owner(Owner&& other) noexcept : m_handle(other.detach()) {}
  Owner& operator=(Owner&& other) noexcept {
    if (this != &other) attach(other.detach());
    return *this;
  }
  ~Owner() { reset(); }

  Handle get() const { return m_handle; }
  explicit operator bool() const { return m_handle != Handle{}; }
  void attach(Handle handle) {
    reset();
    m_handle = handle;
  }
  Handle detach() { return std::exchange(m_handle, Handle{}); }
  void reset() {
    if (const auto handle = detach()) Destroy(handle);
  }

 private:
  Handle m_handle{};
};

using WindowOwner = Owner<HWND, &::DestroyWindow>;
using FontOwner = Owner<HFONT, &::DeleteObject>;
using BitmapOwner = Owner<HBITMAP, &::DeleteObject>;
using IconOwner = Owner<HICON, &::DestroyIcon>;
using ImageListOwner = Owner<HIMAGELIST, &::ImageList_Destroy>;
using MemoryDcOwner = Owner<HDC, &::DeleteDC>;

}  // namespace pellora::windows
