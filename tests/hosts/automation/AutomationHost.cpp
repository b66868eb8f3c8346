#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/windows/ole/AutomationObject.h"
#include "platform/windows/ole/Failure.h"
#include "tests/hosts/SheetHost.h"
#include "workbook/windows/WorkbookClass.h"

namespace pellora::test {
namespace {

/// The library that lies in the root of the build tree, the program in a folder below it. Not registered: so that it is
/// the one built with the program.
class WorkbookLibrary {
 public:
  WorkbookLibrary() : m_module(LoadLibraryW(Path().c_str())) {
    if (!m_module) throw std::runtime_error("PelloraWorkbook.dll cannot be loaded");
  }
  WorkbookLibrary(const WorkbookLibrary&) = delete;
  WorkbookLibrary& operator=(const WorkbookLibrary&) = delete;
  ~WorkbookLibrary() { FreeLibrary(m_module); }

  /// A new application object, with a workbook of its own.
  ole::ComPtr<IDispatch> NewApplication() const {
    using GetClass = HRESULT WINAPI(REFCLSID, REFIID, void**);
    const auto door =
        reinterpret_cast<GetClass*>(reinterpret_cast<void*>(GetProcAddress(m_module, "DllGetClassObject")));
    ole::ComPtr<IClassFactory> factory;
    ole::Check(door(workbook::kWorkbookClass, IID_IClassFactory, reinterpret_cast<void**>(factory.put())));
    ole::ComPtr<IDispatch> application;
    ole::Check(factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(application.put())));
    return application;
  }

 private:
  static std::wstring Path() {
    wchar_t self[1024] = L"";
    GetModuleFileNameW(nullptr, self, 1024);
    return (std::filesystem::path(self).parent_path() / L"..\\PelloraWorkbook.dll").lexically_normal().wstring();
  }

  HMODULE m_module;
};

/// The embedded workbook as an automation object, reached as any spreadsheet program on Windows is.
class AutomationHost : public SheetHost {
 public:
  AutomationHost() { Fresh(); }

  std::string_view Name() const override { return "the embedded workbook through automation"; }
  DispatchPtr Fresh() override {
    return m_application = std::make_shared<ole::AutomationObject>(m_library.NewApplication().get());
  }
  DispatchPtr Application() override { return m_application; }

 private:
  // The last to go: objects of the library hold its code.
  WorkbookLibrary m_library;
  DispatchPtr m_application;
};

}  // namespace

SheetHost& TheHost() {
  static AutomationHost host;
  return host;
}

}  // namespace pellora::test
