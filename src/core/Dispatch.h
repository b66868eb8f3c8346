#pragma once

#include <span>
#include <string_view>

#include "core/Variant.h"

namespace pellora {

/// How a member of a late-bound object is used. `Get` also covers a property with arguments (`Range("A1")`,
/// `Cells(2, 1)`) and is what may be tried again while the host is busy; `Put` sets a property, the new value being
/// the last argument; `PutRef` does so for an object; `Call` runs a method.
enum class CallKind { Get, Put, PutRef, Call };

/// A late-bound object: the only way in which the library reaches objects that are not its own. A platform (or the
/// embedded workbook) implements it. Names compare without regard to case, as in automation.
class Dispatch {
 public:
  virtual ~Dispatch() = default;

  /// Uses the member `name`. Arguments stand in the order in which they are written in a macro.
  /// Raises `Error`: 438 for an unknown member, 13 for an argument that does not convert, 450 for a wrong count, and
  /// whatever the object itself reports (1004 for a refusal of the spreadsheet).
  virtual Variant Invoke(std::string_view name, CallKind kind, std::span<const Variant> arguments) = 0;

  /// True when the object has a member of that name. Runs nothing of the object's.
  virtual bool Has(std::string_view name) = 0;
};

}  // namespace pellora
