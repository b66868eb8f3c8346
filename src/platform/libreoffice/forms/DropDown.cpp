#include "platform/libreoffice/forms/DropDown.h"

#include <com/sun/star/awt/Key.hpp>

namespace pellora::libreoffice {

bool IsDroppedDown(const Window&) { return false; }

bool IsForDroppedList(const awt::KeyEvent& key) {
  switch (key.KeyCode) {
    case awt::Key::UP:
    case awt::Key::DOWN:
    case awt::Key::RETURN:
    case awt::Key::ESCAPE: return true;
    default: return false;
  }
}

}  // namespace pellora::libreoffice
