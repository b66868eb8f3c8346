#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/libreoffice/uno/UnoDispatch.h"

/// What this host's object model does differently from the one that it stands for, and what is done instead, in one
/// table. No row goes by the program's version. A row of three kinds:
///
/// - Where the object or the arguments show it, the row says when it is needed, and the program is left to do the rest.
/// - Where only the result shows it, the program does it, and the row's own looks at what came of it.
/// - Cells and lines are read and written natively always. Whether the program would do it right by now could be found
///   out only by a trial in the user's own sheet, which would be seen, and be among the steps to undo. Lines that
///   are no range's are left to the program, as there are no cells to go to.
namespace pellora::libreoffice {

/// One use of a member.
struct Call {
  UnoDispatch& object;
  /// In lower case.
  std::string name;
  CallKind kind;
  std::span<const Variant> arguments;

  /// As the program has it. An index out of bounds is a refusal (1004) but for collections of sheets, names, windows.
  Variant Plain() const { return Plain(arguments); }
  Variant Plain(std::span<const Variant> others) const;

  bool Writes() const { return kind == CallKind::Put || kind == CallKind::PutRef; }
  /// The argument at a position; missing when there is none.
  Variant At(std::size_t position) const;
};

struct Difference {
  ObjectKind object;
  /// In lower case.
  std::string_view member;
  bool reads, writes;
  Variant (*instead)(const Call&);
  /// Null for the second kind and the third.
  bool (*needed)(const Call&);
  const char* why;
};

/// The whole table, for tests and documents.
std::span<const Difference> Differences();

/// The row for a use; null when the program is left to do it. Raises 1004 for a write that it must not be asked for.
const Difference* DifferenceFor(const Call& call);

/// True when the table gives objects of the kind a member that they do not have.
bool AddsMember(ObjectKind kind, std::string_view lowerName);

}  // namespace pellora::libreoffice
