#pragma once

#include <com/sun/star/awt/KeyEvent.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include "platform/libreoffice/forms/Window.h"

namespace pellora::libreoffice {

/// As many items as a list shows when it drops down.
inline constexpr sal_Int16 kDropDownLines = 12;

/// True while the list of a combo box is open.
bool IsDroppedDown(const uno::Reference<uno::XComponentContext>& context, const Window& combo);

/// True for the keys with which a user moves in an open list and closes it. Tab is not among them.
bool IsForDroppedList(const awt::KeyEvent& key);

}  // namespace pellora::libreoffice
