#include "platform/windows/forms/Modal.h"

#include <algorithm>
#include <utility>

namespace pellora::windows {
namespace {

struct Search {
  HWND apart;
  std::vector<HWND> found;
};

bool BelongsTo(HWND window, HWND owner) {
  for (; window; window = ::GetWindow(window, GW_OWNER))
    if (window == owner) return true;
  return false;
}

// Forms and message boxes alike are of the system's class of dialogs.
bool IsDialog(HWND window) { return ::GetClassLongPtrW(window, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG); }

// Only visible windows can take input. Hidden ones stay as they are: among them are the lists of combo boxes and the
// tool tips, which must come up enabled.
BOOL CALLBACK CollectEnabled(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  const auto takesInput = ::IsWindowVisible(window) && ::IsWindowEnabled(window);
  if (takesInput && !(search.apart && BelongsTo(window, search.apart))) search.found.push_back(window);
  return TRUE;
}

std::vector<HWND> EnabledWindowsOfThread(HWND apart) {
  Search search{apart, {}};
  ::EnumThreadWindows(::GetCurrentThreadId(), &CollectEnabled, reinterpret_cast<LPARAM>(&search));
  return std::move(search.found);
}

}  // namespace

HWND WindowToBeOver() {
  if (const auto active = ::GetActiveWindow(); active && ::IsWindowVisible(active)) return active;
  for (const auto window : EnabledWindowsOfThread(nullptr))
    if (::GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) return window;
  return nullptr;
}

HWND WindowInUse(HWND window) {
  if (::IsWindowEnabled(window)) return window;
  auto dialogs = EnabledWindowsOfThread(nullptr);
  // Tool tips and the lists of combo boxes belong to a dialog too.
  std::erase_if(dialogs, [](HWND other) { return !IsDialog(other); });
  const auto over =
      std::find_if(dialogs.begin(), dialogs.end(), [window](HWND other) { return BelongsTo(other, window); });
  if (over != dialogs.end()) return *over;
  return dialogs.empty() ? nullptr : dialogs.front();
}

OthersDisabled::OthersDisabled(HWND apart) : m_disabled(EnabledWindowsOfThread(apart)) {
  for (const auto window : m_disabled) ::EnableWindow(window, FALSE);
}

void OthersDisabled::Enable() {
  for (const auto window : std::exchange(m_disabled, {}))
    if (::IsWindow(window)) ::EnableWindow(window, TRUE);
}

}  // namespace pellora::windows
