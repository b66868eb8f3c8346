#include "platform/libreoffice/uno/UnoObject.h"

#include "platform/libreoffice/uno/Documents.h"
#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/UnoDispatch.h"
#include "platform/libreoffice/uno/Values.h"

namespace pellora::libreoffice {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::XInterface;

namespace {

using Shown = std::shared_ptr<UnoDispatch>;

Shown Member(const Shown& object, std::string_view name, std::span<const Variant> arguments = {}) {
  return std::dynamic_pointer_cast<UnoDispatch>(ObjectIn(object->Plain(name, CallKind::Get, arguments)));
}

// The document that an application handed in by a macro belongs to: the macro's own, or else the active one. Once it is
// closed the program crashes on the application, also while others are open, so it must be known.
Reference<css::frame::XModel> DocumentOfApplication(const Shown& application) {
  const Variant first(1), corner("A1");
  for (const char* book : {"thisworkbook", "activeworkbook"}) try {
      const auto sheet = Member(Member(application, book), "worksheets", {&first, 1});
      if (const auto document = DocumentOf(*Member(sheet, "range", {&corner, 1})); document.is()) return document;
    } catch (...) {
      // An application without that workbook.
    }
  return {};
}

}  // namespace

DispatchPtr ToDispatch(const Reference<XInterface>& object, const Reference<css::uno::XComponentContext>& context) {
  if (!object.is()) return nullptr;
  return Guarded([&]() -> DispatchPtr {
    const auto shown = std::make_shared<UnoDispatch>(object, std::make_shared<Session>(Session{context, {}, {}}));
    if (shown->type().Kind() != ObjectKind::Application) return shown;
    const auto document = DocumentOfApplication(shown);
    return std::make_shared<UnoDispatch>(object, std::make_shared<Session>(Session{context, document, {}}));
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
