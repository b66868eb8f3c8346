#pragma once

#include <atomic>

#include "platform/windows/ole/ModuleReference.h"
#include "platform/windows/ole/Owners.h"

namespace pellora::windows {

/// Makes objects of the library's one class, each new. A failure of the object's initialisation reaches the creator
/// with number, source and description. Locks keep the module loaded, as the factory itself does.
class ClassFactory final : public IClassFactory {
 public:
  /// Answers an interface of a new factory.
  static HRESULT Create(REFIID id, void** object);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override;
  ULONG STDMETHODCALLTYPE Release() noexcept override;
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override;

 private:
  ClassFactory() = default;
  ~ClassFactory() = default;

  std::atomic<ULONG> m_references{1};
  ole::ModuleReference m_module;
};

}  // namespace pellora::windows
