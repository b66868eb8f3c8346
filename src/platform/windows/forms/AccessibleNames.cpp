#include "platform/windows/forms/AccessibleNames.h"

#include "platform/windows/forms/WideText.h"

namespace pellora::windows {
namespace {

constexpr auto kClientArea = static_cast<DWORD>(OBJID_CLIENT);

IAccPropServices* Services() {
  void* services = nullptr;
  const auto made =
      ::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices, &services);
  return made >= 0 ? static_cast<IAccPropServices*>(services) : nullptr;
}

}  // namespace

AccessibleNames::AccessibleNames() : m_services(Services()) {}

void AccessibleNames::Set(HWND window, std::string_view name) {
  if (!m_services) return;
  m_services.get()->SetHwndPropStr(window, kClientArea, CHILDID_SELF, PROPID_ACC_NAME, Wide(name).c_str());
  // One that reads the window already asks anew.
  ::NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, window, OBJID_CLIENT, CHILDID_SELF);
}

void AccessibleNames::Clear(HWND window) {
  if (m_services) m_services.get()->ClearHwndProps(window, kClientArea, CHILDID_SELF, &PROPID_ACC_NAME, 1);
}

}  // namespace pellora::windows
