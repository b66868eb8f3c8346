#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Peers.h"

namespace pellora {

class Container;
class Form;

/// A key that a control's `KeyDown` hears about before the platform acts on it.
enum class Key { Enter, Escape, Delete, Up, Down, Other };

struct KeyPress {
  Key key = Key::Other;
  bool control = false;
  bool shift = false;
  bool alt = false;
};

/// What a control is, so that a platform can choose its peer without asking for C++ types.
enum class ControlKind {
  Label,
  TextBox,
  CheckBox,
  OptionButton,
  ComboBox,
  ListBox,
  CommandButton,
  Frame,
  Panel,
  Pages,
  Page,
  Grid
};

/// A control: name, state and events. It belongs to the container it was made in for its whole life and is normally
/// a member of its form's class. The order of making is the tab order. It works without a peer; getters answer from
/// its own state. A setter: unchanged, return; store; tell the peer; raise the event. So a change of value raises
/// the control's event whoever made it, code or user.
class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  ControlKind Kind() const { return m_kind; }
  const std::string& Name() const { return m_name; }
  Container* Parent() const { return m_parent; }
  /// The control is that one or stands somewhere in it.
  bool IsWithin(const Control& other) const;
  /// The form the control stands on.
  Form& Owner() const;

  /// The caption as the platform's convention writes it: "&&" shows one ampersand, a single "&" is not used (see
  /// `AccessKey`).
  const std::string& Caption() const { return m_caption; }
  virtual void Caption(std::string_view caption);

  /// The letter that reaches the control together with Alt, or 0. It is kept apart from the caption, which other
  /// texts quote; the peer underlines its first occurrence there. On a label it moves the focus to the control that
  /// follows the label.
  char AccessKey() const { return m_accessKey; }
  void AccessKey(char letter) { m_accessKey = letter; }

  /// The control's own flag; a control inside a disabled container cannot be used either (`Usable`).
  bool Enabled() const { return m_enabled; }
  void Enabled(bool enabled);
  bool Visible() const { return m_visible; }
  void Visible(bool visible);
  /// The control and every container up to the form have not been disabled. The form's own flag does not count here,
  /// nor in `ShownByAll`: its window is the platform's.
  bool EnabledByAll() const;
  /// The control and every container up to the form are visible, and a page among them is the shown one.
  bool ShownByAll() const;
  /// Enabled and visible, and so is everything around it, the form and the shown page included.
  bool Usable() const;
  const std::string& ToolTip() const { return m_toolTip; }
  void ToolTip(std::string_view text);
  /// The name assistive programs read: set here, otherwise its caption, otherwise the label before the control.
  std::string AccessibleName() const;
  void AccessibleName(std::string_view name) { m_accessibleName = name; }

  /// True when Tab stops at this kind of control.
  virtual bool TabStop() const { return false; }
  /// True when the control could have the focus now: it is usable, and Tab stops at it or it is an option button.
  bool TakesFocus() const;
  /// Makes this the form's active control and gives it the keyboard when it is on screen. A control that cannot take
  /// it refuses with 5 (invalid procedure call).
  void SetFocus();

  /// Client pixels of the form; set by the layout pass.
  const Rect& Bounds() const { return m_bounds; }
  void Bounds(const Rect& bounds);

  /// Hears keys first; answers true when it has used one. Only Enter, Escape, Delete, Up and Down are offered.
  std::function<bool(const KeyPress&)> KeyDown;

  ControlPeer* Peer() const { return m_peer.get(); }
  void AttachPeer(std::unique_ptr<ControlPeer> peer) { m_peer = std::move(peer); }

 protected:
  Control(Container* parent, ControlKind kind, std::string_view name);
  void Tell(Aspect aspect);

  /// Raises an event. The handler is copied first: it may replace itself, or unload what it belongs to.
  template <class... Parameters, class... Arguments>
  static void Raise(const std::function<void(Parameters...)>& event, Arguments... arguments) {
    if (const auto handler = event) handler(arguments...);
  }

 private:
  Container* m_parent;
  ControlKind m_kind;
  std::string m_name;
  std::string m_caption;
  std::string m_toolTip;
  std::string m_accessibleName;
  char m_accessKey = 0;
  bool m_enabled = true;
  bool m_visible = true;
  Rect m_bounds;
  std::unique_ptr<ControlPeer> m_peer;
};

/// A control that others stand in. Option buttons of one container exclude each other.
class Container : public Control {
 public:
  /// In the order of making.
  const std::vector<Control*>& Children() const { return m_children; }
  /// All controls below this one, each container before its children.
  std::vector<Control*> Descendants() const;
  /// The descendant of that name, letter case apart, or null.
  Control* FindControl(std::string_view name) const;

 protected:
  Container(Container* parent, ControlKind kind, std::string_view name) : Control(parent, kind, name) {}

 private:
  friend class Control;
  std::vector<Control*> m_children;
};

/// What a user sees of a caption: "&&" as "&".
std::string DisplayText(std::string_view caption);

}  // namespace pellora
