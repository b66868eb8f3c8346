#pragma once

#include <atomic>
#include <memory>

#include "Pellora_idl.h"
#include "automation/cPellora.h"
#include "platform/windows/ole/ModuleReference.h"
#include "platform/windows/server/LibraryState.h"

namespace pellora::windows {

/// `cPellora` as an automation object: called by name, through its own interface, or with its types known. It only
/// translates; what the members mean is in automation/cPellora.h. Every failure leaves as its code, with number,
/// source and description in the thread's error object or the caller's error record.
///
/// By-reference arguments may be variables of the member's types, of other types that convert, variants, or literals;
/// one that does not convert is refused with type mismatch and nothing happens. `CreateNewProject` writes its
/// arguments only when it answers true. `AddNewSymbol` writes all of them; when it fails, what it had changed by then,
/// so that a call that is refused because a dialog is open leaves them as they are. Results are written on success
/// only.
class ComPellora final : public _cPellora, public ISupportErrorInfo {
 public:
  /// Makes the object and answers an interface of it. Raises 0x80040064, "cPellora component failure", of source
  /// "Pellora.cPellora.Class_Initialize" when that fails, for whatever reason.
  static HRESULT Create(REFIID id, void** object);
  /// Gives what is being caught to the creator, with number, source and description.
  static HRESULT ReportFailedCreation() noexcept;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override;
  ULONG STDMETHODCALLTYPE Release() noexcept override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* info, UINT* badArgument) noexcept override;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) noexcept override;

  HRESULT STDMETHODCALLTYPE get_m_ObjExcelApplication(IDispatch** application) noexcept override;
  HRESULT STDMETHODCALLTYPE putref_m_ObjExcelApplication(IDispatch* application) noexcept override;
  HRESULT STDMETHODCALLTYPE put_m_ObjExcelApplication(IDispatch* application) noexcept override;
  HRESULT STDMETHODCALLTYPE get_RefEditInputs(BSTR* address) noexcept override;
  HRESULT STDMETHODCALLTYPE put_RefEditInputs(BSTR address) noexcept override;
  HRESULT STDMETHODCALLTYPE get_ExcelApplication(VARIANT* application) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ExcelApplication(VARIANT application) noexcept override;
  HRESULT STDMETHODCALLTYPE putref_ExcelApplication(VARIANT application) noexcept override;
  HRESULT STDMETHODCALLTYPE CreateNewProject(short* AskPrice, short* AskSize, short* BidPrice, short* BidSize,
                                             short* ClosePrice, short* HighTick, short* LastPrice, short* LastSize,
                                             short* LowTick, short* Volume, VARIANT_BOOL* confirmed) noexcept override;
  HRESULT STDMETHODCALLTYPE AddNewSymbol(BSTR* Symbol, BSTR* TypeSymbol, BSTR* Expiry, double* Strike, BSTR* Right,
                                         double* Multiplier, BSTR* Exchange, BSTR* PrimaryExchange, BSTR* TypeCurrency,
                                         short* ComTypeListIndex, short* outcome) noexcept override;
  HRESULT STDMETHODCALLTYPE ShowRefEditInterface(BSTR* outcome) noexcept override;
  HRESULT STDMETHODCALLTYPE UnloadfrmMaster() noexcept override;

 private:
  ComPellora() = default;
  ~ComPellora() = default;

  template <class Body>
  HRESULT Run(Body&& body) noexcept;
  HRESULT CallMember(const Member& member, const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* info,
                     UINT* badArgument);

  // In the order of making: the object needs the platform, also while it is destroyed.
  ole::ModuleReference m_module;
  std::shared_ptr<LibraryState> m_state = LibraryState::Acquire();
  cPellora m_object;
  std::atomic<ULONG> m_references{1};
};

}  // namespace pellora::windows
