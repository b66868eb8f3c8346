#pragma once

#include <com/sun/star/uno/XComponentContext.hpp>
#include <vector>

#include "platform/libreoffice/forms/Window.h"

namespace pellora::libreoffice {

class UnoFormPeer;

/// The office program's top window that a user is working in; null when it shows none.
uno::Reference<awt::XWindowPeer> WindowToBeOver(const uno::Reference<uno::XComponentContext>& context);

/// Where the inside of such a window begins on the screen; the screen's corner for no window.
Point CornerOf(const uno::Reference<awt::XWindowPeer>& window);

/// The form whose modal showing is the innermost; null when there is none, or when a message box is over it.
UnoFormPeer* InnermostForm();

/// As long as it lives a form is the innermost, or, with null, a message box is over the forms.
class ModalScope {
 public:
  explicit ModalScope(UnoFormPeer* form);
  ~ModalScope();
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;
};

/// Disables every window of the program's documents, except the one a dialog is over: that one is disabled by the
/// toolkit. Enables exactly those again at the end; windows gone meanwhile are passed over.
class OthersDisabled {
 public:
  OthersDisabled(const uno::Reference<uno::XComponentContext>& context, const uno::Reference<awt::XWindowPeer>& over);
  ~OthersDisabled();
  OthersDisabled(const OthersDisabled&) = delete;
  OthersDisabled& operator=(const OthersDisabled&) = delete;

 private:
  std::vector<uno::Reference<awt::XWindow>> m_disabled;
};

}  // namespace pellora::libreoffice
