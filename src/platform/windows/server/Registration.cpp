#include "platform/windows/server/Registration.h"

#include <string>
#include <vector>

#include "Pellora_idl.h"
#include "platform/windows/ole/Failure.h"
#include "platform/windows/server/LibraryState.h"
#include "platform/windows/server/Module.h"
#include "platform/windows/services/RegKey.h"

// The import library has them, the headers of the cross compiler do not.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID locale, SYSKIND system);
}

namespace pellora::windows {
namespace {

constexpr const wchar_t* kProgId = L"Pellora.cPellora";
constexpr const wchar_t* kVersionedProgId = L"Pellora.cPellora.1";
constexpr const wchar_t* kClassName = L"Pellora.cPellora";
constexpr const wchar_t* kClasses = L"Software\\Classes\\";
constexpr WORD kMajor = 1;
constexpr WORD kMinor = 0;
constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

struct Entry {
  std::wstring key;
  const wchar_t* name;
  std::wstring text;
};

std::wstring GuidText(REFGUID id) {
  wchar_t text[40];
  StringFromGUID2(id, text, static_cast<int>(std::size(text)));
  return text;
}

std::wstring ClassKey() { return L"CLSID\\" + GuidText(__uuidof(::cPellora)); }

std::vector<Entry> Entries() {
  const std::wstring clsid = GuidText(__uuidof(::cPellora)), classKey = ClassKey();
  const std::wstring progId = kProgId, versionedProgId = kVersionedProgId;
  return {
      {classKey, nullptr, kClassName},
      {classKey + L"\\InprocServer32", nullptr, ModulePath()},
      {classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {classKey + L"\\ProgID", nullptr, versionedProgId},
      {classKey + L"\\VersionIndependentProgID", nullptr, progId},
      {classKey + L"\\TypeLib", nullptr, GuidText(LIBID_Pellora)},
      {classKey + L"\\Version", nullptr, L"1.0"},
      {classKey + L"\\Programmable", nullptr, L""},
      {progId, nullptr, kClassName},
      {progId + L"\\CLSID", nullptr, clsid},
      {progId + L"\\CurVer", nullptr, versionedProgId},
      {versionedProgId, nullptr, kClassName},
      {versionedProgId + L"\\CLSID", nullptr, clsid},
  };
}

HKEY Root(Audience audience) { return audience == Audience::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE; }

void CheckStatus(LSTATUS status) { ole::Check(HRESULT_FROM_WIN32(static_cast<DWORD>(status))); }

void Write(HKEY root, const Entry& entry) {
  RegKey key;
  CheckStatus(RegCreateKeyExW(root, (kClasses + entry.key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE,
                              nullptr, key.put(), nullptr));
  const auto size = static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t));
  CheckStatus(
      RegSetValueExW(key.get(), entry.name, 0, REG_SZ, reinterpret_cast<const BYTE*>(entry.text.c_str()), size));
}

LSTATUS Remove(HKEY root, const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(root, (kClasses + key).c_str());
  return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

void RegisterTypes(Audience audience) {
  const auto library = LoadOwnTypeLibrary();
  std::wstring path = ModulePath();
  ole::Check(audience == Audience::User ? RegisterTypeLibForUser(library.get(), path.data(), nullptr)
                                        : RegisterTypeLib(library.get(), path.data(), nullptr));
}

// A library that is not registered is no failure here.
void UnregisterTypes(Audience audience) {
  if (audience == Audience::User)
    UnRegisterTypeLibForUser(LIBID_Pellora, kMajor, kMinor, LOCALE_NEUTRAL, kSystem);
  else
    UnRegisterTypeLib(LIBID_Pellora, kMajor, kMinor, LOCALE_NEUTRAL, kSystem);
}

LSTATUS RemoveAll(Audience audience) {
  UnregisterTypes(audience);
  LSTATUS first = ERROR_SUCCESS;
  for (const std::wstring& key : {ClassKey(), std::wstring(kProgId), std::wstring(kVersionedProgId)})
    if (const LSTATUS status = Remove(Root(audience), key); first == ERROR_SUCCESS) first = status;
  return first;
}

}  // namespace

void Register(Audience audience) {
  try {
    for (const Entry& entry : Entries()) Write(Root(audience), entry);
    RegisterTypes(audience);
  } catch (...) {
    RemoveAll(audience);
    throw;
  }
}

void Unregister(Audience audience) { CheckStatus(RemoveAll(audience)); }

}  // namespace pellora::windows
