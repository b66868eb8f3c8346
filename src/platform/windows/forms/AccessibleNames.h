#pragma once

#include <string_view>

#include "platform/windows/forms/Owners.h"
// After the platform's header, which it builds on.
#include <oleacc.h>

namespace pellora::windows {

inline void ReleaseInterface(IUnknown* object) { object->Release(); }

/// Tells assistive programs what to call a window whose own text does not say it. Does nothing where the system, or
/// Wine, offers no such service.
class AccessibleNames {
 public:
  AccessibleNames();

  void Set(HWND window, std::string_view name);
  /// To be called before the window goes.
  void Clear(HWND window);

 private:
  Owner<IAccPropServices*, &ReleaseInterface> m_services;
};

}  // namespace pellora::windows
