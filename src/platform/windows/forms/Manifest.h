#pragma once

#include "platform/windows/forms/Owners.h"

namespace pellora::windows {

/// The library's own activation context, from the manifest in its resources: the host's decides otherwise which
/// version of the common controls a window gets, and the looks come out mixed. Empty when there is no such resource.
class Manifest {
 public:
  Manifest(HINSTANCE module, int resource);
  ~Manifest();
  Manifest(const Manifest&) = delete;
  Manifest& operator=(const Manifest&) = delete;

  HANDLE get() const { return m_context; }

 private:
  HANDLE m_context;
};

/// Activates a manifest on the thread for as long as it lives. Scopes end in the opposite order of their beginning.
class ManifestScope {
 public:
  explicit ManifestScope(const Manifest& manifest);
  ~ManifestScope();
  ManifestScope(const ManifestScope&) = delete;
  ManifestScope& operator=(const ManifestScope&) = delete;

 private:
  ULONG_PTR m_cookie = 0;
  bool m_active;
};

}  // namespace pellora::windows
