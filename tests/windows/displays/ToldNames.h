#pragma once

#include <map>
#include <string>

#include "platform/windows/Windows.h"
// After the platform's header, which it builds on.
#include <oleacc.h>

namespace pellora::windows::test {

/// Stands in for the system's service that takes names of windows for assistive programs, which Wine lacks, for as long
/// as it lives: remembers what it is told. COM must be ready on the thread.
class ToldNames : private IAccPropServices, private IClassFactory {
 public:
  ToldNames() {
    ::CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(this), CLSCTX_INPROC_SERVER,
                            REGCLS_MULTIPLEUSE, &m_registration);
  }
  ~ToldNames() { ::CoRevokeClassObject(m_registration); }
  ToldNames(const ToldNames&) = delete;
  ToldNames& operator=(const ToldNames&) = delete;

  /// What an assistive program reads for a window: the name that was told, otherwise the one the system makes.
  std::wstring Of(HWND window) const {
    const auto told = m_names.find(window);
    return told != m_names.end() ? told->second : SystemName(window);
  }

  /// Windows that still have a name; those that go have to take theirs back.
  std::size_t Count() const { return m_names.size(); }

 private:
  static std::wstring SystemName(HWND window) {
    // Found by hand: the compiler's import library of that module clashes with another one.
    using Find = HRESULT(WINAPI*)(HWND, DWORD, REFIID, void**);
    static const auto find = reinterpret_cast<Find>(
        reinterpret_cast<void*>(::GetProcAddress(::LoadLibraryW(L"oleacc.dll"), "AccessibleObjectFromWindow")));
    IAccessible* object = nullptr;
    const auto part = static_cast<DWORD>(OBJID_CLIENT);
    if (!find || find(window, part, IID_IAccessible, reinterpret_cast<void**>(&object)) != S_OK) return {};
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    BSTR text = nullptr;
    object->get_accName(self, &text);
    object->Release();
    const std::wstring name(text ? text : L"");
    ::SysFreeString(text);
    return name;
  }

  // It lives as long as its test, whoever holds it.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (::IsEqualIID(id, IID_IAccPropServices)) *object = static_cast<IAccPropServices*>(this);
    if (::IsEqualIID(id, IID_IClassFactory) || ::IsEqualIID(id, IID_IUnknown))
      *object = static_cast<IClassFactory*>(this);
    return *object ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND window, DWORD part, DWORD child, MSAAPROPID property,
                                           LPCWSTR text) override {
    const auto isName =
        part == static_cast<DWORD>(OBJID_CLIENT) && child == CHILDID_SELF && ::IsEqualGUID(property, PROPID_ACC_NAME);
    if (!isName) return E_INVALIDARG;
    m_names[window] = text;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID*, int) override {
    m_names.erase(window);
    return S_OK;
  }

  // Not used by the library.
  HRESULT STDMETHODCALLTYPE SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                          AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                              AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                               AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_NOTIMPL;
  }

  DWORD m_registration = 0;
  std::map<HWND, std::wstring> m_names;
};

}  // namespace pellora::windows::test
