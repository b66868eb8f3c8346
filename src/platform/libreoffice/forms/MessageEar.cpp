#include "platform/libreoffice/forms/MessageEar.h"

#include <com/sun/star/awt/Key.hpp>
#include <utility>

namespace pellora::libreoffice {

MessageEar::MessageEar(bool needsAnswer) : m_needsAnswer(needsAnswer) { m_heldKeys.Begin(); }

bool MessageEar::TakeClosed() { return std::exchange(m_closed, false); }

sal_Bool MessageEar::keyPressed(const com::sun::star::awt::KeyEvent& event) {
  // Noted for the form that comes next. A message itself does not pass keys over: the release of the press that brought
  // it up is lost to the disabled window below, and the user's first Enter would have no effect.
  m_heldKeys.Pressed(event);
  return m_needsAnswer && event.KeyCode == com::sun::star::awt::Key::ESCAPE;
}

sal_Bool MessageEar::keyReleased(const com::sun::star::awt::KeyEvent& event) {
  m_heldKeys.Released(event);
  return false;
}

}  // namespace pellora::libreoffice
