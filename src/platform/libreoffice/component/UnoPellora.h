#pragma once

#include <Pellora/XcPellora.hpp>
#include <atomic>
#include <com/sun/star/beans/XExactName.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/script/XInvocation2.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/implbase3.hxx>
#include <memory>
#include <mutex>
#include <rtl/ref.hxx>

#include "automation/cPellora.h"
#include "core/Error.h"
#include "platform/libreoffice/component/LibraryState.h"
#include "platform/libreoffice/component/MemberTable.h"

namespace pellora::libreoffice {

class CallArguments;

using UnoPelloraBase = cppu::WeakImplHelper3<com::sun::star::script::XInvocation2, com::sun::star::beans::XExactName,
                                             com::sun::star::lang::XServiceInfo>;

/// `cPellora` as an object of the office program: by name, as Basic and Python use it, and through its own interface
/// for compiled callers. It only translates; what the members mean is in automation/cPellora.h.
///
/// Its own interface is answered when it is asked for, and not listed among its types: Basic would then call through
/// the program's reflection, which replaces every failure of a property by one of its own, and writes all variables
/// back, converted, also where nothing is to be written.
///
/// By-reference arguments may be variables of any type, elements of arrays, variants, or literals; a value that does
/// not convert is refused with 13 (type mismatch) and nothing happens. `CreateNewProject` writes its arguments only
/// when it answers true. `AddNewSymbol` writes all of them. A call that fails writes nothing: the program hands no
/// arguments back with a failure.
///
/// A macro may run while a dialog is open and call the same method again; it is refused like every call then. Basic
/// would answer it by itself, with nothing, drop the variables of the first call and crash when those are written: see
/// `getExactName`.
///
/// Failures reach Basic with a number that it can hold (`BasicNumber`), and with source, description and number in the
/// text; `ErrNumber`, `ErrSource` and `ErrDescription` have them apart and whole.
///
/// Macros run on the program's main thread; those that another process starts, and that process's own calls, on any.
/// The library is used by one of them at a time: a call on another thread while one is carried out, a dialog being open
/// for instance, fails with 5 (invalid procedure call), or 0x80040064 from the creation. Nobody waits for another one.
/// When the office program ends, the object within is let go, and calls fail from then on; as long as a call is carried
/// out, the program is kept from ending.
class UnoPellora final : public UnoPelloraBase, public ::Pellora::XcPellora, private PlatformUser {
 public:
  using Context = com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>;

  /// Makes the object. Raises `Error` 0x80040064, "cPellora component failure", of source
  /// "Pellora.cPellora.Class_Initialize" when that fails, for whatever reason.
  static rtl::Reference<UnoPellora> Create(const Context& context);

  /// `state` keeps the platform, and is null where another one is installed anyway.
  UnoPellora(const Context& context, std::shared_ptr<LibraryState> state);
  ~UnoPellora() override;

  static rtl::OUString ImplementationName();
  static rtl::OUString ServiceName();

  // XInterface
  com::sun::star::uno::Any SAL_CALL queryInterface(const com::sun::star::uno::Type& type) override;
  void SAL_CALL acquire() noexcept override { UnoPelloraBase::acquire(); }
  void SAL_CALL release() noexcept override { UnoPelloraBase::release(); }

  // XInvocation2
  com::sun::star::uno::Reference<com::sun::star::beans::XIntrospectionAccess> SAL_CALL getIntrospection() override;
  com::sun::star::uno::Any SAL_CALL invoke(const rtl::OUString& name,
                                           const com::sun::star::uno::Sequence<com::sun::star::uno::Any>& given,
                                           com::sun::star::uno::Sequence<sal_Int16>& positions,
                                           com::sun::star::uno::Sequence<com::sun::star::uno::Any>& written) override;
  void SAL_CALL setValue(const rtl::OUString& name, const com::sun::star::uno::Any& value) override;
  com::sun::star::uno::Any SAL_CALL getValue(const rtl::OUString& name) override;
  sal_Bool SAL_CALL hasMethod(const rtl::OUString& name) override;
  sal_Bool SAL_CALL hasProperty(const rtl::OUString& name) override;
  com::sun::star::uno::Sequence<rtl::OUString> SAL_CALL getMemberNames() override;
  com::sun::star::uno::Sequence<com::sun::star::script::InvocationInfo> SAL_CALL getInfo() override;
  com::sun::star::script::InvocationInfo SAL_CALL getInfoForName(const rtl::OUString& name, sal_Bool exact) override;

  // XExactName
  /// The name under which Basic keeps a member that it has looked for. A method has one that no macro writes, so that
  /// it is never found again: each call gets an entry of its own, with variables of its own. Basic has room for one
  /// call at a time in an entry. Such entries go with Basic's object, which costs a few hundred bytes a call.
  rtl::OUString SAL_CALL getExactName(const rtl::OUString& approximateName) override;

  // XServiceInfo
  rtl::OUString SAL_CALL getImplementationName() override { return ImplementationName(); }
  sal_Bool SAL_CALL supportsService(const rtl::OUString& name) override { return name == ServiceName(); }
  com::sun::star::uno::Sequence<rtl::OUString> SAL_CALL getSupportedServiceNames() override;

  // XcPellora
  com::sun::star::uno::Reference<com::sun::star::uno::XInterface> SAL_CALL getObjExcelApplication() override;
  void SAL_CALL
  setObjExcelApplication(const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& application) override;
  rtl::OUString SAL_CALL getRefEditInputs() override;
  void SAL_CALL setRefEditInputs(const rtl::OUString& address) override;
  com::sun::star::uno::Any SAL_CALL getExcelApplication() override;
  void SAL_CALL setExcelApplication(const com::sun::star::uno::Any& application) override;
  sal_Bool SAL_CALL CreateNewProject(sal_Int16& AskPrice, sal_Int16& AskSize, sal_Int16& BidPrice, sal_Int16& BidSize,
                                     sal_Int16& ClosePrice, sal_Int16& HighTick, sal_Int16& LastPrice,
                                     sal_Int16& LastSize, sal_Int16& LowTick, sal_Int16& Volume) override;
  sal_Int16 SAL_CALL AddNewSymbol(rtl::OUString& Symbol, rtl::OUString& TypeSymbol, rtl::OUString& Expiry,
                                  double& Strike, rtl::OUString& Right, double& Multiplier, rtl::OUString& Exchange,
                                  rtl::OUString& PrimaryExchange, rtl::OUString& TypeCurrency,
                                  sal_Int16& ComTypeListIndex) override;
  rtl::OUString SAL_CALL ShowRefEditInterface() override;
  void SAL_CALL UnloadfrmMaster() override;
  sal_Int32 SAL_CALL getErrNumber() override;
  rtl::OUString SAL_CALL getErrSource() override;
  rtl::OUString SAL_CALL getErrDescription() override;

 private:
  class Succeeding;

  /// Runs a member's body, and remembers how it ended. Failures leave as they are, as `Error`.
  template <class Body>
  auto Run(Body&& body);
  /// The same, with failures as Basic, or as compiled callers get them.
  template <class Body>
  auto RunForBasic(Body&& body);
  template <class Body>
  auto RunForCallers(Body&& body);

  bool IsRunning() const override { return m_running > 0; }
  std::unique_ptr<cPellora> HandOver() noexcept override;

  void Remember(const Error& last);
  Error Last();

  /// The object within. Raises 5 (invalid procedure call) when the office program has ended.
  cPellora& Object();
  com::sun::star::uno::Reference<com::sun::star::uno::XInterface> Self();

  com::sun::star::uno::Any Call(const ClassMember& member, CallArguments& arguments, bool& writesBack);
  com::sun::star::uno::Any CallCreateNewProject(CallArguments& arguments, bool& writesBack);
  com::sun::star::uno::Any CallAddNewSymbol(CallArguments& arguments);
  com::sun::star::uno::Any Get(MemberId id);
  void Put(MemberId id, const com::sun::star::uno::Any& value);

  Context m_context;
  // In the order of making: the object needs the platform, also while it is destroyed.
  std::shared_ptr<LibraryState> m_state;
  std::unique_ptr<cPellora> m_object;
  std::atomic<int> m_running{0};
  std::mutex m_lastMutex;
  Error m_last{0, {}, {}};
  LibraryState::Membership m_membership;
};

}  // namespace pellora::libreoffice
