#pragma once

#include <com/sun/star/uno/Any.hxx>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <com/sun/star/uno/XInterface.hpp>

#include "core/Dispatch.h"

namespace pellora::libreoffice {

/// Shows an object of the office program's own spreadsheet object model as a late-bound one: members are found by
/// introspection, letter case apart, values are converted, and what this host does differently is put right by the
/// table in Differences.h. Null for nothing. Objects that its members answer are shown alike. An application is bound
/// to the document that is active now, and is gone when that is closed; without one, it works on whichever is active
/// when it is used, if any.
DispatchPtr ToDispatch(const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& object,
                       const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context);

/// The object behind one that `ToDispatch` made; null for any other.
com::sun::star::uno::Reference<com::sun::star::uno::XInterface> FromDispatch(const DispatchPtr& object);

/// Values in both directions. Objects keep their identity. Raise 13 (type mismatch) for what has no counterpart.
Variant FromAny(const com::sun::star::uno::Any& value,
                const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context);
com::sun::star::uno::Any ToAny(const Variant& value);

}  // namespace pellora::libreoffice
