#pragma once

#include <atomic>

#include "platform/windows/ole/ModuleReference.h"
#include "platform/windows/ole/Owners.h"

namespace pellora::workbook {

/// The class "PelloraWorkbook.Application". Its own identity: it has nothing to do with the library's.
// {32F39E82-D31C-47B0-8700-5CB9AF5BA8F7}
inline constexpr CLSID kWorkbookClass = {0x32F39E82, 0xD31C, 0x47B0, {0x87, 0x00, 0x5C, 0xB9, 0xAF, 0x5B, 0xA8, 0xF7}};

/// Makes application objects of the embedded workbook, each with a workbook of its own.
class WorkbookFactory final : public IClassFactory {
 public:
  /// Answers an interface of a new factory.
  static HRESULT Create(REFIID id, void** object);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override;
  ULONG STDMETHODCALLTYPE Release() noexcept override;
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override;

 private:
  WorkbookFactory() = default;
  ~WorkbookFactory() = default;

  std::atomic<ULONG> m_references{1};
  ole::ModuleReference m_module;
};

}  // namespace pellora::workbook
