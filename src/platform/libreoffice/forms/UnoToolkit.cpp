#include "platform/libreoffice/forms/UnoToolkit.h"

#include <com/sun/star/awt/MessageBoxButtons.hpp>
#include <com/sun/star/awt/MessageBoxResults.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XExtendedToolkit.hpp>
#include <com/sun/star/awt/XMessageBox.hpp>
#include <com/sun/star/awt/XMessageBoxFactory.hpp>
#include <com/sun/star/awt/XTopWindow.hpp>

#include "core/Error.h"
#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/forms/MessageEar.h"
#include "platform/libreoffice/forms/Modal.h"
#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

MessageAnswer AnswerOf(const Message& message, sal_Int16 result) {
  if (message.buttons == MessageButtons::Ok) return MessageAnswer::Ok;
  switch (result) {
    case awt::MessageBoxResults::RETRY: return MessageAnswer::Retry;
    case awt::MessageBoxResults::IGNORE: return MessageAnswer::Ignore;
    default: return MessageAnswer::Abort;
  }
}

sal_Int32 ButtonsOf(const Message& message) {
  return message.buttons == MessageButtons::AbortRetryIgnore ? awt::MessageBoxButtons::BUTTONS_ABORT_IGNORE_RETRY
                                                             : awt::MessageBoxButtons::BUTTONS_OK;
}

uno::Reference<awt::XToolkit> OfficeToolkit(const uno::Reference<uno::XComponentContext>& context) {
  uno::Reference<awt::XToolkit> toolkit;
  WhileThere([&] { toolkit.set(awt::Toolkit::create(context), uno::UNO_QUERY); });
  if (!toolkit.is()) throw Error(errors::OutOfMemory);
  return toolkit;
}

/// Shows the message, again whenever the user has closed it without the answer that it needs.
sal_Int16 Execute(const uno::Reference<awt::XToolkit>& toolkit, const uno::Reference<awt::XWindowPeer>& over,
                  const Message& message, MessageEar& ear) {
  const uno::Reference<awt::XMessageBoxFactory> factory(toolkit, uno::UNO_QUERY_THROW);
  const auto type = message.critical ? awt::MessageBoxType_ERRORBOX : awt::MessageBoxType_INFOBOX;
  sal_Int16 result = awt::MessageBoxResults::CANCEL;
  do {
    const auto box = factory->createMessageBox(over, type, ButtonsOf(message), Wide(message.title), Wide(message.text));
    const uno::Reference<awt::XTopWindow> window(box, uno::UNO_QUERY_THROW);
    window->addTopWindowListener(&ear);
    result = box->execute();
  } while (ear.TakeClosed());
  return result;
}

}  // namespace

UnoToolkit::UnoToolkit(const uno::Reference<uno::XComponentContext>& context) : m_context(context) {}

std::unique_ptr<FormPeer> UnoToolkit::CreatePeer(Form& form) {
  return std::make_unique<UnoFormPeer>(form, m_context, OfficeToolkit(m_context));
}

MessageAnswer UnoToolkit::ShowMessage(const Message& message) {
  const auto over = WindowToBeOver(m_context);
  const OthersDisabled others(m_context, over);
  const ModalScope innermost(nullptr);
  sal_Int16 result = awt::MessageBoxResults::CANCEL;
  const auto toolkit = OfficeToolkit(m_context);
  const rtl::Reference<MessageEar> ear(new MessageEar(message.buttons == MessageButtons::AbortRetryIgnore));
  const uno::Reference<awt::XExtendedToolkit> keyboard(toolkit, uno::UNO_QUERY);
  if (keyboard.is()) WhileThere([&] { keyboard->addKeyHandler(ear.get()); });
  WhileThere([&] { result = Execute(toolkit, over, message, *ear); });
  if (keyboard.is()) WhileThere([&] { keyboard->removeKeyHandler(ear.get()); });
  return AnswerOf(message, result);
}

void UnoToolkit::Beep() {}

}  // namespace pellora::libreoffice
