#include "platform/windows/forms/ComboBox.h"

#include <algorithm>

#include "platform/windows/forms/CentredEdit.h"
#include "platform/windows/forms/Form.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows {
namespace {

/// The first item that begins with a text, letter case apart, or null.
const std::string* ItemBeginningWith(const std::vector<std::string>& items, const std::wstring& text) {
  const auto length = static_cast<int>(text.size());
  const auto begins = [&](const std::string& item) {
    const auto wide = Wide(item);
    return wide.size() >= text.size() &&
           ::CompareStringOrdinal(wide.data(), length, text.data(), length, TRUE) == CSTR_EQUAL;
  };
  const auto found = std::find_if(items.begin(), items.end(), begins);
  return found == items.end() ? nullptr : &*found;
}

}  // namespace

ComboBoxPeer::ComboBoxPeer(WindowsFormPeer& form, pellora::ComboBox& combo) : PeerOf(form, combo) {
  const DWORD style = Editable() ? CBS_DROPDOWN | CBS_AUTOHSCROLL : CBS_DROPDOWNLIST;
  Make(WC_COMBOBOXW, style | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP);
  if (const auto inner = InnerWindow()) CentreTextOf(inner);
  Changed(Aspect::Items);
  Changed(Aspect::Text);
}

WindowsControlPeer::KeyUse ComboBoxPeer::Use(const MSG& message) {
  if (message.message == WM_CHAR) m_typing = message.wParam >= L' ' && message.wParam != 0x7F;
  const auto arrow = message.wParam == VK_UP || message.wParam == VK_DOWN;
  if (message.message != WM_KEYDOWN && !(message.message == WM_SYSKEYDOWN && arrow)) return KeyUse::Form;
  m_typing = false;
  // Tab closes the list and moves on.
  return message.wParam != VK_TAB && Send(CB_GETDROPPEDSTATE) ? KeyUse::Native : KeyUse::Form;
}

void ComboBoxPeer::TabbedTo() {
  if (Editable()) Send(CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
}

void ComboBoxPeer::Placed() {
  FitHeight();
  DropSelectionWithoutFocus();
}

void ComboBoxPeer::DropSelectionWithoutFocus() {
  // A combo that is resized, or given a choice, marks its text as if it had the keyboard.
  if (!::IsChild(Window(), ::GetFocus())) DropSelection();
}

void ComboBoxPeer::DropSelection() {
  if (Editable()) Send(CB_SETEDITSEL, 0, MAKELPARAM(-1, 0));
}

void ComboBoxPeer::FontChanged() {
  PeerOf::FontChanged();
  FitHeight();
  DropSelectionWithoutFocus();
}

HWND ComboBoxPeer::InnerWindow() const {
  COMBOBOXINFO info{};
  info.cbSize = sizeof(info);
  return Editable() && ::GetComboBoxInfo(Window(), &info) ? info.hwndItem : nullptr;
}

void ComboBoxPeer::FitHeight() {
  // The field sizes itself by its font; the layout wants it level with the text boxes. Wine adds to what it is asked
  // for, so what is still wrong is asked for once more.
  if (Self().Bounds().Height() <= 0) return;
  auto field = static_cast<int>(Send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
  for (int attempt = 0; attempt < 2 && MissingHeight() != 0; ++attempt) {
    field += MissingHeight();
    Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(field, 1));
  }
}

int ComboBoxPeer::MissingHeight() const {
  RECT place{};
  ::GetWindowRect(Window(), &place);
  return Self().Bounds().Height() - static_cast<int>(place.bottom - place.top);
}

void ComboBoxPeer::FollowItems() {
  m_items.Follow(
      Self().Items(), [&](int index) { Send(CB_DELETESTRING, static_cast<WPARAM>(index)); },
      [&](int index, const std::string& item) {
        Send(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(Wide(item).c_str()));
      });
}

void ComboBoxPeer::FollowChoice() {
  // Choosing in the native list changes the text beside it, so the text comes last.
  if (static_cast<int>(Send(CB_GETCURSEL)) != Self().ListIndex())
    Send(CB_SETCURSEL, static_cast<WPARAM>(Self().ListIndex()));
  const auto text = Wide(Self().Text());
  if (Editable() && TextOf(Window()) != text) ::SetWindowTextW(Window(), text.c_str());
  DropSelectionWithoutFocus();
}

void ComboBoxPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Items) FollowItems();
  if (aspect == Aspect::Items || aspect == Aspect::ListIndex || aspect == Aspect::Text) FollowChoice();
}

void ComboBoxPeer::Complete() {
  const auto typed = TextOf(Window());
  const auto caret = static_cast<std::size_t>(HIWORD(Send(CB_GETEDITSEL)));
  const auto* item = typed.empty() || caret != typed.size() ? nullptr : ItemBeginningWith(Self().Items(), typed);
  if (!item) return;
  const auto rest = Wide(*item).substr(typed.size());
  const Silence silence(*this);
  // The letters typed stay as they were typed.
  ::SetWindowTextW(Window(), (typed + rest).c_str());
  Send(CB_SETEDITSEL, 0, MAKELPARAM(typed.size(), -1));
}

void ComboBoxPeer::ListClosed() {
  // Opening a native list takes over the item that begins with the text, without saying so; what is shown is what
  // counts.
  if (Editable())
    Self().PeerText(Narrow(TextOf(Window())));
  else if (const auto shown = static_cast<int>(Send(CB_GETCURSEL)); shown != Self().ListIndex())
    Self().PeerListIndex(shown);
}

void ComboBoxPeer::OnCommand(WORD code) {
  switch (code) {
    case CBN_EDITCHANGE:
      if (m_typing) Complete();
      Self().PeerText(Narrow(TextOf(Window())));
      break;
    case CBN_SELCHANGE: Self().PeerListIndex(static_cast<int>(Send(CB_GETCURSEL))); break;
    case CBN_CLOSEUP: ListClosed(); break;
    case CBN_SETFOCUS: FocusReported(); break;
    // Wine leaves the mark in place.
    case CBN_KILLFOCUS: DropSelection(); break;
    default: break;
  }
}

}  // namespace pellora::windows
