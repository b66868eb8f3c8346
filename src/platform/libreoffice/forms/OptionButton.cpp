#include "platform/libreoffice/forms/OptionButton.h"

#include <com/sun/star/awt/Key.hpp>
#include <com/sun/star/awt/XButton.hpp>
#include <com/sun/star/awt/XRadioButton.hpp>
#include <com/sun/star/style/VerticalAlignment.hpp>

#include "platform/libreoffice/forms/Form.h"

namespace pellora::libreoffice {
namespace {

int DirectionOf(const awt::KeyEvent& key) {
  if (key.Modifiers) return 0;
  switch (key.KeyCode) {
    case awt::Key::UP:
    case awt::Key::LEFT: return -1;
    case awt::Key::DOWN:
    case awt::Key::RIGHT: return 1;
    default: return 0;
  }
}

}  // namespace

OptionButtonPeer::OptionButtonPeer(UnoFormPeer& form, pellora::OptionButton& option) : PeerOf(form, option) {
  Make("radiobutton");
  m_window.Set("AutoToggle", uno::Any(false));
  m_window.Set("VerticalAlign", uno::Any(com::sun::star::style::VerticalAlignment_MIDDLE));
  SetCaption();
  Changed(Aspect::Value);
  WhileThere([&] { m_window.As<awt::XButton>()->addActionListener(Listener()); });
}

void OptionButtonPeer::SetCaption() {
  const auto button = m_window.As<awt::XRadioButton>();
  if (button.is()) button->setLabel(Caption());
}

bool OptionButtonPeer::Act(const awt::KeyEvent& key) {
  const auto direction = DirectionOf(key);
  if (direction) Self().PeerStep(direction);
  return direction != 0;
}

void OptionButtonPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Text) {
    SetCaption();
    m_form.RequestLayout();
  }
  const auto button = m_window.As<awt::XRadioButton>();
  if (aspect == Aspect::Value && button.is()) button->setState(Self().Value());
}

void OptionButtonPeer::OnReport(Happening happening) {
  if (happening != Happening::Action) return;
  Self().PeerClick();
  if (m_window) Changed(Aspect::Value);
}

}  // namespace pellora::libreoffice
