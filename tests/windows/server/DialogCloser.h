#pragma once

#include <atomic>
#include <thread>

#include "platform/windows/Windows.h"

namespace pellora::windows::test {

/// A user who closes every dialog of the thread that made this one as soon as it is up, until this object is gone.
class DialogCloser {
 public:
  DialogCloser() : m_thread(GetCurrentThreadId()), m_stop(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    m_user = std::thread([this] {
      while (WaitForSingleObject(m_stop, 10) == WAIT_TIMEOUT)
        EnumThreadWindows(m_thread, CloseVisible, reinterpret_cast<LPARAM>(this));
    });
  }
  ~DialogCloser() {
    SetEvent(m_stop);
    m_user.join();
    CloseHandle(m_stop);
  }
  DialogCloser(const DialogCloser&) = delete;
  DialogCloser& operator=(const DialogCloser&) = delete;

 private:
  // A named static function: the 32-bit compiler makes no callback of that calling convention from a lambda.
  static BOOL CALLBACK CloseVisible(HWND window, LPARAM) {
    if (IsWindowVisible(window)) PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
  }

  DWORD m_thread;
  HANDLE m_stop;
  std::thread m_user;
};

}  // namespace pellora::windows::test
