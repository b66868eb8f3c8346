#pragma once

#include "forms/Pages.h"
#include "platform/windows/forms/Control.h"

namespace pellora::windows {

/// A row of tabs with the frame below them, or no window at all when the control shows no tabs. The controls of the
/// pages are siblings in front of it.
class PagesPeer : public PeerOf<pellora::Pages> {
 public:
  PagesPeer(WindowsFormPeer& form, pellora::Pages& pages);

  void Placed() override;

 protected:
  void Update(Aspect aspect) override;
  LRESULT OnNotify(const NMHDR& header) override;

 private:
  void AddTabs();
};

/// The brush behind controls that stand on a page with tabs, which is not the dialog's colour; null for other controls.
HBRUSH BackgroundOnTabs(const pellora::Control& control);

}  // namespace pellora::windows
