#pragma once

#include <atomic>

#include "platform/windows/ole/ModuleReference.h"
#include "platform/windows/ole/Owners.h"

namespace pellora::ole {

/// The class factory of one class. Every creation makes a new object; whoever creates it hears of a failure by the code
/// alone or by the thread's error object too, as the class has it. Locks keep the module loaded, as the factory itself
/// does.
///
/// `Class` says how its objects are made:
///
///     static HRESULT Create(REFIID id, void** object);      // makes one and answers an interface of it; may raise
///     static HRESULT ReportFailedCreation() noexcept;       // the code for what is being caught
template <class Class>
class ClassFactory final : public IClassFactory {
 public:
  /// Answers an interface of a new factory. May raise.
  static HRESULT Create(REFIID id, void** object) {
    ComPtr<IClassFactory> made;
    made.attach(new ClassFactory);
    return made->QueryInterface(id, object);
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory) ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++m_references; }
  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const ULONG left = --m_references;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    SetErrorInfo(0, nullptr);
    try {
      return Class::Create(id, object);
    } catch (...) {
      return Class::ReportFailedCreation();
    }
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
    ModuleReference::Lock(lock);
    return S_OK;
  }

 private:
  ClassFactory() = default;
  ~ClassFactory() = default;

  std::atomic<ULONG> m_references{1};
  ModuleReference m_module;
};

}  // namespace pellora::ole
