#pragma once

#include <com/sun/star/awt/XCallback.hpp>
#include <com/sun/star/awt/XKeyHandler.hpp>
#include <com/sun/star/awt/XTopWindowListener.hpp>
#include <com/sun/star/awt/XWindowListener.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/implbase4.hxx>

namespace pellora::libreoffice {

class UnoFormPeer;

/// What the window of a form, and the toolkit's keyboard, report to. It may live longer than the peer it listens for,
/// which lets go of it; nothing that a handler raises passes through to the toolkit.
class FormEar
    : public cppu::WeakImplHelper4<com::sun::star::awt::XTopWindowListener, com::sun::star::awt::XWindowListener,
                                   com::sun::star::awt::XKeyHandler, com::sun::star::awt::XCallback> {
 public:
  explicit FormEar(UnoFormPeer& form) : m_form(&form) {}
  void Detach() { m_form = nullptr; }

  /// Calls the form back, `UnoFormPeer::CatchUp`, before the next event is looked at.
  void CallBack(const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context);

  void SAL_CALL windowOpened(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL windowClosing(const com::sun::star::lang::EventObject& event) override;
  void SAL_CALL windowClosed(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL windowMinimized(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL windowNormalized(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL windowActivated(const com::sun::star::lang::EventObject& event) override;
  void SAL_CALL windowDeactivated(const com::sun::star::lang::EventObject& event) override;

  void SAL_CALL windowResized(const com::sun::star::awt::WindowEvent& event) override;
  void SAL_CALL windowMoved(const com::sun::star::awt::WindowEvent& event) override;
  void SAL_CALL windowShown(const com::sun::star::lang::EventObject&) override {}
  void SAL_CALL windowHidden(const com::sun::star::lang::EventObject&) override {}

  sal_Bool SAL_CALL keyPressed(const com::sun::star::awt::KeyEvent& event) override;
  sal_Bool SAL_CALL keyReleased(const com::sun::star::awt::KeyEvent& event) override;

  void SAL_CALL notify(const com::sun::star::uno::Any&) override;
  void SAL_CALL disposing(const com::sun::star::lang::EventObject& source) override;

 private:
  template <class Action>
  void Heard(Action action);

  UnoFormPeer* m_form;
};

}  // namespace pellora::libreoffice
