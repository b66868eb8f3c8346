#pragma once

#include "platform/libreoffice/uno/UnoDispatch.h"

/// What a user has selected, across a look at another sheet. Of a sheet that is not the active one the program keeps
/// the cursor and forgets the selected cells.
namespace pellora::libreoffice {

/// To be called before another sheet is made the active one: remembers what is selected, when that is more than the
/// cursor.
void RememberSelection(UnoDispatch& object);

/// To be called when a sheet has become the active one: selects what was remembered of it, unless its cursor has been
/// moved out of that meanwhile. The view stays where it is.
void RestoreSelection(UnoDispatch& object);

}  // namespace pellora::libreoffice
