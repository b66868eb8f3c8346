#include <algorithm>
#include <string>
#include <string_view>

#include "Pellora_idl.h"
#include "platform/windows/ole/ClassFactory.h"
#include "platform/windows/ole/Failure.h"
#include "platform/windows/server/ComPellora.h"
#include "platform/windows/server/Module.h"
#include "platform/windows/server/Registration.h"
#include "platform/windows/services/WindowsLogFiles.h"
#include "platform/windows/services/WindowsTextServices.h"

// The run time's own, which no header declares.
namespace __gnu_cxx {
void __freeres();
}

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

// "user" is the user alone, "machine" or nothing the machine. Another word may be a misspelt "user", and registering
// for the machine is not what was meant then.
windows::Audience AudienceOf(const std::wstring& word) {
  if (lstrcmpiW(word.c_str(), L"user") == 0) return windows::Audience::User;
  if (word.empty() || lstrcmpiW(word.c_str(), L"machine") == 0) return windows::Audience::Machine;
  throw Error(E_INVALIDARG, {},
              "A library is registered for \"user\" or \"machine\", not for \"" + ole::Narrow(word) + "\"");
}

// The caller gets the code; the text with the registry key becomes the thread's error object.
HRESULT ChangeRegistration(bool install, const std::wstring& word) noexcept {
  try {
    const auto audience = AudienceOf(word);
    install ? windows::Register(audience) : windows::Unregister(audience);
    return S_OK;
  } catch (...) {
    return ole::ReportCaught(GUID_NULL, "Pellora");
  }
}

// What "regsvr32 /i:" passes on: for whom, and behind a comma a file for the text of a failure, of which a script that
// calls it silently would hear nothing but that it failed.
struct InstallRequest {
  explicit InstallRequest(std::wstring_view commandLine) {
    const auto comma = std::min(commandLine.find(L','), commandLine.size());
    word = commandLine.substr(0, comma);
    if (comma < commandLine.size()) report = commandLine.substr(comma + 1);
  }
  std::wstring word;
  std::wstring report;
};

// Leaves the thread's error object as it was.
void WriteReport(const std::wstring& file) {
  ole::ComPtr<IErrorInfo> failure;
  if (GetErrorInfo(0, failure.put()) != S_OK) return;
  ole::BStr text;
  failure->GetDescription(text.put());
  SetErrorInfo(0, failure.get());
  windows::WindowsLogFiles().Append(ole::Narrow(file), windows::ToAnsi(text.Text()) + "\r\n");
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void* processEnds) {
  if (reason == DLL_PROCESS_ATTACH) windows::ThisModule(module);
  // A host that unloads the library lives on: it gets back the memory, 70 KiB, that the compiler's run time sets aside
  // for exceptions when there is no other.
  if (reason == DLL_PROCESS_DETACH && !processEnds) __gnu_cxx::__freeres();
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  return Door([&] {
    if (!object) return E_POINTER;
    *object = nullptr;
    return IsEqualCLSID(classId, __uuidof(::cPellora)) ? ole::ClassFactory<windows::ComPellora>::Create(id, object)
                                                       : CLASS_E_CLASSNOTAVAILABLE;
  });
}

STDAPI DllCanUnloadNow() { return ole::ModuleReference::Count() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return ChangeRegistration(true, {}); }

STDAPI DllUnregisterServer() { return ChangeRegistration(false, {}); }

// "regsvr32 /n /i:user" registers for the user alone, which needs no rights on the machine.
STDAPI DllInstall(BOOL install, PCWSTR commandLine) {
  return Door([&] {
    const InstallRequest request(commandLine ? commandLine : L"");
    const HRESULT code = ChangeRegistration(install, request.word);
    if (FAILED(code) && !request.report.empty()) WriteReport(request.report);
    return code;
  });
}
