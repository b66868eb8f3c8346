#include "platform/libreoffice/forms/CommandButton.h"

#include <com/sun/star/awt/ImagePosition.hpp>
#include <com/sun/star/awt/TextAlign.hpp>
#include <com/sun/star/awt/XButton.hpp>
#include <com/sun/star/awt/XStyleSettings.hpp>
#include <com/sun/star/awt/XStyleSettingsSupplier.hpp>
#include <com/sun/star/graphic/XGraphic.hpp>

#include "platform/libreoffice/forms/Arrow.h"
#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

constexpr int kArrowDip = 16;

}  // namespace

CommandButtonPeer::CommandButtonPeer(UnoFormPeer& form, pellora::CommandButton& button) : PeerOf(form, button) {
  Make("pushbutton");
  SetCaption();
  if (button.Picture() != ButtonPicture::None) WhileThere([&] { SetPicture(); });
  WhileThere([&] { m_window.As<awt::XButton>()->addActionListener(Listener()); });
}

void CommandButtonPeer::SetCaption() {
  const auto button = m_window.As<awt::XButton>();
  if (button.is() && Self().Picture() == ButtonPicture::None) button->setLabel(Caption());
}

void CommandButtonPeer::SetPicture() {
  const auto styles = m_window.As<awt::XStyleSettingsSupplier>()->getStyleSettings();
  const auto colour = static_cast<std::uint32_t>(styles->getButtonTextColor());
  const auto side = m_form.GetFonts().Scale(kArrowDip);
  const auto arrow = Arrow(m_form.GetContext(), side, Self().Picture() == ButtonPicture::ArrowUp, colour);
  // The caption that names other buttons is not shown here.
  m_window.Set("AccessibleName", uno::Any(Wide(Self().AccessibleName())));
  m_window.Set("ImagePosition", uno::Any(awt::ImagePosition::Centered));
  // A picture without a text stands where a text would.
  m_window.Set("Align", uno::Any(static_cast<sal_Int16>(awt::TextAlign::CENTER)));
  m_window.Set("Graphic", uno::Any(arrow));
}

void CommandButtonPeer::ShowAsDefault(bool isDefault) { m_window.Set("DefaultButton", uno::Any(isDefault)); }

void CommandButtonPeer::Update(Aspect aspect) {
  if (aspect != Aspect::Text) return;
  SetCaption();
  m_form.RequestLayout();
}

void CommandButtonPeer::OnReport(Happening happening) {
  if (happening == Happening::Action) Self().PeerClick();
}

}  // namespace pellora::libreoffice
