#pragma once

#include <memory>

#include "platform/windows/server/MemberTable.h"
#include "platform/windows/server/WindowsPlatform.h"

namespace pellora::windows {

/// The library's description of itself, out of its own file.
ole::ComPtr<ITypeLib> LoadOwnTypeLibrary();

/// What all objects of the library share: the platform, and the description of their members. Made with the first
/// object, released with the last, so that nothing of it is left when the module is unloaded.
class LibraryState {
 public:
  static std::shared_ptr<LibraryState> Acquire();

  LibraryState();

  ITypeInfo* type() const { return m_type.get(); }
  const MemberTable& members() const { return *m_members; }

 private:
  WindowsPlatform m_platform;
  ole::ComPtr<ITypeInfo> m_type;
  std::unique_ptr<MemberTable> m_members;
};

}  // namespace pellora::windows
