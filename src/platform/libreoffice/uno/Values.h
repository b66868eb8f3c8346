#pragma once

#include <com/sun/star/uno/TypeClass.hpp>

#include "core/Variant.h"
#include "platform/libreoffice/uno/Session.h"
#include "platform/libreoffice/uno/UnoObject.h"

/// Values between the library and the office program.
///
/// | office program | library |
/// |---|---|
/// | void | empty |
/// | a null reference of no particular interface | null |
/// | boolean | boolean |
/// | byte, short | 16-bit integer |
/// | unsigned short, long, enum | 32-bit integer |
/// | unsigned long, hyper | 32-bit integer where it fits, otherwise double |
/// | float, double, automation's currency | double |
/// | automation's date | date |
/// | char, string | text |
/// | automation's code | a missing argument for 0x80020004, otherwise an error value |
/// | interface | object, which may be nothing |
/// | sequence, also of sequences | array from 0, of one or two dimensions |
/// | the spreadsheet's array wrapper | array from 1 or from 0, as it says |
///
/// On the way back an integer that fits becomes a short, as the program's own macro language has it: some members take
/// nothing wider. A missing argument becomes void.
namespace pellora::libreoffice {

/// As `FromAny` in UnoObject.h; objects belong to the session.
Variant FromAny(const com::sun::star::uno::Any& value, const SessionPtr& session);

/// A value for a parameter or a property of that type: converted as a macro's argument is. Raises 13 or 6 when it does
/// not convert.
com::sun::star::uno::Any ToAnyOf(const Variant& value, com::sun::star::uno::TypeClass type);

/// The object that a value holds; raises 91 when it holds nothing and 424 when it holds no object.
DispatchPtr ObjectIn(const Variant& value);

}  // namespace pellora::libreoffice
