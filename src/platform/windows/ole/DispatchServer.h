#pragma once

#include <atomic>

#include "core/Dispatch.h"
#include "platform/windows/ole/ModuleReference.h"
#include "platform/windows/ole/Owners.h"

namespace pellora::ole {

/// Shows any `Dispatch` as an automation object: the one generic adapter. It counts its references, keeps the object
/// it shows and its module alive, and destroys itself with the last reference. One object is shown by one server at a
/// time, so that automation's test for the same object holds.
///
/// Member ids are handed out per name, letter case apart, one table for the module. Id 0, the default member, is
/// `_Default` where the object has it, otherwise `Value`. A use that may be a property or a method alike (an expression
/// of a macro) arrives as `CallKind::Get`, so an object answers its methods to that kind too.
///
/// Failures fill the caller's error record. Bad input (no parameters, named arguments other than a put's value, counts
/// that do not fit) answers a code and runs nothing. Outputs are written on success only.
class DispatchServer final : public IDispatch {
 public:
  /// The server that shows `object`, made when there is none. `object` must not be null.
  static ComPtr<IDispatch> Show(const DispatchPtr& object);

  /// The object behind a server of this module, null for any other automation object.
  static DispatchPtr Original(IDispatch* object);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override;
  ULONG STDMETHODCALLTYPE Release() noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* info, UINT* badArgument) noexcept override;

 private:
  explicit DispatchServer(DispatchPtr object);
  // Only `Release` ends a server's life.
  ~DispatchServer();

  std::string_view NameOf(DISPID id) const;
  Variant Use(DISPID id, CallKind kind, const DISPPARAMS& parameters);

  DispatchPtr m_object;
  std::atomic<ULONG> m_references{1};
  ModuleReference m_module;
};

}  // namespace pellora::ole
