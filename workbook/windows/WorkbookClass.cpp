#include "workbook/windows/WorkbookClass.h"

#include "platform/windows/ole/Convert.h"
#include "platform/windows/ole/Failure.h"
#include "workbook/Host.h"

namespace pellora::workbook {

HRESULT WorkbookClass::Create(REFIID id, void** object) {
  // The objects keep what they need of the host; it has nothing more to do for a script.
  Host host;
  // What there is of a user who picks ranges with the mouse.
  if (const wchar_t* picked = _wgetenv(L"PELLORA_PICK")) host.Pick(ole::Narrow(picked));
  return ole::ToDispatch(host.Application())->QueryInterface(id, object);
}

HRESULT WorkbookClass::ReportFailedCreation() noexcept { return ole::ReportCaught(static_cast<EXCEPINFO*>(nullptr)); }

}  // namespace pellora::workbook
