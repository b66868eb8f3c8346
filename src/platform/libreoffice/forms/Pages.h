#pragma once

#include <com/sun/star/awt/XControl.hpp>
#include <com/sun/star/awt/tab/XTabPageContainer.hpp>

#include "forms/Pages.h"
#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

/// A row of tabs with the frame below them, or no window at all when the control shows no tabs. The controls of the
/// pages are siblings in front of it.
class PagesPeer : public PeerOf<pellora::Pages> {
 public:
  PagesPeer(UnoFormPeer& form, pellora::Pages& pages);
  ~PagesPeer() override;

  /// The arrow keys go from tab to tab.
  bool Act(const awt::KeyEvent& key) override;

 protected:
  void Update(Aspect aspect) override;
  void OnReport(Happening happening) override;

 private:
  void MakeTabs();

  uno::Reference<awt::XControl> m_control;
  uno::Reference<awt::tab::XTabPageContainer> m_tabs;
};

}  // namespace pellora::libreoffice
