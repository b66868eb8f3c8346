#include "platform/windows/forms/WindowsToolkit.h"

#include <commctrl.h>

#include "platform/windows/forms/Dpi.h"
#include "platform/windows/forms/Form.h"
#include "platform/windows/forms/Modal.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows {
namespace {

MessageAnswer AnswerOf(int button) {
  switch (button) {
    case IDABORT: return MessageAnswer::Abort;
    case IDRETRY: return MessageAnswer::Retry;
    case IDIGNORE: return MessageAnswer::Ignore;
    default: return MessageAnswer::Ok;
  }
}

UINT StyleOf(const Message& message) {
  const UINT buttons = message.buttons == MessageButtons::AbortRetryIgnore ? MB_ABORTRETRYIGNORE : MB_OK;
  return buttons | (message.critical ? MB_ICONHAND : 0u) | MB_TASKMODAL;
}

}  // namespace

WindowsToolkit::WindowsToolkit(HINSTANCE module, int manifestResource)
    : m_module(module), m_manifest(module, manifestResource) {}

std::unique_ptr<FormPeer> WindowsToolkit::CreatePeer(Form& form) {
  const DpiScope pixels;
  const ManifestScope looks(m_manifest);
  const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  ::InitCommonControlsEx(&classes);
  return std::make_unique<WindowsFormPeer>(form, Surroundings{m_module, m_manifest, m_forcedDpi});
}

MessageAnswer WindowsToolkit::ShowMessage(const Message& message) {
  const DpiScope pixels;
  const ManifestScope looks(m_manifest);
  const auto over = WindowToBeOver();
  // The message box itself disables the window it is over and hands the activation back to it; that one has to be
  // enabled before the box goes, so it is left to the box.
  const OthersDisabled modal(over);
  // A message box without any title calls itself "Error".
  const auto title = message.title.empty() ? std::wstring(L" ") : Wide(message.title);
  return AnswerOf(::MessageBoxW(over, Wide(message.text).c_str(), title.c_str(), StyleOf(message)));
}

void WindowsToolkit::Beep() { ::MessageBeep(MB_OK); }

}  // namespace pellora::windows
