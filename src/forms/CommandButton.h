#pragma once

#include "forms/Control.h"

namespace pellora {

/// What a button shows instead of its caption, which then only names it.
enum class ButtonPicture { None, ArrowUp, ArrowDown };

/// A push button.
class CommandButton : public Control {
 public:
  CommandButton(Container& parent, std::string_view name, std::string_view caption);

  ButtonPicture Picture() const { return m_picture; }
  void Picture(ButtonPicture picture) { m_picture = picture; }

  bool TabStop() const override { return true; }

  std::function<void()> Click;

  /// The user has pressed it, by mouse or key. Does nothing while it cannot be used.
  void PeerClick();

 private:
  ButtonPicture m_picture = ButtonPicture::None;
};

}  // namespace pellora
