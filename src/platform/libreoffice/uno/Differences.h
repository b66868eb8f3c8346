#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/libreoffice/uno/UnoDispatch.h"

/// What this host's object model does differently from the one that it stands for, and what is done instead, in one
/// table. Rows go by what is observed, not by the program's version: each says when it is needed, and where the program
/// does right by itself it is left alone.
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
  /// Null when the result shows whether it is needed; `instead` then looks at it.
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
