#pragma once

#include <string>
#include <vector>

#include "forms/Control.h"

namespace pellora {

/// What combo boxes and list boxes share: items counted from 0, and the chosen one, -1 for none.
class ListControl : public Control {
 public:
  const std::vector<std::string>& Items() const { return m_items; }
  int ListCount() const { return static_cast<int>(m_items.size()); }
  /// The item at an index; raises 381 (invalid property array index) outside.
  const std::string& List(int index) const;
  /// Appends, or inserts before `index`; the chosen item stays chosen. Raises 5 outside.
  virtual void AddItem(std::string_view item, int index = -1);
  /// Removes; when it was the chosen one, none is. Raises 5 outside.
  virtual void RemoveItem(int index);
  virtual void Clear();

  int ListIndex() const { return m_listIndex; }
  /// Raises `Click` when another item becomes chosen (not for -1); 380 outside.
  virtual void ListIndex(int index);

  bool TabStop() const override { return true; }

  std::function<void()> Click;

  /// The user has chosen an item.
  void PeerListIndex(int index);

 protected:
  using Control::Control;
  virtual void Chosen() {}
  std::vector<std::string> m_items;
  int m_listIndex = -1;
};

}  // namespace pellora
