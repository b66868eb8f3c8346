#include "platform/windows/forms/OptionButton.h"

namespace pellora::windows {
namespace {

DWORD GroupStyle(const pellora::OptionButton& option) { return option.Group().front() == &option ? WS_GROUP : 0u; }

int DirectionOf(WPARAM key) {
  switch (key) {
    case VK_UP:
    case VK_LEFT: return -1;
    case VK_DOWN:
    case VK_RIGHT: return 1;
    default: return 0;
  }
}

}  // namespace

OptionButtonPeer::OptionButtonPeer(WindowsFormPeer& form, pellora::OptionButton& option) : PeerOf(form, option) {
  Make(WC_BUTTONW, BS_RADIOBUTTON | BS_NOTIFY | GroupStyle(option));
  // Otherwise the native button clicks itself when it is given the focus.
  Send(BM_SETDONTCLICK, TRUE);
  Changed(Aspect::Value);
}

WindowsControlPeer::KeyUse OptionButtonPeer::Use(const MSG& message) {
  if (message.message != WM_KEYDOWN) return KeyUse::Form;
  const auto direction = DirectionOf(message.wParam);
  if (direction == 0) return KeyUse::Form;
  Self().PeerStep(direction);
  return KeyUse::Done;
}

void OptionButtonPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Text) SetWindowCaption();
  if (aspect == Aspect::Value) Send(BM_SETCHECK, Self().Value() ? BST_CHECKED : BST_UNCHECKED);
}

void OptionButtonPeer::OnCommand(WORD code) {
  if (code == BN_CLICKED) Self().PeerClick();
  if (code == BN_SETFOCUS) FocusReported();
}

}  // namespace pellora::windows
