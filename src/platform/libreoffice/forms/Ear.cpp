#include "platform/libreoffice/forms/Ear.h"

#include "platform/libreoffice/forms/Control.h"

namespace pellora::libreoffice {

template <class Action>
void Ear::Heard(Action action) {
  if (!m_peer) return;
  try {
    action(*m_peer);
  } catch (...) {
    // Nothing may pass through the toolkit's frames; the form stays as it is.
  }
}

void Ear::focusGained(const awt::FocusEvent&) {
  Heard([](UnoControlPeer& peer) { peer.ReportFocus(true); });
}

void Ear::focusLost(const awt::FocusEvent&) {
  Heard([](UnoControlPeer& peer) { peer.ReportFocus(false); });
}

void Ear::actionPerformed(const awt::ActionEvent&) {
  Heard([](UnoControlPeer& peer) { peer.Report(Happening::Action); });
}

void Ear::itemStateChanged(const awt::ItemEvent&) {
  Heard([](UnoControlPeer& peer) { peer.Report(Happening::Choice); });
}

void Ear::textChanged(const awt::TextEvent&) {
  Heard([](UnoControlPeer& peer) { peer.Report(Happening::Text); });
}

void Ear::selectionChanged(const awt::grid::GridSelectionEvent&) {
  Heard([](UnoControlPeer& peer) { peer.Report(Happening::Choice); });
}

void Ear::tabPageActivated(const awt::tab::TabPageActivatedEvent&) {
  Heard([](UnoControlPeer& peer) { peer.Report(Happening::Choice); });
}

void Ear::disposing(const lang::EventObject&) {}

}  // namespace pellora::libreoffice
