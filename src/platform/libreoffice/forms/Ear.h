#pragma once

#include <com/sun/star/awt/XActionListener.hpp>
#include <com/sun/star/awt/XFocusListener.hpp>
#include <com/sun/star/awt/XItemListener.hpp>
#include <com/sun/star/awt/XTextListener.hpp>
#include <com/sun/star/awt/grid/XGridSelectionListener.hpp>
#include <com/sun/star/awt/tab/XTabPageContainerListener.hpp>
#include <cppuhelper/implbase6.hxx>

namespace pellora::libreoffice {

class UnoControlPeer;

/// What the window of a control is told to report to. It may live longer than the peer it listens for, which lets go of
/// it; nothing that a handler raises passes through to the toolkit.
class Ear : public cppu::WeakImplHelper6<com::sun::star::awt::XFocusListener, com::sun::star::awt::XActionListener,
                                         com::sun::star::awt::XItemListener, com::sun::star::awt::XTextListener,
                                         com::sun::star::awt::grid::XGridSelectionListener,
                                         com::sun::star::awt::tab::XTabPageContainerListener> {
 public:
  explicit Ear(UnoControlPeer& peer) : m_peer(&peer) {}
  /// Nothing is heard any more.
  void Detach() { m_peer = nullptr; }

  void SAL_CALL focusGained(const com::sun::star::awt::FocusEvent& event) override;
  void SAL_CALL focusLost(const com::sun::star::awt::FocusEvent& event) override;
  void SAL_CALL actionPerformed(const com::sun::star::awt::ActionEvent& event) override;
  void SAL_CALL itemStateChanged(const com::sun::star::awt::ItemEvent& event) override;
  void SAL_CALL textChanged(const com::sun::star::awt::TextEvent& event) override;
  void SAL_CALL selectionChanged(const com::sun::star::awt::grid::GridSelectionEvent& event) override;
  void SAL_CALL tabPageActivated(const com::sun::star::awt::tab::TabPageActivatedEvent& event) override;
  void SAL_CALL disposing(const com::sun::star::lang::EventObject& source) override;

 private:
  template <class Action>
  void Heard(Action action);

  UnoControlPeer* m_peer;
};

}  // namespace pellora::libreoffice
