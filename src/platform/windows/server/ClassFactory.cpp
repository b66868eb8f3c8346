#include "platform/windows/server/ClassFactory.h"

#include "platform/windows/ole/Failure.h"
#include "platform/windows/server/ComPellora.h"

namespace pellora::windows {

HRESULT ClassFactory::Create(REFIID id, void** object) {
  ole::ComPtr<IClassFactory> made;
  made.attach(new ClassFactory);
  return made->QueryInterface(id, object);
}

HRESULT ClassFactory::QueryInterface(REFIID id, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory) ? this : nullptr;
  if (!*object) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG ClassFactory::AddRef() noexcept { return ++m_references; }

ULONG ClassFactory::Release() noexcept {
  const ULONG left = --m_references;
  if (left == 0) delete this;
  return left;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  SetErrorInfo(0, nullptr);
  try {
    return ComPellora::Create(id, object);
  } catch (...) {
    return ole::ReportCaught(__uuidof(_cPellora), "Pellora.cPellora");
  }
}

HRESULT ClassFactory::LockServer(BOOL lock) noexcept {
  ole::ModuleReference::Lock(lock);
  return S_OK;
}

}  // namespace pellora::windows
