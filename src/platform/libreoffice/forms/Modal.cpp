#include "platform/libreoffice/forms/Modal.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/frame/XFrames.hpp>

#include "platform/libreoffice/forms/Form.h"

namespace pellora::libreoffice {
namespace {

namespace frame = com::sun::star::frame;

std::vector<UnoFormPeer*>& Showing() {
  static std::vector<UnoFormPeer*> forms;
  return forms;
}

std::vector<uno::Reference<awt::XWindow>> DocumentWindows(const uno::Reference<uno::XComponentContext>& context) {
  std::vector<uno::Reference<awt::XWindow>> windows;
  const auto frames = frame::Desktop::create(context)->getFrames();
  for (sal_Int32 i = 0; i < frames->getCount(); ++i) {
    const uno::Reference<frame::XFrame> document(frames->getByIndex(i), uno::UNO_QUERY);
    const auto window = document.is() ? document->getContainerWindow() : nullptr;
    if (window.is()) windows.push_back(window);
  }
  return windows;
}

}  // namespace

uno::Reference<awt::XWindowPeer> WindowToBeOver(const uno::Reference<uno::XComponentContext>& context) {
  uno::Reference<awt::XWindowPeer> window;
  for (auto form = Showing().rbegin(); form != Showing().rend(); ++form)
    if (*form && (*form)->IsShown()) return (*form)->GetWindow().Peer();
  WhileThere([&] {
    const auto document = frame::Desktop::create(context)->getCurrentFrame();
    if (document.is()) window.set(document->getContainerWindow(), uno::UNO_QUERY);
  });
  return window;
}

Point CornerOf(const uno::Reference<awt::XWindowPeer>& window) {
  for (const auto* form : Showing())
    if (form && window.is() && form->GetWindow().Peer() == window) return form->Corner();
  return OnScreen(window);
}

UnoFormPeer* InnermostForm() { return Showing().empty() ? nullptr : Showing().back(); }

ModalScope::ModalScope(UnoFormPeer* form) { Showing().push_back(form); }

ModalScope::~ModalScope() {
  Showing().pop_back();
  if (auto* form = InnermostForm()) form->Resume();
}

OthersDisabled::OthersDisabled(const uno::Reference<uno::XComponentContext>& context,
                               const uno::Reference<awt::XWindowPeer>& over) {
  WhileThere([&] {
    for (const auto& window : DocumentWindows(context)) {
      const uno::Reference<awt::XWindow2> state(window, uno::UNO_QUERY);
      if (window == over || !state.is() || !state->isEnabled()) continue;
      window->setEnable(false);
      m_disabled.push_back(window);
    }
  });
}

OthersDisabled::~OthersDisabled() {
  for (const auto& window : m_disabled) WhileThere([&] { window->setEnable(true); });
}

}  // namespace pellora::libreoffice
