#include "platform/libreoffice/component/ObjectFactory.h"

#include "platform/libreoffice/component/UnoPellora.h"

namespace pellora::libreoffice {

namespace uno = com::sun::star::uno;

namespace {

uno::Sequence<rtl::OUString> One(const rtl::OUString& name) { return {&name, 1}; }

}  // namespace

rtl::OUString ObjectFactory::ImplementationName() { return "Pellora.ObjectFactory"; }
rtl::OUString ObjectFactory::ServiceName() { return "com.sun.star.bridge.OleObjectFactory"; }

uno::Reference<uno::XInterface> ObjectFactory::createInstance(const rtl::OUString& name) {
  if (!name.equalsIgnoreAsciiCase(UnoPellora::ServiceName())) return {};
  try {
    return static_cast<cppu::OWeakObject*>(UnoPellora::Create(m_context).get());
  } catch (...) {
    return {};
  }
}

uno::Reference<uno::XInterface> ObjectFactory::createInstanceWithArguments(const rtl::OUString& name,
                                                                           const uno::Sequence<uno::Any>&) {
  return createInstance(name);
}

uno::Sequence<rtl::OUString> ObjectFactory::getAvailableServiceNames() { return One(UnoPellora::ServiceName()); }
uno::Sequence<rtl::OUString> ObjectFactory::getSupportedServiceNames() { return One(ServiceName()); }

}  // namespace pellora::libreoffice
