#pragma once

#include "forms/ListBox.h"
#include "forms/ListItems.h"
#include "platform/windows/forms/Control.h"

namespace pellora::windows {

class ListBoxPeer : public PeerOf<pellora::ListBox> {
 public:
  ListBoxPeer(WindowsFormPeer& form, pellora::ListBox& list);

  void FontChanged() override;

 protected:
  void Update(Aspect aspect) override;
  void OnCommand(WORD code) override;

 private:
  void FollowItems();
  void FollowWidth();

  ListItems m_items;
};

}  // namespace pellora::windows
