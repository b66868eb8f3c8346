#include "forms/ComboBox.h"

#include <algorithm>

#include "core/Error.h"
#include "forms/Refusals.h"

namespace pellora {
namespace {

/// The first item that equals a text exactly, or -1.
int IndexOf(const std::vector<std::string>& items, std::string_view text) {
  const auto found = std::find(items.begin(), items.end(), text);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

}  // namespace

ComboBox::ComboBox(Container& parent, std::string_view name, ComboStyle style)
    : ListControl(&parent, ControlKind::ComboBox, name), m_style(style) {}

void ComboBox::Text(std::string_view text) {
  if (m_text == text) return;
  const auto index = IndexOf(m_items, text);
  if (m_style == ComboStyle::DropDownList) {
    if (index == -1) throw Error(errors::PropertyReadOnly);
    ListIndex(index);
    return;
  }
  StoreText(text, index);
  // The index first: a platform's list that loses its chosen item may empty the text beside it.
  Tell(Aspect::ListIndex);
  Tell(Aspect::Text);
  Raise(Change);
}

void ComboBox::RemoveItem(int index) {
  const auto removesChosen = index == ListIndex();
  ListControl::RemoveItem(index);
  if (m_style == ComboStyle::DropDownList && removesChosen) m_text.clear();
  Tell(Aspect::Text);
}

void ComboBox::Clear() {
  const auto hadText = !m_text.empty();
  m_text.clear();
  ListControl::Clear();
  if (hadText) Tell(Aspect::Text);
}

void ComboBox::PeerText(std::string_view text) {
  if (m_text == text || m_style == ComboStyle::DropDownList) return;
  StoreText(text, IndexOf(m_items, text));
  Raise(Change);
}

void ComboBox::Chosen() { m_text = ListIndex() == -1 ? std::string() : List(ListIndex()); }

void ComboBox::StoreText(std::string_view text, int index) {
  m_text = text;
  m_listIndex = index;
}

}  // namespace pellora
