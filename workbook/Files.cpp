#include "workbook/Refusal.h"
#include "workbook/State.h"

namespace pellora::workbook {

void Host::State::Open(std::string_view) { Refuse("Files cannot be opened yet"); }
void Host::State::Save(std::string_view) { Refuse("Files cannot be saved yet"); }

}  // namespace pellora::workbook
