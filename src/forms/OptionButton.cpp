#include "forms/OptionButton.h"

namespace pellora {

OptionButton::OptionButton(Container& parent, std::string_view name, std::string_view caption)
    : Control(&parent, ControlKind::OptionButton, name) {
  Caption(caption);
}

void OptionButton::Value(bool value) {
  if (m_value == value) return;
  if (value) DeselectOthers();
  m_value = value;
  Tell(Aspect::Value);
  if (value) Raise(Click);
}

bool OptionButton::TabStop() const {
  const OptionButton* first = nullptr;
  for (const auto* option : Group()) {
    if (!option->Usable()) continue;
    if (option->m_value) return option == this;
    if (!first) first = option;
  }
  return first == this;
}

std::vector<OptionButton*> OptionButton::Group() const {
  std::vector<OptionButton*> group;
  for (auto* control : Parent()->Children())
    if (control->Kind() == ControlKind::OptionButton) group.push_back(static_cast<OptionButton*>(control));
  return group;
}

void OptionButton::PeerClick() {
  if (Usable()) Value(true);
}

void OptionButton::DeselectOthers() {
  for (auto* option : Group())
    if (option != this) option->Value(false);
}

}  // namespace pellora
