#include "forms/Form.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "core/Error.h"
#include "forms/CheckBox.h"
#include "forms/OptionButton.h"
#include "forms/Pages.h"
#include "forms/Refusals.h"
#include "forms/TextBox.h"

namespace pellora {
namespace {

template <class F>
class OnExit {
 public:
  explicit OnExit(F action) : m_action(std::move(action)) {}
  ~OnExit() {
    if (m_armed) m_action();
  }
  OnExit(const OnExit&) = delete;
  OnExit& operator=(const OnExit&) = delete;
  void Disarm() { m_armed = false; }

 private:
  F m_action;
  bool m_armed = true;
};

bool SameLetter(char left, char right) {
  return std::toupper(static_cast<unsigned char>(left)) == std::toupper(static_cast<unsigned char>(right));
}

/// A tab can be chosen although the page behind it is not the shown one.
bool HasUsableTab(const Control& control) {
  if (control.Kind() != ControlKind::Page || !control.Enabled() || !control.Visible()) return false;
  const auto& pages = static_cast<const Pages&>(*control.Parent());
  return pages.ShowTabs() && pages.Usable();
}

void ShowPage(const Control& page) {
  auto& pages = static_cast<Pages&>(*page.Parent());
  const auto& all = pages.Children();
  pages.PeerPage(static_cast<int>(std::find(all.begin(), all.end(), &page) - all.begin()));
}

/// What a click does to the kinds of controls that are clicked.
void ClickControl(Control& control) {
  switch (control.Kind()) {
    case ControlKind::CommandButton: return static_cast<CommandButton&>(control).PeerClick();
    case ControlKind::CheckBox: return static_cast<CheckBox&>(control).PeerClick();
    case ControlKind::OptionButton: return static_cast<OptionButton&>(control).PeerClick();
    default: return;
  }
}

bool Press(CommandButton* button) {
  if (!button || !button->Usable()) return false;
  button->PeerClick();
  return true;
}

bool IsStop(const Control* control) { return control->Usable() && control->TabStop(); }

}  // namespace

// A form that has no window yet stands over nothing.
void Toolkit::BringToFront() const {
  const auto innermost =
      std::find_if(m_showing.rbegin(), m_showing.rend(), [](const Form* form) { return form->WindowPeer(); });
  if (innermost != m_showing.rend()) (*innermost)->WindowPeer()->BringToFront();
}

Form::Form(Toolkit& toolkit, std::string_view name)
    : Container(nullptr, ControlKind::Panel, name), m_toolkit(toolkit) {}

Form::~Form() = default;

void Form::Load() {
  if (m_loaded) return;
  m_loaded = true;
  OnExit undo([this] {
    m_loaded = false;
    DropPeer();
  });
  EnsurePeer();
  OnLoad();
  undo.Disarm();
}

void Form::Show() {
  if (m_modal) throw Error(errors::FormAlreadyShown);
  m_shown = true;
  m_toolkit.m_showing.push_back(this);
  OnExit ended([this] {
    m_toolkit.m_showing.pop_back();
    m_shown = false;
    m_modal = false;
    DropPeer();
  });
  Load();
  if (!m_shown || !m_loaded) return;
  EnsurePeer();
  m_modal = true;
  m_formPeer->ShowModal();
}

void Form::Hide() {
  if (!m_shown) return;
  m_shown = false;
  if (m_modal) m_formPeer->EndModal();
}

void Form::Unload() { UnloadUnlessCancelled(kUnloadByCode); }

void Form::PeerClose() { UnloadUnlessCancelled(kUnloadByUser); }

void Form::PeerActivate() {
  if (m_shown) OnActivate();
}

void Form::OnQueryUnload(std::int16_t&, std::int16_t&) {}

void Form::UnloadUnlessCancelled(std::int16_t mode) {
  if (!m_loaded || m_unloading) return;
  m_unloading = true;
  OnExit done([this] { m_unloading = false; });
  if (QueryUnload(mode)) FinishUnload();
}

bool Form::QueryUnload(std::int16_t mode) {
  std::int16_t cancel = 0;
  OnQueryUnload(cancel, mode);
  return cancel == 0;
}

void Form::FinishUnload() {
  OnExit unloaded([this] {
    m_loaded = false;
    Hide();
    // A peer in the middle of its modal showing is given up when that returns.
    if (!m_modal) DropPeer();
  });
  OnUnload();
}

void Form::EnsurePeer() {
  if (m_formPeer) return;
  OnExit undo([this] { DetachControls(); });
  m_formPeer = m_toolkit.CreatePeer(*this);
  undo.Disarm();
  if (m_placement) m_formPeer->SetPlacement(*m_placement);
}

void Form::DropPeer() {
  if (!m_formPeer) return;
  if (auto last = m_formPeer->GetPlacement()) m_placement = last;
  DetachControls();
  m_formPeer.reset();
}

void Form::DetachControls() {
  for (auto* control : Descendants()) control->AttachPeer(nullptr);
}

void Form::Caption(std::string_view caption) {
  if (Caption() == caption) return;
  Control::Caption(caption);
  if (m_formPeer) m_formPeer->CaptionChanged();
}

std::optional<Placement> Form::GetPlacement() const { return m_formPeer ? m_formPeer->GetPlacement() : m_placement; }

void Form::SetPlacement(const Placement& placement) {
  m_placement = placement;
  if (m_formPeer) m_formPeer->SetPlacement(placement);
}

Control* Form::ActiveControl() const {
  if (!m_active) return NextStop(nullptr);
  const auto all = Descendants();
  if (std::find(all.begin(), all.end(), m_active) == all.end()) return NextStop(nullptr);
  return m_active->TakesFocus() ? m_active : NextStop(m_active);
}

std::vector<Control*> Form::TabOrder() const {
  auto order = Descendants();
  std::erase_if(order, [](const Control* control) { return !IsStop(control); });
  return order;
}

Control* Form::NextTabStop(bool backwards) const { return NextStop(ActiveControl(), backwards); }

Control* Form::NextStop(const Control* after, bool backwards) const {
  auto all = Descendants();
  if (backwards) std::reverse(all.begin(), all.end());
  // What the search begins at need not be a stop itself: an option button with the focus, a label with an access key.
  const auto self = std::find(all.begin(), all.end(), after);
  if (self != all.end()) std::rotate(all.begin(), std::next(self), all.end());
  const auto found = std::find_if(all.begin(), all.end(), &IsStop);
  return found == all.end() ? nullptr : *found;
}

Control* Form::AccessKeyTarget(char letter) const {
  for (auto* control : Descendants()) {
    if (!control->AccessKey() || !SameLetter(control->AccessKey(), letter)) continue;
    if (HasUsableTab(*control) || control->TakesFocus()) return control;
    const auto names = control->Kind() == ControlKind::Label || control->Kind() == ControlKind::Frame;
    if (!names || !control->Usable()) continue;
    if (auto* next = NextStop(control)) return next;
  }
  return nullptr;
}

bool Form::PeerAccessKey(char letter) {
  auto* target = AccessKeyTarget(letter);
  if (!target) return false;
  if (target->Kind() == ControlKind::Page) {
    ShowPage(*target);
    return true;
  }
  target->SetFocus();
  if (target->AccessKey() && SameLetter(target->AccessKey(), letter)) ClickControl(*target);
  return true;
}

CommandButton* Form::EnterButton(Control* focused) const {
  const auto onButton = focused && focused->Kind() == ControlKind::CommandButton;
  return onButton ? static_cast<CommandButton*>(focused) : m_default;
}

bool Form::PeerKey(const KeyPress& press) {
  auto* active = ActiveControl();
  if (active && active->KeyDown) {
    const auto handler = active->KeyDown;
    if (handler(press)) return true;
  }
  if (press.key == Key::Escape) return Press(m_cancel);
  if (press.key != Key::Enter || TakesLineBreaks(active)) return false;
  return Press(EnterButton(active));
}

void Form::ShowCritical(std::string_view text) {
  m_toolkit.ShowMessage({std::string(text), "Vantix", MessageButtons::Ok, true});
}

}  // namespace pellora
