#include "workbook/windows/WorkbookClass.h"

#include "platform/windows/ole/Convert.h"
#include "platform/windows/ole/Failure.h"
#include "workbook/Host.h"

namespace pellora::workbook {

HRESULT WorkbookClass::Create(REFIID id, void** object) {
  // The objects keep what they need of the host; it has nothing to do for a script.
  return ole::ToDispatch(Host().Application())->QueryInterface(id, object);
}

HRESULT WorkbookClass::ReportFailedCreation() noexcept { return ole::ReportCaught(static_cast<EXCEPINFO*>(nullptr)); }

}  // namespace pellora::workbook
