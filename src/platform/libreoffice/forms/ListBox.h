#pragma once

#include <com/sun/star/awt/XListBox.hpp>

#include "forms/ListControl.h"
#include "forms/ListItems.h"
#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

/// A list on view, or one that drops down and has no text of its own: the toolkit has one window for both.
class ListPeer : public PeerOf<pellora::ListControl> {
 public:
  ListPeer(UnoFormPeer& form, pellora::ListControl& list);

  /// Arrows, Enter and Escape are for a list that has dropped down.
  KeyUse Use(const awt::KeyEvent& key) override;

 protected:
  void Update(Aspect aspect) override;
  void OnReport(Happening happening) override;

 private:
  void FollowItems();
  void FollowChoice();

  uno::Reference<awt::XListBox> m_list;
  ListItems m_items;
};

}  // namespace pellora::libreoffice
