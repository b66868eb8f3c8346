#pragma once

#include <com/sun/star/reflection/InvocationTargetException.hpp>
#include <com/sun/star/script/BasicErrorException.hpp>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/XInterface.hpp>

#include "core/Error.h"

namespace pellora::libreoffice {

/// The failure that is being handled, whatever was thrown. Only within a catch block.
Error Caught() noexcept;

/// The number under which Basic can report a failure. Basic keeps the low 16 bits of a number only, and a number that
/// is none of its own is no error to it: the statement would silently count as done. Its own are passed on; every
/// other one becomes 440, "OLE Automation Error".
std::int32_t BasicNumber(std::int32_t number);

/// What Basic shows after its own text for the number: "source: description (number)", as its error object has no
/// room for the first and the last.
std::string BasicText(const Error& error);

/// As macros in Basic get it from a property they read, or from the making of an object.
com::sun::star::script::BasicErrorException ForBasic(
    const Error& error, const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& source);

/// As macros in Basic get it from everything else: in two wrappers, of which Basic shows nothing. The outer one is what
/// callers in other processes are prepared for; without the inner one, Basic would not look for its own number.
com::sun::star::reflection::InvocationTargetException WrappedForBasic(
    const Error& error, const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& source);

/// As compiled callers get it: with the number as it is.
com::sun::star::script::BasicErrorException ForCallers(
    const Error& error, const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& source);

}  // namespace pellora::libreoffice
