#pragma once

#include <com/sun/star/awt/KeyEvent.hpp>
#include <optional>

namespace pellora::libreoffice {

/// Tells a window which presses of Enter and Escape are the repeats of one that was meant for the window before: a user
/// who holds the key down a little too long would otherwise answer a message that nobody has read. The toolkit does not
/// say of a press that it is a repeat; it reports only that no release came between. It also loses the release of a key
/// whose window has gone at the press: then the next press is a new one, and is known by its own release.
class HeldKeys {
 public:
  /// The window has come up: what is down now is held from before.
  void Begin();
  /// Notes the press of any key; true when the window is to pass it over.
  bool Pressed(const com::sun::star::awt::KeyEvent& key);
  /// Notes the release of any key; the press that was passed over although it was a new one, if there was one.
  std::optional<com::sun::star::awt::KeyEvent> Released(const com::sun::star::awt::KeyEvent& key);

 private:
  sal_Int16 m_held = 0;
  int m_passedOver = 0;
  com::sun::star::awt::KeyEvent m_first;
};

}  // namespace pellora::libreoffice
