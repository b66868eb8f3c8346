#pragma once

#include "core/Variant.h"
#include "platform/windows/ole/Owners.h"

/// Values between the library and automation.
///
/// | automation | library |
/// |---|---|
/// | VT_EMPTY, VT_NULL | empty, null |
/// | VT_BOOL | boolean |
/// | VT_I1, VT_UI1, VT_I2 | 16-bit integer |
/// | VT_UI2, VT_I4, VT_INT | 32-bit integer |
/// | VT_UI4, VT_UINT, VT_I8, VT_UI8 | 32-bit integer where it fits, otherwise double |
/// | VT_R4, VT_R8, VT_CY, VT_DECIMAL | double |
/// | VT_DATE | date |
/// | VT_BSTR | text |
/// | VT_ERROR | a missing argument for DISP_E_PARAMNOTFOUND, otherwise an error value with its code |
/// | VT_DISPATCH, VT_UNKNOWN | object, which may be nothing |
/// | VT_ARRAY of any of these, 1 or 2 dimensions | array with its lower bounds |
/// | VT_BYREF of any of these | the value referred to |
///
/// The way back gives VT_EMPTY, VT_NULL, VT_BOOL, VT_I2, VT_I4, VT_R8, VT_DATE, VT_BSTR, VT_ERROR, VT_DISPATCH and
/// VT_ARRAY|VT_VARIANT. An object that came from automation goes back as the very object it was; one of the library's
/// own is shown through a `DispatchServer`, and comes back as itself.
namespace pellora::ole {

/// Raises 13 (type mismatch) for what no value of the library can hold: an object without late binding, an array of
/// more dimensions, a null reference; 458 for types outside the table.
Variant FromVariant(const VARIANT& value);

/// Raises 7 (out of memory).
OleVariant ToVariant(const Variant& value);

/// As `ToVariant`, into an output argument: overwritten without a look at what it held, and only on success.
void ToVariant(const Variant& value, VARIANT* output);

/// Objects alone. Null is nothing. The answer of `ToDispatch` carries a count of its own.
DispatchPtr FromDispatch(IDispatch* object);
ComPtr<IDispatch> ToDispatch(const DispatchPtr& object);

}  // namespace pellora::ole
