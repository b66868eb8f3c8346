#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "forms/CommandButton.h"
#include "forms/Control.h"
#include "forms/Layout.h"
#include "forms/Peers.h"

namespace pellora {

/// `FixedDialog` keeps the size its content needs, `Sizable` can be enlarged and never made smaller than that.
enum class BorderStyle { FixedDialog, Sizable };
enum class WindowState { Normal, Minimized, Maximized };

/// `UnloadMode` of `OnQueryUnload`: who unloads the form.
inline constexpr std::int16_t kUnloadByUser = 0;
inline constexpr std::int16_t kUnloadByCode = 1;

/// A dialog: a container with a caption, a `Tag` in which it leaves its outcome, and a life of
/// load, any number of showings, unload. A form is created unloaded and without a peer. Loading makes the peer (hidden)
/// and runs `OnLoad` once; showing makes it again when it is missing; hiding ends the modal showing and gives the peer
/// up, so no window stays behind; state, selections and place are the form's own and are there at the next showing.
class Form : public Container {
 public:
  Form(Toolkit& toolkit, std::string_view name);
  ~Form() override;

  /// What the dialog leaves for its caller.
  const std::string& Tag() const { return m_tag; }
  void Tag(std::string_view tag) { m_tag = tag; }

  void Caption(std::string_view caption) override;
  using Control::Caption;

  pellora::BorderStyle BorderStyle() const { return m_borderStyle; }
  pellora::WindowState WindowState() const { return m_windowState; }
  void WindowState(pellora::WindowState state) { m_windowState = state; }

  /// Enter presses the default button unless another button has the focus, Escape the cancel button. May be null.
  CommandButton* DefaultButton() const { return m_default; }
  CommandButton* CancelButton() const { return m_cancel; }
  /// The button that Enter presses while `focused`, which may be null, has the focus: that one itself when it is a
  /// button, otherwise the default button. May be null.
  CommandButton* EnterButton(Control* focused) const;

  const LayoutNode* Layout() const { return m_layout ? &*m_layout : nullptr; }

  bool Loaded() const { return m_loaded; }
  /// True from the beginning of `Show` to `Hide`.
  bool Shown() const { return m_shown; }
  /// True while the window is up; not yet while the form loads, although it may be loading for a showing.
  bool OnScreen() const { return m_modal; }

  /// Makes the form's window and runs `OnLoad`, once until it is unloaded.
  void Load();
  /// Shows the form modally; returns when it is hidden or unloaded. A form that is hidden while it loads is not shown.
  /// Raises 400 (already displayed) while an earlier showing has not returned.
  void Show();
  /// Ends the modal showing once the running handler returns.
  void Hide();
  /// Asks `OnQueryUnload` with `kUnloadByCode`; unless that cancels, runs `OnUnload` and gives the peer up.
  void Unload();

  /// Where the form is, or was when it last had a peer; nothing before that or when the platform refuses.
  std::optional<Placement> GetPlacement() const;
  /// Moves the form, now or when it gets its peer.
  void SetPlacement(const Placement& placement);
  FormPeer* WindowPeer() const { return m_formPeer.get(); }

  /// The control with the focus; the first that can take it when none has been chosen. Null when there is none.
  Control* ActiveControl() const;
  /// The platform has moved the focus, or `SetFocus` has.
  void ActiveControl(Control* control) { m_active = control; }
  /// All controls at which Tab stops now, in tab order.
  std::vector<Control*> TabOrder() const;
  /// Where Tab goes from the active control, or Shift and Tab when `backwards`: to the nearest stop in the order of
  /// making, round at the ends. Null when there is none.
  Control* NextTabStop(bool backwards) const;

  Toolkit& GetToolkit() const { return m_toolkit; }
  /// A message box over this form with the critical icon, one OK button and the title "Vantix".
  void ShowCritical(std::string_view text);

  /// The control that Alt and a letter reach now, letter case apart, or null: the usable control with that access key;
  /// for a label or frame the next control in order of making that can take the focus; for a page its tab.
  Control* AccessKeyTarget(char letter) const;

  /// The user has pressed Alt and a letter: moves the focus to the target, clicks it when it is a button, check box or
  /// option button, shows it when it is a page. False when no control has that access key.
  bool PeerAccessKey(char letter);
  /// The user has pressed a key at the control with the focus, which hears of it first (`KeyDown`). Enter then presses
  /// the button with the focus or the default button, Escape the cancel button. False when nothing used the key.
  bool PeerKey(const KeyPress& press);
  /// The user wants to close the window: `OnQueryUnload` with `kUnloadByUser`; unless that cancels, unloads.
  void PeerClose();
  /// The form has come up, or has become the active window again.
  void PeerActivate();

 protected:
  void BorderStyle(pellora::BorderStyle style) { m_borderStyle = style; }
  void DefaultButton(CommandButton& button) { m_default = &button; }
  void CancelButton(CommandButton& button) { m_cancel = &button; }
  void Layout(LayoutNode layout) { m_layout = std::move(layout); }

  virtual void OnLoad() {}
  virtual void OnActivate() {}
  virtual void OnQueryUnload(std::int16_t& cancel, std::int16_t& unloadMode);
  virtual void OnUnload() {}

 private:
  void UnloadUnlessCancelled(std::int16_t mode);
  bool QueryUnload(std::int16_t mode);
  void FinishUnload();
  void EnsurePeer();
  void DropPeer();
  void DetachControls();
  Control* NextStop(const Control* after, bool backwards = false) const;

  Toolkit& m_toolkit;
  std::string m_tag;
  pellora::BorderStyle m_borderStyle = pellora::BorderStyle::FixedDialog;
  pellora::WindowState m_windowState = pellora::WindowState::Normal;
  CommandButton* m_default = nullptr;
  CommandButton* m_cancel = nullptr;
  Control* m_active = nullptr;
  std::optional<LayoutNode> m_layout;
  std::optional<Placement> m_placement;
  std::unique_ptr<FormPeer> m_formPeer;
  bool m_loaded = false;
  bool m_shown = false;
  bool m_modal = false;
  bool m_unloading = false;
};

}  // namespace pellora
