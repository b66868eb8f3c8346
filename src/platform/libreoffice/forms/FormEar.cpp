#include "platform/libreoffice/forms/FormEar.h"

#include <com/sun/star/awt/AsyncCallback.hpp>

#include "platform/libreoffice/forms/Form.h"

namespace pellora::libreoffice {

template <class Action>
void FormEar::Heard(Action action) {
  if (!m_form) return;
  try {
    action(*m_form);
  } catch (...) {
    // Nothing may pass through the toolkit's frames; the form stays as it is.
  }
}

void FormEar::CallBack(const uno::Reference<uno::XComponentContext>& context) {
  WhileThere([&] { awt::AsyncCallback::create(context)->addCallback(this, uno::Any()); });
}

void FormEar::windowClosing(const lang::EventObject&) {
  Heard([](UnoFormPeer& form) { form.OnClosing(); });
}

void FormEar::windowActivated(const lang::EventObject&) {
  Heard([](UnoFormPeer& form) { form.OnActivate(true); });
}

void FormEar::windowDeactivated(const lang::EventObject&) {
  Heard([](UnoFormPeer& form) { form.OnActivate(false); });
}

void FormEar::windowResized(const awt::WindowEvent&) {
  Heard([](UnoFormPeer& form) { form.OnMoved(); });
}

void FormEar::windowMoved(const awt::WindowEvent&) {
  Heard([](UnoFormPeer& form) { form.OnMoved(); });
}

sal_Bool FormEar::keyPressed(const awt::KeyEvent& event) {
  bool used = false;
  Heard([&](UnoFormPeer& form) { used = form.OnKey(event); });
  return used;
}

sal_Bool FormEar::keyReleased(const awt::KeyEvent& event) {
  Heard([&](UnoFormPeer& form) { form.OnKeyReleased(event); });
  return false;
}

void FormEar::notify(const uno::Any&) {
  Heard([](UnoFormPeer& form) { form.CatchUp(); });
}

void FormEar::disposing(const lang::EventObject& source) {
  Heard([&](UnoFormPeer& form) { form.OnDisposing(source); });
}

}  // namespace pellora::libreoffice
