#include "Pellora_idl.h"
#include "platform/windows/ole/Failure.h"
#include "platform/windows/ole/ModuleReference.h"
#include "platform/windows/server/ClassFactory.h"
#include "platform/windows/server/Module.h"
#include "platform/windows/server/Registration.h"

// The doors of the module, by the names the system looks for. Nothing is thrown through them.
namespace {

using namespace pellora;

template <class Body>
HRESULT Door(Body&& body) noexcept {
  try {
    return body();
  } catch (...) {
    return ole::ReportCaught(static_cast<EXCEPINFO*>(nullptr));
  }
}

HRESULT ChangeRegistration(bool install, windows::Audience audience) noexcept {
  return Door([&] {
    install ? windows::Register(audience) : windows::Unregister(audience);
    return S_OK;
  });
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) windows::ThisModule(module);
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  return Door([&] {
    if (!object) return E_POINTER;
    *object = nullptr;
    return IsEqualCLSID(classId, __uuidof(::cPellora)) ? windows::ClassFactory::Create(id, object)
                                                       : CLASS_E_CLASSNOTAVAILABLE;
  });
}

STDAPI DllCanUnloadNow() { return ole::ModuleReference::Count() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return ChangeRegistration(true, windows::Audience::Machine); }

STDAPI DllUnregisterServer() { return ChangeRegistration(false, windows::Audience::Machine); }

// "regsvr32 /n /i:user" registers for the user alone, which needs no rights on the machine.
STDAPI DllInstall(BOOL install, PCWSTR commandLine) {
  const bool user = commandLine && lstrcmpiW(commandLine, L"user") == 0;
  return ChangeRegistration(install, user ? windows::Audience::User : windows::Audience::Machine);
}
