#include "forms/CheckBox.h"

#include "core/Error.h"
#include "forms/Refusals.h"

namespace pellora {

CheckBox::CheckBox(Container& parent, std::string_view name, std::string_view caption)
    : Control(&parent, ControlKind::CheckBox, name) {
  Caption(caption);
}

void CheckBox::Value(std::int16_t value) {
  if (value < 0 || value > 2) throw Error(errors::InvalidPropertyValue);
  if (m_value == value) return;
  m_value = value;
  Tell(Aspect::Value);
  Raise(Click);
}

void CheckBox::PeerClick() {
  if (Usable()) Value(m_value == 0 ? 1 : 0);
}

}  // namespace pellora
