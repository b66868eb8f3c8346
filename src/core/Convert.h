#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/Variant.h"

namespace pellora {

/// Conversions between kinds of values, with the rules of automation and the user's locale. Unless a line says
/// otherwise: empty converts to "", 0 and false; null raises 94; error values, arrays, objects and texts that do not
/// read as the wanted kind raise 13 (type mismatch); a number that does not fit raises 6 (overflow).

/// Numbers and dates in the user's locale, booleans as "True" and "False".
std::string ToText(const Variant& value);
double ToDouble(const Variant& value);
/// Halves round to the even neighbour.
std::int32_t ToLong(const Variant& value);
std::int16_t ToInteger(const Variant& value);
/// Any number but 0 is true; a text must read "True", "False" (any case) or as a number.
bool ToBoolean(const Variant& value);
/// The object held; nothing for an empty reference. Raises 424 (object required) for anything that is no object.
DispatchPtr ToObject(const Variant& value);

/// A text as a number; raises 13 when it is not numeric.
double TextToDouble(std::string_view text);
/// The platform's general numeric test: false for an empty text.
bool IsNumeric(std::string_view text);
/// The number at the beginning of a text, blanks passed over, 0 where there is none; independent of the locale
/// (point as separator), and never an error. "4" gives 4, "1abc" gives 1, "x" gives 0.
double Val(std::string_view text);

}  // namespace pellora
