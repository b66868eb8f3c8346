#pragma once

#include "forms/Pages.h"
#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

/// A row of tabs with the frame below them, or no window at all when the control shows no tabs. The controls of the
/// pages are siblings in front of it.
class PagesPeer : public PeerOf<pellora::Pages> {
 public:
  PagesPeer(UnoFormPeer& form, pellora::Pages& pages);
};

}  // namespace pellora::libreoffice
