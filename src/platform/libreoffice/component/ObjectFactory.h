#pragma once

#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/implbase2.hxx>

namespace pellora::libreoffice {

/// Makes `CreateObject("Pellora.cPellora")` and `New Pellora.cPellora` work: Basic asks the service of this name for
/// the objects of another system's automation, and on this system nobody else provides it. Knows the one class, in any
/// letter case, and answers nothing for every other name, which Basic reports as 323.
///
/// Raises nothing: Basic does not expect it here, and the office program would end. A class that cannot be made is
/// answered like an unknown one.
class ObjectFactory final
    : public cppu::WeakImplHelper2<com::sun::star::lang::XMultiServiceFactory, com::sun::star::lang::XServiceInfo> {
 public:
  using Context = com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>;

  explicit ObjectFactory(const Context& context) : m_context(context) {}

  static rtl::OUString ImplementationName();
  static rtl::OUString ServiceName();

  com::sun::star::uno::Reference<com::sun::star::uno::XInterface> SAL_CALL
  createInstance(const rtl::OUString& name) override;
  com::sun::star::uno::Reference<com::sun::star::uno::XInterface> SAL_CALL createInstanceWithArguments(
      const rtl::OUString& name, const com::sun::star::uno::Sequence<com::sun::star::uno::Any>& arguments) override;
  com::sun::star::uno::Sequence<rtl::OUString> SAL_CALL getAvailableServiceNames() override;

  rtl::OUString SAL_CALL getImplementationName() override { return ImplementationName(); }
  sal_Bool SAL_CALL supportsService(const rtl::OUString& name) override { return name == ServiceName(); }
  com::sun::star::uno::Sequence<rtl::OUString> SAL_CALL getSupportedServiceNames() override;

 private:
  Context m_context;
};

}  // namespace pellora::libreoffice
