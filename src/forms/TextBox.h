#pragma once

#include "forms/Control.h"

namespace pellora {

/// A text to edit, one line or several.
class TextBox : public Control {
 public:
  TextBox(Container& parent, std::string_view name);

  const std::string& Text() const { return m_text; }
  /// Raises `Change` when the text differs.
  void Text(std::string_view text);

  /// Several lines with scroll bars; lines end in CR LF. Set before the form is shown.
  bool MultiLine() const { return m_multiLine; }
  void MultiLine(bool multiLine) { m_multiLine = multiLine; }
  /// Text can be selected and copied, not changed. Set before the form is shown.
  bool ReadOnly() const { return m_readOnly; }
  void ReadOnly(bool readOnly) { m_readOnly = readOnly; }

  /// Selects the whole text.
  void SelectAll();
  /// True from `SelectAll` until the text changes.
  bool AllSelected() const { return m_allSelected; }

  bool TabStop() const override { return true; }

  std::function<void()> Change;

  /// The user has typed: the whole new text.
  void PeerText(std::string_view text);

 private:
  void Store(std::string_view text, bool fromPeer);

  std::string m_text;
  bool m_multiLine = false;
  bool m_readOnly = false;
  bool m_allSelected = false;
};

/// Enter is a line break there: in a text of several lines that can be changed. `control` may be null.
bool TakesLineBreaks(const Control* control);

}  // namespace pellora
