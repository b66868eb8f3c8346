#include <com/sun/star/awt/PosSize.hpp>
#include <com/sun/star/awt/XTopWindow.hpp>

#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/forms/Modal.h"

namespace pellora::libreoffice {

void UnoFormPeer::ShowModal() {
  m_ended = false;
  if (m_window) {
    FitToContent();
    const OthersDisabled others(m_context, m_over);
    const ModalScope innermost(this);
    m_running = true;
    AskForPlace(awt::PosSize::POSSIZE);
    Run();
    m_client = Client();
    m_running = m_up = m_active = false;
  }
  if (!m_window) m_form.PeerClose();
}

void UnoFormPeer::EndModal() {
  m_ended = true;
  if (m_running) RememberState();
  m_up = false;
  if (m_dialog.is()) WhileThere([&] { m_dialog->endExecute(); });
}

void UnoFormPeer::Run() {
  // The toolkit's dialog always ends when its window is closed; one that is not to be closed comes up again.
  while (m_window && !m_ended) {
    m_closeRefused = false;
    m_up = m_active = false;
    m_ear->CallBack(m_context);
    const auto shown = Execute();
    if (!m_window || m_ended || (shown && m_closeRefused)) continue;
    // The program ends, or does not show dialogs at all.
    m_form.PeerClose();
    return;
  }
}

bool UnoFormPeer::Execute() {
  bool shown = false;
  WhileThere([&] {
    // The dialog may go while it is shown.
    const auto dialog = m_dialog;
    // For a dialog that it has to show itself, the toolkit remembers a parent and goes back to it at the end, although
    // that is gone when the document's window was taken away meanwhile: the program would crash.
    m_window.Show(true);
    dialog->execute();
    shown = true;
  });
  return shown;
}

void UnoFormPeer::ComeUp() {
  if (!IsShown()) return;
  m_heldKeys.Begin();
  m_up = m_active = true;
  for (auto* peer : std::vector(m_peers)) peer->RestoreCaption();
  // A window manager may have put the new window where it likes, frame and all.
  if (m_placed && !WantsMaximised()) MoveTo({m_placement.normal.left, m_placement.normal.top});
  LayOut();
  BringToFront();
  FocusActive();
  m_form.PeerActivate();
}

void UnoFormPeer::OnActivate(bool active) {
  const auto was = std::exchange(m_active, active);
  if (m_up && active && (!was || m_resumes) && InnermostForm() == this) Activated();
}

void UnoFormPeer::Resume() {
  if (!m_up) return;
  m_heldKeys.Begin();
  // The toolkit may have told of it already, while the other window was still there, or tell later, or not at all.
  m_resumes = true;
  m_ear->CallBack(m_context);
}

void UnoFormPeer::Activated() {
  m_resumes = false;
  if (!m_up) return;
  m_active = true;
  FocusActive();
  m_form.PeerActivate();
}

void UnoFormPeer::OnClosing() {
  if (!m_running || InnermostForm() != this) return;
  RememberState();
  m_form.PeerClose();
  m_closeRefused = !m_ended;
}

void UnoFormPeer::BringToFront() {
  const auto window = m_window.As<awt::XTopWindow>();
  // Under a message, or another form, it would take the keyboard away from where the user can answer.
  if (window.is() && IsShown() && InnermostForm() == this) WhileThere([&] { window->toFront(); });
}

}  // namespace pellora::libreoffice
