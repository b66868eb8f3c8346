#include "platform/libreoffice/forms/MessageEar.h"

#include <com/sun/star/awt/Key.hpp>
#include <utility>

namespace pellora::libreoffice {

MessageEar::MessageEar(bool needsAnswer) : m_needsAnswer(needsAnswer) { m_heldKeys.Begin(); }

bool MessageEar::TakeClosed() { return std::exchange(m_closed, false); }

sal_Bool MessageEar::keyPressed(const com::sun::star::awt::KeyEvent& event) {
  const auto held = m_heldKeys.Pressed(event);
  return held || (m_needsAnswer && event.KeyCode == com::sun::star::awt::Key::ESCAPE);
}

sal_Bool MessageEar::keyReleased(const com::sun::star::awt::KeyEvent& event) {
  m_heldKeys.Released(event);
  return false;
}

}  // namespace pellora::libreoffice
