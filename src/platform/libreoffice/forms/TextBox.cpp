#include "platform/libreoffice/forms/TextBox.h"

#include <com/sun/star/awt/VclWindowPeerAttribute.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>

#include "core/Text.h"
#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

namespace Attribute = awt::VclWindowPeerAttribute;

sal_Int32 AttributesOf(const pellora::TextBox& box) {
  const sal_Int32 lines = box.MultiLine() ? Attribute::VSCROLL : 0;
  return awt::WindowAttribute::BORDER | lines | (box.ReadOnly() ? Attribute::READONLY : 0);
}

rtl::OUString ToLineFeeds(const std::string& text) { return Wide(Replace(text, "\r\n", "\n")); }

std::string FromLineFeeds(const rtl::OUString& text) {
  return Replace(Replace(Narrow(text), "\r\n", "\n"), "\n", "\r\n");
}

}  // namespace

TextBoxPeer::TextBoxPeer(UnoFormPeer& form, pellora::TextBox& box) : PeerOf(form, box) {
  Make(box.MultiLine() ? "multilineedit" : "edit", AttributesOf(box));
  m_text = m_window.As<awt::XTextComponent>();
  Changed(Aspect::Text);
  if (box.AllSelected()) Changed(Aspect::Selection);
  WhileThere([&] { m_text->addTextListener(Listener()); });
}

void TextBoxPeer::TabbedTo() {
  WhileThere([&] { SelectAll(); });
}

void TextBoxPeer::SelectAll() { m_text->setSelection({0, m_text->getText().getLength()}); }

void TextBoxPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Text) m_text->setText(ToLineFeeds(Self().Text()));
  if (aspect == Aspect::Selection) SelectAll();
}

void TextBoxPeer::OnReport(Happening happening) {
  if (happening == Happening::Text) Self().PeerText(FromLineFeeds(m_text->getText()));
}

}  // namespace pellora::libreoffice
