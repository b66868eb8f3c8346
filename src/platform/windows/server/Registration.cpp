#include "platform/windows/server/Registration.h"

#include <string>
#include <vector>

#include "Pellora_idl.h"
#include "platform/windows/ole/Failure.h"
#include "platform/windows/server/Module.h"
#include "platform/windows/services/RegKey.h"

namespace pellora::windows {
namespace {

constexpr const wchar_t* kProgId = L"Pellora.cPellora";
constexpr const wchar_t* kVersionedProgId = L"Pellora.cPellora.1";
constexpr const wchar_t* kClassName = L"Pellora.cPellora";
constexpr const wchar_t* kClasses = L"Software\\Classes\\";
constexpr const wchar_t* kLibraryName = L"Vantix user interface library";

// The system's own marshaller of interfaces that a type library describes.
constexpr const wchar_t* kTypeLibraryMarshaller = L"{00020424-0000-0000-C000-000000000046}";

// Classes and interfaces have a place for each bitness, names and type libraries one for both. The type library's file
// is noted by bitness.
constexpr bool kIs64Bit = sizeof(void*) == 8;
constexpr const wchar_t* kSystem = kIs64Bit ? L"win64" : L"win32";
constexpr REGSAM kOtherBitness = kIs64Bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

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
std::wstring InterfaceKey() { return L"Interface\\" + GuidText(__uuidof(::_cPellora)); }
std::wstring LibraryKey() { return L"TypeLib\\" + GuidText(LIBID_Pellora); }
std::wstring LibraryFileKey() { return LibraryKey() + L"\\1.0\\0\\" + kSystem; }

std::vector<Entry> Entries() {
  const std::wstring clsid = GuidText(__uuidof(::cPellora)), classKey = ClassKey(), interfaceKey = InterfaceKey();
  const std::wstring progId = kProgId, versionedProgId = kVersionedProgId, libraryId = GuidText(LIBID_Pellora);
  return {
      {classKey, nullptr, kClassName},
      {classKey + L"\\InprocServer32", nullptr, ModulePath()},
      {classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {classKey + L"\\ProgID", nullptr, versionedProgId},
      {classKey + L"\\VersionIndependentProgID", nullptr, progId},
      {classKey + L"\\TypeLib", nullptr, libraryId},
      {classKey + L"\\Version", nullptr, L"1.0"},
      {classKey + L"\\Programmable", nullptr, L""},
      {progId, nullptr, kClassName},
      {progId + L"\\CLSID", nullptr, clsid},
      {progId + L"\\CurVer", nullptr, versionedProgId},
      {versionedProgId, nullptr, kClassName},
      {versionedProgId + L"\\CLSID", nullptr, clsid},
      {LibraryKey() + L"\\1.0", nullptr, kLibraryName},
      {LibraryKey() + L"\\1.0\\FLAGS", nullptr, L"0"},
      {LibraryFileKey(), nullptr, ModulePath()},
      {interfaceKey, nullptr, L"_cPellora"},
      {interfaceKey + L"\\ProxyStubClsid32", nullptr, kTypeLibraryMarshaller},
      {interfaceKey + L"\\TypeLib", nullptr, libraryId},
      {interfaceKey + L"\\TypeLib", L"Version", L"1.0"},
  };
}

HKEY Root(Audience audience) { return audience == Audience::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE; }

// Raises the failure of a step with the key it happened at.
void CheckStatus(LSTATUS status, const std::wstring& key) {
  if (status == ERROR_SUCCESS) return;
  const Error error = ole::ErrorFromCode(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
  throw Error(error.Number(), error.Source(), error.Description() + " (" + ole::Narrow(kClasses + key) + ")");
}

void Write(HKEY root, const Entry& entry) {
  RegKey key;
  CheckStatus(RegCreateKeyExW(root, (kClasses + entry.key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE,
                              nullptr, key.put(), nullptr),
              entry.key);
  const auto size = static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t));
  CheckStatus(RegSetValueExW(key.get(), entry.name, 0, REG_SZ, reinterpret_cast<const BYTE*>(entry.text.c_str()), size),
              entry.key);
}

bool IsRegisteredForOtherBitness(HKEY root) {
  RegKey key;
  return RegOpenKeyExW(root, (kClasses + ClassKey()).c_str(), 0, KEY_READ | kOtherBitness, key.put()) == ERROR_SUCCESS;
}

// What goes, in this order. What both bitnesses share stays for the other one.
std::vector<std::wstring> KeysToRemove(HKEY root) {
  if (IsRegisteredForOtherBitness(root)) return {LibraryFileKey()};
  return {kProgId, kVersionedProgId, LibraryKey()};
}

struct Removal {
  HKEY root;
  LSTATUS status = ERROR_SUCCESS;
  std::wstring failedKey = {};

  // A key that is not there is no failure; a failure does not keep the other keys.
  void operator()(const std::wstring& key) {
    const LSTATUS result = RegDeleteTreeW(root, (kClasses + key).c_str());
    if (result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND || status != ERROR_SUCCESS) return;
    status = result;
    failedKey = key;
  }
};

// `view` is 0 for the library's own, or one of the system's words for another.
void RemoveIfEmpty(HKEY root, const wchar_t* name, REGSAM view) {
  const std::wstring path = std::wstring(kClasses) + name;
  RegKey key;
  DWORD keys = 1, values = 1;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, key.put()) == ERROR_SUCCESS)
    RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                     nullptr);
  if (keys + values == 0) RegDeleteKeyExW(root, path.c_str(), view, 0);
}

// A fresh user has none of the keys that hold those of classes, interfaces and libraries, nor the one in which those of
// 32-bit libraries are; an empty one is ours.
void RemoveEmptyParents(HKEY root) {
  for (const wchar_t* name : {L"CLSID", L"Interface", L"TypeLib"}) RemoveIfEmpty(root, name, 0);
  RemoveIfEmpty(root, L"Wow6432Node", KEY_WOW64_64KEY);
}

// On a system of one bitness both views show the same key, so the own class goes first.
Removal RemoveAll(HKEY root) {
  Removal remove{root};
  remove(ClassKey());
  remove(InterfaceKey());
  for (const std::wstring& key : KeysToRemove(root)) remove(key);
  if (root == HKEY_CURRENT_USER) RemoveEmptyParents(root);
  return remove;
}

}  // namespace

void Register(Audience audience) {
  const HKEY root = Root(audience);
  try {
    for (const Entry& entry : Entries()) Write(root, entry);
  } catch (...) {
    RemoveAll(root);
    throw;
  }
}

void Unregister(Audience audience) {
  const Removal removal = RemoveAll(Root(audience));
  CheckStatus(removal.status, removal.failedKey);
}

}  // namespace pellora::windows
