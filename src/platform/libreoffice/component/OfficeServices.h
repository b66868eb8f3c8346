#pragma once

#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <string>

#include "platform/libreoffice/services/LocaleFacts.h"

namespace pellora::libreoffice {

/// The facts of the locale that the office program formats numbers and dates in: the one of its settings, or the
/// system's. What the program does not tell keeps its default.
LocaleFacts OfficeLocale(const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context);

/// Opens a link in the program that the system has for it; false when that fails.
bool OpenLink(const std::string& link,
              const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context);

}  // namespace pellora::libreoffice
