#include "platform/libreoffice/uno/UnoObject.h"

#include "platform/libreoffice/uno/UnoDispatch.h"

namespace pellora::libreoffice {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::XInterface;

DispatchPtr ToDispatch(const Reference<XInterface>& object, const Reference<css::uno::XComponentContext>& context) {
  return object.is() ? std::make_shared<UnoDispatch>(object, context) : nullptr;
}

Reference<XInterface> FromDispatch(const DispatchPtr& object) {
  const auto* shown = dynamic_cast<const UnoDispatch*>(object.get());
  return shown ? shown->object() : Reference<XInterface>();
}

}  // namespace pellora::libreoffice
