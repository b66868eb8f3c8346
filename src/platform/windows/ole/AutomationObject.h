#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/Dispatch.h"
#include "platform/windows/ole/Owners.h"

struct IDispatchEx;

namespace pellora::ole {

/// Stands around every call that leaves the library through an `AutomationObject`, its release included, so that what
/// the host expects of its thread (its dpi awareness) is back in place while its code runs. Calls nest.
class CallHook {
 public:
  virtual ~CallHook() = default;
  /// Runs `call` once. A failure passes through.
  virtual void Around(const std::function<void()>& call) = 0;
};

/// Installs the hook of this module, null to take it away. The caller keeps it alive.
void InstallCallHook(CallHook* hook);

/// A late-bound object of automation behind the library's own interface. It holds one count of the object for as long
/// as it lives. Wrapping an object twice is fine; both wrappers are the same object to automation.
///
/// Every call carries the locale 0x0409, as the host's macro language does. Member ids are looked up once for all
/// objects of a type when the object tells its type by its type information and that knows the name; otherwise for
/// each call. Objects whose members come and go (`IDispatchEx`: script objects) always are asked.
class AutomationObject : public Dispatch {
 public:
  /// Shares `object`, which must not be null.
  explicit AutomationObject(IDispatch* object);
  ~AutomationObject() override;

  /// Raises `Error` as `ErrorFromCode` in Failure.h has it. `Get` is made as "property or method", as a macro's
  /// expression is.
  Variant Invoke(std::string_view name, CallKind kind, std::span<const Variant> arguments) override;
  bool Has(std::string_view name) override;

  IDispatch* get() const { return m_object.get(); }

  /// How many times ids were asked for in this module, for tests and measurements.
  static unsigned long Lookups();

 private:
  std::optional<DISPID> IdOf(std::string_view name);
  HRESULT LookUp(std::string_view name, DISPID* id);
  Variant Use(std::string_view name, CallKind kind, std::span<const Variant> arguments);
  HRESULT Call(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* info);
  void LearnType();

  ComPtr<IDispatch> m_object;
  ComPtr<IDispatchEx> m_extended;
  ComPtr<ITypeInfo> m_type;
  std::optional<GUID> m_typeId;
  bool m_typeKnown = false;
};

}  // namespace pellora::ole
