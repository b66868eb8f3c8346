#include "platform/windows/server/LibraryState.h"

#include "Pellora_idl.h"
#include "platform/windows/ole/Failure.h"
#include "platform/windows/server/Module.h"

namespace pellora::windows {

ole::ComPtr<ITypeLib> LoadOwnTypeLibrary() {
  ole::ComPtr<ITypeLib> library;
  ole::Check(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.put()));
  return library;
}

std::shared_ptr<LibraryState> LibraryState::Acquire() {
  static std::weak_ptr<LibraryState> current;
  auto state = current.lock();
  if (!state) current = state = std::make_shared<LibraryState>();
  return state;
}

LibraryState::LibraryState() : m_platform(ThisModule()) {
  ole::Check(LoadOwnTypeLibrary()->GetTypeInfoOfGuid(__uuidof(_cPellora), m_type.put()));
  m_members = std::make_unique<MemberTable>(m_type.get());
}

}  // namespace pellora::windows
