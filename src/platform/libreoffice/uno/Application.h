#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include "core/Dispatch.h"

namespace pellora::libreoffice {

/// The `Application` of a spreadsheet document, as the document's own macros have it; works for any format and for a
/// document without macros. Raises 1004 for a document that is none of the spreadsheet.
DispatchPtr ApplicationOf(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                          const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context);

}  // namespace pellora::libreoffice
