#pragma once

#include "core/Error.h"
#include "platform/windows/ole/Owners.h"

/// Errors between the library and automation, in both directions, in one place.
namespace pellora::ole {

/// What went wrong in an outgoing call: the number as the host's macro language shows it, the text the object gave, and
/// where it gave none the standard one for the number, followed by the code when the number has no text of its own.
/// `info` counts for DISP_E_EXCEPTION; for every other code the thread's error object does, which is taken.
Error ErrorFromCode(HRESULT code, ExcepInfo* info = nullptr);

/// Raises that error when a system call has failed.
void Check(HRESULT code);

/// The failure that is being handled, for the caller of a late-bound method: the error record is filled in and
/// DISP_E_EXCEPTION answered; without a record, the code itself. Only within a catch block.
HRESULT ReportCaught(EXCEPINFO* info) noexcept;

/// The failure that is being handled, for the caller of a method of a direct interface: it becomes the thread's error
/// object, its code is answered. `source` stands where the failure names none. Only within a catch block.
HRESULT ReportCaught(REFIID interfaceId, std::string_view source) noexcept;

}  // namespace pellora::ole
