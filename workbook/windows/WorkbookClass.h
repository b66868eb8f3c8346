#pragma once

#include "platform/windows/ole/Owners.h"

namespace pellora::workbook {

/// The class "PelloraWorkbook.Application". Its own identity: it has nothing to do with the library's.
// {32F39E82-D31C-47B0-8700-5CB9AF5BA8F7}
inline constexpr CLSID kWorkbookClass = {0x32F39E82, 0xD31C, 0x47B0, {0x87, 0x00, 0x5C, 0xB9, 0xAF, 0x5B, 0xA8, 0xF7}};

/// Makes application objects of the embedded workbook, each with a workbook of its own.
struct WorkbookClass {
  static HRESULT Create(REFIID id, void** object);
  static HRESULT ReportFailedCreation() noexcept;
};

}  // namespace pellora::workbook
