#include "forms/TextBox.h"

namespace pellora {

TextBox::TextBox(Container& parent, std::string_view name) : Control(&parent, ControlKind::TextBox, name) {}

void TextBox::Text(std::string_view text) { Store(text, false); }

void TextBox::SelectAll() {
  m_allSelected = true;
  Tell(Aspect::Selection);
}

void TextBox::PeerText(std::string_view text) { Store(text, true); }

void TextBox::Store(std::string_view text, bool fromPeer) {
  if (m_text == text) return;
  m_text = text;
  m_allSelected = false;
  // Setting the text of an edit that is being typed into would move its caret.
  if (!fromPeer) Tell(Aspect::Text);
  Raise(Change);
}

bool TakesLineBreaks(const Control* control) {
  if (!control || control->Kind() != ControlKind::TextBox) return false;
  const auto& box = static_cast<const TextBox&>(*control);
  return box.MultiLine() && !box.ReadOnly();
}

}  // namespace pellora
