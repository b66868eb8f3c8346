// The entry points of the library, as Pellora.components names them. Each answers a new object, its reference counted
// for the caller.
#include <cppuhelper/weak.hxx>
#include <rtl/ref.hxx>

#include "platform/libreoffice/component/BasicErrors.h"
#include "platform/libreoffice/component/ObjectFactory.h"
#include "platform/libreoffice/component/UnoPellora.h"

namespace {

namespace uno = com::sun::star::uno;
namespace own = pellora::libreoffice;

template <class Object>
uno::XInterface* Acquired(const rtl::Reference<Object>& object) {
  object->acquire();
  return static_cast<cppu::OWeakObject*>(object.get());
}

}  // namespace

extern "C" SAL_DLLPUBLIC_EXPORT uno::XInterface* Pellora_cPellora_get(uno::XComponentContext* context,
                                                                      const uno::Sequence<uno::Any>&) {
  try {
    return Acquired(own::UnoPellora::Create(context));
  } catch (...) {
    throw own::ForBasic(own::Caught(), nullptr);
  }
}

extern "C" SAL_DLLPUBLIC_EXPORT uno::XInterface* Pellora_ObjectFactory_get(uno::XComponentContext* context,
                                                                           const uno::Sequence<uno::Any>&) {
  return Acquired(rtl::Reference<own::ObjectFactory>(new own::ObjectFactory(context)));
}
