#pragma once

#include <cstdint>

#include "forms/Control.h"

namespace pellora {

/// A box to tick: 0 unchecked, 1 checked, 2 greyed.
class CheckBox : public Control {
 public:
  CheckBox(Container& parent, std::string_view name, std::string_view caption);

  std::int16_t Value() const { return m_value; }
  /// Raises `Click` when the value differs; 380 (invalid property value) for anything but 0, 1 and 2.
  void Value(std::int16_t value);

  bool TabStop() const override { return true; }

  std::function<void()> Click;

  /// The user has clicked: unchecked becomes checked, anything else unchecked.
  void PeerClick();

 private:
  std::int16_t m_value = 0;
};

}  // namespace pellora
