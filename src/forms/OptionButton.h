#pragma once

#include <vector>

#include "forms/Control.h"

namespace pellora {

/// One of several choices in a container, of which at most one is selected. Tab stops at the selected one, or at
/// the first of the group when none is; the arrow keys move and select.
class OptionButton : public Control {
 public:
  OptionButton(Container& parent, std::string_view name, std::string_view caption);

  bool Value() const { return m_value; }
  /// Selecting deselects the others of the container and raises `Click` of this one only; deselecting raises nothing.
  void Value(bool value);

  bool TabStop() const override;

  /// The option buttons of the same container in the order of making, this one included.
  std::vector<OptionButton*> Group() const;

  std::function<void()> Click;

  /// The user has chosen this one.
  void PeerClick();
  /// The user has pressed an arrow key at this one: the next usable one of the group, or with -1 the one before, gets
  /// the focus and is chosen, round at the ends.
  void PeerStep(int direction);

 private:
  void DeselectOthers();

  bool m_value = false;
};

}  // namespace pellora
