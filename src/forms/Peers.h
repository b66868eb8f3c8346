#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Geometry.h"

namespace pellora {

class Form;

/// What of a control has changed, so that its peer reads just that.
enum class Aspect {
  Text,  ///< caption or text
  Enabled,
  Visible,
  Value,      ///< check box or option state
  Items,      ///< the items of a list
  ListIndex,  ///< the chosen item of a list
  ToolTip,
  Rows,        ///< a grid's row count
  Cells,       ///< texts of a grid's cells
  Columns,     ///< a grid's headers or column widths
  CurrentRow,  ///< a grid's current row
  Page,        ///< the shown page
  Selection,   ///< the selected part of a text box
  Bounds,      ///< place and size, in client pixels of the form
};

/// The platform's half of one control. The control owns the state and outlives its peer; the peer shows it and
/// reports what the user does by calling the control's `Peer...` members. Calls to a peer never raise events.
class ControlPeer {
 public:
  virtual ~ControlPeer() = default;
  virtual void Changed(Aspect aspect) = 0;
  virtual void Focus() = 0;
};

/// How a text is set.
enum class TextStyle { Normal, Heading };

/// Measures for the layout pass, at the scale of the display that shows the form.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  /// The pixels a line of text takes. A "&" counts like any other character.
  virtual Size Measure(std::string_view text, TextStyle style) const = 0;
  virtual int Dpi() const = 0;
  /// The pixels that the box of a check box or the circle of an option button takes, with the room beside it.
  virtual int CheckGlyph() const { return Scale(20); }
  /// A length in dip as pixels.
  int Scale(int dip) const { return (dip * Dpi() + 48) / 96; }
};

/// The platform's half of a form: made hidden, with peers for all of the form's controls, before the form's load
/// event; destroyed when the form is hidden or unloaded.
class FormPeer {
 public:
  virtual ~FormPeer() = default;
  /// Shows the form and returns when `EndModal` was called, from within a handler or by the user closing it. Every
  /// other window of the host that could take input is disabled meanwhile, and exactly those are enabled again.
  virtual void ShowModal() = 0;
  virtual void EndModal() = 0;
  virtual void CaptionChanged() = 0;
  /// Nothing when the platform refuses.
  virtual std::optional<Placement> GetPlacement() = 0;
  virtual bool SetPlacement(const Placement& placement) = 0;
  /// The desktop's rectangle in the same pixels as placements.
  virtual Rect Desktop() = 0;
  /// The form's outer size at the moment, in pixels.
  virtual Size OuterSize() = 0;
  /// Makes the form the window that the user works in, now or when it comes up; where a message is up over it, that
  /// message. A window that cannot be used meanwhile never takes the keyboard from the one that can.
  virtual void BringToFront() = 0;
};

enum class MessageButtons { Ok, AbortRetryIgnore };
enum class MessageAnswer { Ok, Abort, Retry, Ignore };

/// A message box. `critical` shows the stop icon.
struct Message {
  std::string text;
  std::string title;
  MessageButtons buttons = MessageButtons::Ok;
  bool critical = true;
};

/// A platform's factory of peers.
class Toolkit {
 public:
  virtual ~Toolkit() = default;
  /// Makes the hidden window of a form and attaches a peer to each of its controls. Raises when it cannot.
  virtual std::unique_ptr<FormPeer> CreatePeer(Form& form) = 0;
  /// Shows a message modally over the form that is active, or over the host.
  virtual MessageAnswer ShowMessage(const Message& message) = 0;
  virtual void Beep() = 0;

  /// Brings the innermost of the forms that are being shown forward, or the message that is up over it. Nothing when
  /// none is.
  void BringToFront() const;

 private:
  friend class Form;
  /// From the outermost on.
  std::vector<Form*> m_showing;
};

}  // namespace pellora
