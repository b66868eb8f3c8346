#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <utility>

#include "Pellora_idl.h"
#include "platform/windows/ole/Owners.h"

namespace pellora::windows::test {

using ole::ComPtr;

/// The DLL as a host loads it, through its doors and without being registered. PELLORA_DLL names another file than the
/// one built beside the tests.
class LoadedServer : public testing::Test {
 protected:
  LoadedServer() {
    CoInitialize(nullptr);
    Load();
  }
  ~LoadedServer() override {
    Unload();
    CoUninitialize();
  }
  void SetUp() override { ASSERT_NE(m_module, nullptr) << "cannot load Pellora.dll, error " << GetLastError(); }

  static std::wstring Path() {
    if (const wchar_t* named = _wgetenv(L"PELLORA_DLL")) return named;
    wchar_t self[1024] = L"";
    GetModuleFileNameW(nullptr, self, 1024);
    // The program lies in tests/windows/server of the tree that the DLL is in the root of.
    return (std::filesystem::path(self).parent_path() / L"..\\..\\..\\Pellora.dll").lexically_normal().wstring();
  }

  void Load() { m_module = LoadLibraryW(Path().c_str()); }
  void Unload() {
    if (m_module) FreeLibrary(std::exchange(m_module, nullptr));
  }
  HMODULE Module() const { return m_module; }

  template <class Function>
  Function* Door(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_module, name)));
  }

  HRESULT GetClassObject(REFCLSID classId, REFIID id, void** object) {
    using GetClass = HRESULT WINAPI(REFCLSID, REFIID, void**);
    return Door<GetClass>("DllGetClassObject")(classId, id, object);
  }
  HRESULT CanUnload() {
    using Ask = HRESULT WINAPI();
    return Door<Ask>("DllCanUnloadNow")();
  }

  ComPtr<IClassFactory> Factory() {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(GetClassObject(__uuidof(::cPellora), IID_IClassFactory, reinterpret_cast<void**>(factory.put())), S_OK);
    return factory;
  }
  ComPtr<_cPellora> Make() {
    ComPtr<_cPellora> object;
    EXPECT_EQ(Factory()->CreateInstance(nullptr, __uuidof(_cPellora), reinterpret_cast<void**>(object.put())), S_OK);
    return object;
  }

 private:
  HMODULE m_module = nullptr;
};

/// A test of an object of the library.
class LoadedObject : public LoadedServer {
 protected:
  void SetUp() override {
    LoadedServer::SetUp();
    object = Make();
    ASSERT_TRUE(object);
  }
  void TearDown() override { object.reset(); }

  ComPtr<_cPellora> object;
};

}  // namespace pellora::windows::test
