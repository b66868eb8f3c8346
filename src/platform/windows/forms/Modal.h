#pragma once

#include <vector>

#include "platform/windows/Windows.h"

namespace pellora::windows {

/// The top-level window of this thread over which a dialog belongs: the active one, otherwise the topmost that a user
/// could be working in. Null when the thread shows none.
HWND WindowToBeOver();

/// The dialog or message that a user can work in while `window` is up: itself, or, where it is disabled, what is up
/// over it. Null when neither can be used: a disabled window would only take the keyboard away.
HWND WindowInUse(HWND window);

/// Disables every window of this thread that could take input, except `apart` and what belongs to it, and enables
/// exactly those again at the end. Windows that were disabled before stay so; windows gone meanwhile are passed over.
class OthersDisabled {
 public:
  explicit OthersDisabled(HWND apart);
  ~OthersDisabled() { Enable(); }
  OthersDisabled(const OthersDisabled&) = delete;
  OthersDisabled& operator=(const OthersDisabled&) = delete;

  /// Enables them now.
  void Enable();

 private:
  std::vector<HWND> m_disabled;
};

}  // namespace pellora::windows
