#pragma once

#include <memory>
#include <string>

#include "workbook/Document.h"

namespace pellora::workbook {

/// Automation codes of the error values that the stand-in itself makes.
inline constexpr std::int32_t kValueError = static_cast<std::int32_t>(0x800A07DF);
inline constexpr std::int32_t kReferenceError = static_cast<std::int32_t>(0x800A07E7);
inline constexpr std::int32_t kNameError = static_cast<std::int32_t>(0x800A07ED);
inline constexpr std::int32_t kNotAvailable = static_cast<std::int32_t>(0x800A07FA);

/// What a cell shows: a constant itself; of a link formula (a reference alone, such as "=TWS_Quotes!$E$7", "=A1" or
/// "=name") what the linked cell shows now, 0 when that is empty; of any other formula its last known result. A link
/// to several cells takes the one in the formula's own row or column. A ring of links shows 0, a missing sheet
/// #REF!, an unknown name #NAME?.
Variant Shown(const Document& document, const std::shared_ptr<Sheet>& sheet, CellPlace place);

/// A shown value as text, as the cell displays it.
std::string DisplayText(const Variant& value);

/// The text of an error value, such as "#N/A"; and the code of such a text, 0 when it is none.
std::string ErrorText(std::int32_t code);
std::int32_t ErrorCodeOf(std::string_view text);

}  // namespace pellora::workbook
