#include "forms/Control.h"

#include <algorithm>
#include <utility>

#include "core/Error.h"
#include "core/Text.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/Pages.h"

namespace pellora {
namespace {

bool IsContainer(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::Frame:
    case ControlKind::Panel:
    case ControlKind::Pages:
    case ControlKind::Page: return true;
    default: return false;
  }
}

void Collect(const Container& container, std::vector<Control*>& found) {
  for (auto* child : container.Children()) {
    found.push_back(child);
    if (IsContainer(*child)) Collect(static_cast<const Container&>(*child), found);
  }
}

bool IsOnShownPage(const Control& control) {
  if (control.Kind() != ControlKind::Page) return true;
  const auto& pages = static_cast<const Pages&>(*control.Parent());
  return pages.Children()[static_cast<std::size_t>(pages.CurrentPage())] == &control;
}

/// The label that stands right before a control among its neighbours, or null.
const Control* LabelBefore(const Control& control) {
  if (!control.Parent()) return nullptr;
  const auto& neighbours = control.Parent()->Children();
  const auto self = std::find(neighbours.begin(), neighbours.end(), &control);
  if (self == neighbours.begin() || self == neighbours.end()) return nullptr;
  const auto* before = *std::prev(self);
  return before->Kind() == ControlKind::Label ? before : nullptr;
}

}  // namespace

Control::Control(Container* parent, ControlKind kind, std::string_view name)
    : m_parent(parent), m_kind(kind), m_name(name) {
  if (m_parent) m_parent->m_children.push_back(this);
}

Control::~Control() {
  if (m_parent) std::erase(m_parent->m_children, this);
}

bool Control::IsWithin(const Control& other) const {
  for (auto* control = this; control; control = control->m_parent)
    if (control == &other) return true;
  return false;
}

Form& Control::Owner() const {
  // Only a form is made without a parent.
  auto* top = const_cast<Control*>(this);
  while (top->m_parent) top = top->m_parent;
  return static_cast<Form&>(*top);
}

void Control::Caption(std::string_view caption) {
  if (m_caption == caption) return;
  m_caption = caption;
  Tell(Aspect::Text);
}

void Control::Enabled(bool enabled) {
  if (m_enabled == enabled) return;
  m_enabled = enabled;
  Tell(Aspect::Enabled);
}

void Control::Visible(bool visible) {
  if (m_visible == visible) return;
  m_visible = visible;
  Tell(Aspect::Visible);
}

bool Control::EnabledByAll() const {
  for (auto* control = this; control->m_parent; control = control->m_parent)
    if (!control->m_enabled) return false;
  return true;
}

bool Control::ShownByAll() const {
  for (auto* control = this; control->m_parent; control = control->m_parent)
    if (!control->m_visible || !IsOnShownPage(*control)) return false;
  return true;
}

bool Control::Usable() const {
  const Control& form = Owner();
  return form.m_enabled && form.m_visible && EnabledByAll() && ShownByAll();
}

void Control::ToolTip(std::string_view text) {
  if (m_toolTip == text) return;
  m_toolTip = text;
  Tell(Aspect::ToolTip);
}

std::string Control::AccessibleName() const {
  if (!m_accessibleName.empty()) return m_accessibleName;
  const auto* label = m_caption.empty() ? LabelBefore(*this) : nullptr;
  return DisplayText(label ? label->Caption() : m_caption);
}

bool Control::TakesFocus() const { return Usable() && (TabStop() || m_kind == ControlKind::OptionButton); }

void Control::SetFocus() {
  if (!TakesFocus()) throw Error(errors::InvalidCall);
  Owner().ActiveControl(this);
  if (m_peer) m_peer->Focus();
}

void Control::Bounds(const Rect& bounds) {
  if (m_bounds == bounds) return;
  m_bounds = bounds;
  Tell(Aspect::Bounds);
}

void Control::Tell(Aspect aspect) {
  if (m_peer) m_peer->Changed(aspect);
}

std::vector<Control*> Container::Descendants() const {
  std::vector<Control*> found;
  Collect(*this, found);
  return found;
}

Control* Container::FindControl(std::string_view name) const {
  const auto all = Descendants();
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const Control* c) { return EqualAsciiNoCase(c->Name(), name); });
  return found == all.end() ? nullptr : *found;
}

std::string DisplayText(std::string_view caption) { return Replace(caption, "&&", "&"); }

}  // namespace pellora
