#include "platform/libreoffice/uno/Application.h"

#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>

#include "core/Convert.h"
#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/UnoDispatch.h"

namespace pellora::libreoffice {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;

DispatchPtr ApplicationOf(const Reference<css::frame::XModel>& document,
                          const Reference<css::uno::XComponentContext>& context) {
  return Guarded([&]() -> DispatchPtr {
    const Reference<css::sheet::XSpreadsheetDocument> book(document, css::uno::UNO_QUERY);
    if (!book.is()) Refuse("The document is not a spreadsheet");
    const Any argument(document);
    const auto globals = context->getServiceManager()->createInstanceWithArgumentsAndContext(
        "ooo.vba.excel.Globals", css::uno::Sequence<Any>(&argument, 1), context);
    if (!globals.is()) Refuse("This installation has no object model for macros");
    const auto session = std::make_shared<Session>(Session{context, document, globals});
    return ToObject(std::make_shared<UnoDispatch>(globals, session)->Invoke("Excel", CallKind::Get, {}));
  });
}

}  // namespace pellora::libreoffice
