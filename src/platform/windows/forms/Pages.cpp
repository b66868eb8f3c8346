#include "platform/windows/forms/Pages.h"

#include <uxtheme.h>

#include "platform/windows/forms/WideText.h"

namespace pellora::windows {

PagesPeer::PagesPeer(WindowsFormPeer& form, pellora::Pages& pages) : PeerOf(form, pages) {
  if (!pages.ShowTabs()) return;
  Make(WC_TABCONTROLW, WS_TABSTOP | WS_CLIPSIBLINGS | TCS_TABS);
  AddTabs();
  Changed(Aspect::Page);
}

void PagesPeer::AddTabs() {
  for (const auto* page : Self().Children()) {
    auto caption = NativeCaption(page->Caption(), page->AccessKey());
    TCITEMW tab{};
    tab.mask = TCIF_TEXT;
    tab.pszText = caption.data();
    Send(TCM_INSERTITEMW, static_cast<WPARAM>(Send(TCM_GETITEMCOUNT)), reinterpret_cast<LPARAM>(&tab));
  }
}

void PagesPeer::Placed() {
  // Behind the controls that stand on it, so that it does not paint over them.
  if (Window()) ::SetWindowPos(Window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void PagesPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Page && Window()) Send(TCM_SETCURSEL, static_cast<WPARAM>(Self().CurrentPage()));
}

LRESULT PagesPeer::OnNotify(const NMHDR& header) {
  if (header.code == NM_SETFOCUS) FocusReported();
  if (header.code == TCN_SELCHANGE) Self().PeerPage(static_cast<int>(Send(TCM_GETCURSEL)));
  return 0;
}

HBRUSH BackgroundOnTabs(const pellora::Control& control) {
  for (auto* c = &control; c->Parent(); c = c->Parent()) {
    const auto onTabs = c->Kind() == ControlKind::Page && static_cast<const pellora::Pages&>(*c->Parent()).ShowTabs();
    if (onTabs) return ::IsThemeActive() ? ::GetSysColorBrush(COLOR_WINDOW) : nullptr;
  }
  return nullptr;
}

}  // namespace pellora::windows
