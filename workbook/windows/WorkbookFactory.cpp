#include "workbook/windows/WorkbookFactory.h"

#include "platform/windows/ole/Convert.h"
#include "platform/windows/ole/Failure.h"
#include "workbook/Host.h"

namespace pellora::workbook {

HRESULT WorkbookFactory::Create(REFIID id, void** object) {
  ole::ComPtr<IClassFactory> made;
  made.attach(new WorkbookFactory);
  return made->QueryInterface(id, object);
}

HRESULT WorkbookFactory::QueryInterface(REFIID id, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory) ? this : nullptr;
  if (!*object) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG WorkbookFactory::AddRef() noexcept { return ++m_references; }

ULONG WorkbookFactory::Release() noexcept {
  const ULONG left = --m_references;
  if (left == 0) delete this;
  return left;
}

HRESULT WorkbookFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  try {
    // The objects keep what they need of the host; it has nothing to do for a script.
    return ole::ToDispatch(Host().Application())->QueryInterface(id, object);
  } catch (...) {
    return ole::ReportCaught(static_cast<EXCEPINFO*>(nullptr));
  }
}

HRESULT WorkbookFactory::LockServer(BOOL lock) noexcept {
  ole::ModuleReference::Lock(lock);
  return S_OK;
}

}  // namespace pellora::workbook
