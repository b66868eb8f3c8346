#include "workbook/Refusal.h"

#include <string>

#include "core/Error.h"

namespace pellora::workbook {

void Refuse() { Refuse(StandardDescription(errors::ApplicationDefined)); }

void Refuse(std::string_view text) {
  throw Error(errors::ApplicationDefined, "Pellora embedded workbook", std::string(text));
}

}  // namespace pellora::workbook
