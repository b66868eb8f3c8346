#pragma once

#include <com/sun/star/awt/XKeyHandler.hpp>
#include <com/sun/star/awt/XTopWindowListener.hpp>
#include <cppuhelper/implbase2.hxx>

#include "platform/libreoffice/forms/HeldKeys.h"

namespace pellora::libreoffice {

/// What the window of a message, and the toolkit's keyboard meanwhile, report to. A message that has to be answered by
/// one of its buttons does not hear Escape, which the toolkit would take for its first button, and tells when its
/// window has been closed all the same.
class MessageEar
    : public cppu::WeakImplHelper2<com::sun::star::awt::XKeyHandler, com::sun::star::awt::XTopWindowListener> {
 public:
  explicit MessageEar(bool needsAnswer);
  /// The user has closed the window since this was last asked, and nothing has been answered by that.
  bool TakeClosed();

  sal_Bool SAL_CALL keyPressed(const com::sun::star::awt::KeyEvent& event) override;
  sal_Bool SAL_CALL keyReleased(const com::sun::star::awt::KeyEvent& event) override;
  void SAL_CALL windowOpened(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL windowClosing(const com::sun::star::lang::EventObject&) override { m_closed = m_needsAnswer; }
  void SAL_CALL windowClosed(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL windowMinimized(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL windowNormalized(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL windowActivated(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL windowDeactivated(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL disposing(const com::sun::star::lang::EventObject&) override {}

 private:
  bool m_needsAnswer;
  bool m_closed = false;
  HeldKeys m_heldKeys;
};

}  // namespace pellora::libreoffice
