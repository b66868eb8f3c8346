#pragma once

#include "forms/ListControl.h"

namespace pellora {

/// `DropDown` has a text of its own beside the list; in `DropDownList` the text is always the chosen item.
enum class ComboStyle { DropDown, DropDownList };

/// A list that drops down. Typing in an editable one completes from the items without forcing them.
class ComboBox : public ListControl {
 public:
  ComboBox(Container& parent, std::string_view name, ComboStyle style);

  ComboStyle Style() const { return m_style; }

  const std::string& Text() const { return m_text; }
  /// Editable: any text, choosing the first item that equals it exactly, and raising `Change` when it differs.
  /// Otherwise the text must be an item (383, property is read-only, when it is not), which becomes chosen.
  void Text(std::string_view text);

  /// An editable combo keeps its text when its chosen item goes.
  void RemoveItem(int index) override;
  /// The text goes with the items; raises nothing.
  void Clear() override;

  /// The text has changed, by typing or by `Text`. Choosing an item raises `Click` only.
  std::function<void()> Change;

  /// The user has typed.
  void PeerText(std::string_view text);

 protected:
  void Chosen() override;

 private:
  void StoreText(std::string_view text, int index);

  ComboStyle m_style;
  std::string m_text;
};

}  // namespace pellora
