#include "platform/windows/forms/ListBox.h"

#include <algorithm>

#include "platform/windows/forms/Form.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows {

ListBoxPeer::ListBoxPeer(WindowsFormPeer& form, pellora::ListBox& list) : PeerOf(form, list) {
  Make(WC_LISTBOXW, LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_HASSTRINGS | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP,
       WS_EX_CLIENTEDGE);
  Changed(Aspect::Items);
  Changed(Aspect::ListIndex);
}

void ListBoxPeer::FontChanged() {
  PeerOf::FontChanged();
  FollowWidth();
}

void ListBoxPeer::FollowItems() {
  const auto changed = m_items.Follow(
      Self().Items(), [&](int index) { Send(LB_DELETESTRING, static_cast<WPARAM>(index)); },
      [&](int index, const std::string& item) {
        Send(LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(Wide(item).c_str()));
      });
  if (changed) FollowWidth();
}

void ListBoxPeer::FollowWidth() {
  int widest = 0;
  for (const auto& item : Self().Items())
    widest = std::max(widest, m_form.GetFonts().Measure(item, TextStyle::Normal).width);
  Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest + m_form.GetFonts().Scale(6)));
}

void ListBoxPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Items) FollowItems();
  if (aspect == Aspect::Items || aspect == Aspect::ListIndex)
    if (static_cast<int>(Send(LB_GETCURSEL)) != Self().ListIndex())
      Send(LB_SETCURSEL, static_cast<WPARAM>(Self().ListIndex()));
}

void ListBoxPeer::OnCommand(WORD code) {
  if (code == LBN_SELCHANGE) Self().PeerListIndex(static_cast<int>(Send(LB_GETCURSEL)));
  if (code == LBN_SETFOCUS) FocusReported();
}

}  // namespace pellora::windows
