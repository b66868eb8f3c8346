#include "platform/windows/forms/TextBox.h"

#include "platform/windows/forms/CentredEdit.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows {
namespace {

DWORD StyleOf(const pellora::TextBox& box) {
  const DWORD lines = box.MultiLine() ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL : ES_AUTOHSCROLL;
  return lines | (box.ReadOnly() ? ES_READONLY : 0u) | WS_TABSTOP;
}

}  // namespace

TextBoxPeer::TextBoxPeer(WindowsFormPeer& form, pellora::TextBox& box) : PeerOf(form, box) {
  Make(WC_EDITW, StyleOf(box), WS_EX_CLIENTEDGE);
  if (!box.MultiLine()) CentreTextOf(Window());
  // As much as memory holds; several lines stop at 32 KB otherwise.
  Send(EM_SETLIMITTEXT);
  Changed(Aspect::Text);
  if (box.AllSelected()) Changed(Aspect::Selection);
}

WindowsControlPeer::KeyUse TextBoxPeer::Use(const MSG& message) {
  const auto isControlA = message.message == WM_KEYDOWN && message.wParam == 'A' && ::GetKeyState(VK_CONTROL) < 0 &&
                          ::GetKeyState(VK_MENU) >= 0;
  if (isControlA) Send(EM_SETSEL, 0, -1);
  return isControlA ? KeyUse::Done : KeyUse::Form;
}

void TextBoxPeer::TabbedTo() { Send(EM_SETSEL, 0, -1); }

void TextBoxPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Text) ::SetWindowTextW(Window(), Wide(Self().Text()).c_str());
  if (aspect == Aspect::Selection) Send(EM_SETSEL, 0, -1);
}

void TextBoxPeer::OnCommand(WORD code) {
  if (code == EN_CHANGE) Self().PeerText(Narrow(TextOf(Window())));
  if (code == EN_SETFOCUS) FocusReported();
}

}  // namespace pellora::windows
