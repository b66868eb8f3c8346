#include "platform/libreoffice/uno/UnoObject.h"

#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/UnoDispatch.h"
#include "platform/libreoffice/uno/Values.h"

namespace pellora::libreoffice {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::XInterface;

DispatchPtr ToDispatch(const Reference<XInterface>& object, const Reference<css::uno::XComponentContext>& context) {
  if (!object.is()) return nullptr;
  return Guarded([&]() -> DispatchPtr {
    return std::make_shared<UnoDispatch>(object, std::make_shared<Session>(Session{context, {}, {}}));
  });
}

Variant FromAny(const css::uno::Any& value, const Reference<css::uno::XComponentContext>& context) {
  return FromAny(value, std::make_shared<Session>(Session{context, {}, {}}));
}

Reference<XInterface> FromDispatch(const DispatchPtr& object) {
  const auto* shown = dynamic_cast<const UnoDispatch*>(object.get());
  return shown ? shown->object() : Reference<XInterface>();
}

}  // namespace pellora::libreoffice
