#include "workbook/State.h"

#include "core/Error.h"

namespace pellora::workbook {

void Host::State::Enter(std::string_view object, std::string_view member, CallKind kind) {
  std::string name(object);
  name.append(".").append(member);
  ++calls;
  ++callsByMember[name];
  if (!fail || !*fail) return;
  if (const std::int32_t number = (*fail)(name, kind, calls)) throw Error(number);
}

std::size_t Host::State::IndexOf(const Sheet& sheet) const {
  for (std::size_t i = 0; i < document.sheets.size(); ++i)
    if (document.sheets[i].get() == &sheet) return i;
  throw Error(errors::ObjectRequired);
}

}  // namespace pellora::workbook
