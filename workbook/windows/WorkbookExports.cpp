#include <iterator>
#include <string>

#include "platform/windows/ole/ClassFactory.h"
#include "workbook/windows/WorkbookClass.h"

// The doors of the module and its entries in the registry.
namespace {

using namespace pellora;

constexpr const wchar_t* kProgId = L"PelloraWorkbook.Application";
constexpr const wchar_t* kClassName = L"Pellora embedded workbook";
constexpr const wchar_t* kClasses = L"Software\\Classes\\";

HINSTANCE theModule = nullptr;

std::wstring ModulePath() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(theModule, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

std::wstring ClassText() {
  wchar_t text[40];
  StringFromGUID2(workbook::kWorkbookClass, text, static_cast<int>(std::size(text)));
  return text;
}

bool Write(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  return RegSetKeyValueW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str(), name, REG_SZ, text.c_str(), size) ==
         ERROR_SUCCESS;
}

bool Remove(const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str());
  return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

bool RegisterAll() {
  const std::wstring classKey = L"CLSID\\" + ClassText(), progId = kProgId;
  return Write(classKey, nullptr, kClassName) && Write(classKey + L"\\InprocServer32", nullptr, ModulePath()) &&
         Write(classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment") &&
         Write(classKey + L"\\ProgID", nullptr, progId) && Write(progId, nullptr, kClassName) &&
         Write(progId + L"\\CLSID", nullptr, ClassText());
}

bool UnregisterAll() {
  const bool classGone = Remove(L"CLSID\\" + ClassText());
  return Remove(kProgId) && classGone;
}

template <class Body>
HRESULT Registry(Body body) noexcept {
  try {
    return body() ? S_OK : SELFREG_E_CLASS;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) theModule = module;
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (!IsEqualCLSID(classId, workbook::kWorkbookClass)) return CLASS_E_CLASSNOTAVAILABLE;
  try {
    return ole::ClassFactory<workbook::WorkbookClass>::Create(id, object);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

STDAPI DllCanUnloadNow() { return ole::ModuleReference::Count() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return Registry(RegisterAll); }

STDAPI DllUnregisterServer() { return Registry(UnregisterAll); }
