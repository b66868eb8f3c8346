#include "forms/OptionButton.h"

#include <algorithm>

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

void OptionButton::PeerStep(int direction) {
  auto group = Group();
  std::erase_if(group, [](const OptionButton* option) { return !option->Usable(); });
  const auto self = std::find(group.begin(), group.end(), this);
  if (self == group.end()) return;
  const auto count = static_cast<int>(group.size());
  const auto next = (static_cast<int>(self - group.begin()) + direction + count) % count;
  auto& option = *group[static_cast<std::size_t>(next)];
  option.SetFocus();
  option.PeerClick();
}

void OptionButton::DeselectOthers() {
  for (auto* option : Group())
    if (option != this) option->Value(false);
}

}  // namespace pellora
