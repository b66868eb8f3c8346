#include <algorithm>
#include <stdexcept>

#include "core/Text.h"
#include "forms/CheckBox.h"
#include "forms/ComboBox.h"
#include "forms/Grid.h"
#include "forms/ListControl.h"
#include "forms/OptionButton.h"
#include "forms/TextBox.h"
#include "platform/headless/Headless.h"
#include "platform/headless/HeadlessFormPeer.h"

namespace pellora::headless {
namespace {

[[noreturn]] void Cannot(std::string_view doing, std::string_view name) {
  throw std::logic_error("the user cannot " + std::string(doing) + " " + std::string(name));
}

/// Clicks what can be clicked; false for other kinds.
bool ClickOn(Control& control) {
  switch (control.Kind()) {
    case ControlKind::CommandButton: static_cast<CommandButton&>(control).PeerClick(); return true;
    case ControlKind::CheckBox: static_cast<CheckBox&>(control).PeerClick(); return true;
    case ControlKind::OptionButton: static_cast<OptionButton&>(control).PeerClick(); return true;
    default: return false;
  }
}

/// Replaces the text of what can be typed into; false for other kinds.
bool TypeOver(Control& control, std::string_view text) {
  if (control.Kind() == ControlKind::TextBox) {
    auto& box = static_cast<TextBox&>(control);
    if (box.ReadOnly()) return false;
    box.PeerText(text);
    return true;
  }
  if (control.Kind() != ControlKind::ComboBox) return false;
  auto& combo = static_cast<ComboBox&>(control);
  if (combo.Style() == ComboStyle::DropDownList) return false;
  combo.PeerText(text);
  return true;
}

/// Chooses the first item that begins with a text, as lists do when typed to.
bool ChooseByPrefix(Control& control, std::string_view text) {
  auto* list = dynamic_cast<ListControl*>(&control);
  if (!list) return false;
  for (int index = 0; index < list->ListCount(); ++index) {
    if (!EqualNoCase(std::string_view(list->List(index)).substr(0, text.size()), text)) continue;
    list->PeerListIndex(index);
    return true;
  }
  return false;
}

/// What an arrow key does at a control.
void Move(Control& control, int step) {
  if (auto* list = dynamic_cast<ListControl*>(&control)) {
    if (list->ListCount() > 0) list->PeerListIndex(std::clamp(list->ListIndex() + step, 0, list->ListCount() - 1));
  } else if (auto* grid = dynamic_cast<Grid*>(&control)) {
    if (grid->Rows() > 1) grid->PeerRow(std::clamp(grid->Row() + step, 1, grid->Rows() - 1), grid->Col());
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    option->PeerStep(step);
  }
}

}  // namespace

void UserAtForm::Click(std::string_view name) const {
  auto& control = Ready(name);
  if (control.TakesFocus()) control.SetFocus();
  if (!ClickOn(control)) Cannot("click", name);
}

void UserAtForm::Type(std::string_view name, std::string_view text) const {
  auto& control = Ready(name);
  control.SetFocus();
  if (!TypeOver(control, text)) Cannot("type into", name);
}

void UserAtForm::Choose(std::string_view name, std::string_view item) const {
  auto& control = Ready(name);
  auto* list = dynamic_cast<ListControl*>(&control);
  if (!list) Cannot("choose from", name);
  const auto found = std::find(list->Items().begin(), list->Items().end(), item);
  if (found == list->Items().end()) Cannot("find \"" + std::string(item) + "\" in", name);
  const auto index = static_cast<int>(found - list->Items().begin());
  list->SetFocus();
  list->PeerListIndex(index);
}

void UserAtForm::SelectRow(std::string_view name, int row, int column) const {
  auto* grid = dynamic_cast<Grid*>(&Ready(name));
  if (!grid || row < 1 || row >= grid->Rows() || column < 0 || column >= grid->Cols()) Cannot("select a row of", name);
  grid->SetFocus();
  grid->PeerRow(row, column);
}

void UserAtForm::PressTab(bool backwards) const {
  CheckShown();
  if (auto* next = m_form.NextTabStop(backwards)) next->SetFocus();
}

void UserAtForm::PressEnter() const { PressKey({Key::Enter}); }

void UserAtForm::PressEscape() const { PressKey({Key::Escape}); }

void UserAtForm::PressSpace() const { ClickOn(Focused()); }

void UserAtForm::PressKey(const KeyPress& press) const {
  CheckShown();
  auto* active = m_form.ActiveControl();
  if (m_form.PeerKey(press) || !active || !active->Usable()) return;
  if (press.key == Key::Up || press.key == Key::Down) Move(*active, press.key == Key::Up ? -1 : 1);
  if (press.key == Key::Delete && active->Kind() == ControlKind::TextBox &&
      static_cast<TextBox*>(active)->AllSelected())
    TypeOver(*active, "");
}

void UserAtForm::TypeHere(std::string_view text) const {
  auto& control = Focused();
  if (!TypeOver(control, text) && !ChooseByPrefix(control, text)) Cannot("type into", control.Name());
}

void UserAtForm::PressAccessKey(char letter) const {
  CheckShown();
  if (!m_form.PeerAccessKey(letter)) Cannot("find the access key", std::string(1, letter));
}

void UserAtForm::CloseBox() const {
  CheckShown();
  m_form.PeerClose();
}

void UserAtForm::Resize(Size client) const {
  CheckShown();
  auto* window = dynamic_cast<HeadlessFormPeer*>(m_form.WindowPeer());
  if (!window || m_form.BorderStyle() != BorderStyle::Sizable) Cannot("resize", m_form.Name());
  window->Resize(client);
}

std::string UserAtForm::FocusedName() const {
  const auto* active = m_form.ActiveControl();
  return active ? active->Name() : std::string();
}

void UserAtForm::Missing(std::string_view name) const { Cannot("find a control of that kind named", name); }

Control& UserAtForm::Ready(std::string_view name) const {
  CheckShown();
  auto* control = m_form.FindControl(name);
  if (!control) Missing(name);
  if (!control->Usable()) Cannot("use", name);
  return *control;
}

Control& UserAtForm::Focused() const {
  CheckShown();
  auto* control = m_form.ActiveControl();
  if (!control) Cannot("find anything with the focus on", m_form.Name());
  return *control;
}

void UserAtForm::CheckShown() const {
  if (!m_form.Shown()) Cannot("use the hidden form", m_form.Name());
}

}  // namespace pellora::headless
