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

// The document that an application handed in by a macro works on, which is the active one. The macro's own is not asked
// for: the program crashes when it was closed before, and has no way to tell.
Reference<css::frame::XModel> DocumentOfApplication(const Shown& application) {
  const Variant first(1), corner("A1");
  try {
    const auto sheet = Member(Member(application, "activeworkbook"), "worksheets", {&first, 1});
    return DocumentOf(*Member(sheet, "range", {&corner, 1}));
  } catch (...) {
    // Its first sheet may be one without cells.
    return {};
  }
}

}  // namespace

DispatchPtr ToDispatch(const Reference<XInterface>& object, const Reference<css::uno::XComponentContext>& context) {
  if (!object.is()) return nullptr;
  return Guarded([&]() -> DispatchPtr {
    const auto shown = std::make_shared<UnoDispatch>(object, std::make_shared<Session>(Session{context, {}, {}}));
    if (shown->type().Kind() != ObjectKind::Application) return shown;
    if (!HasDocument(*shown)) {
      // The workbook was just closed, and the next one is not in front yet: to be asked again before each use.
      shown->seeClosings(ClosedDocuments(context) - 1);
      return shown;
    }
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
