#pragma once

#include <rtl/ustring.hxx>
#include <span>
#include <string_view>

namespace pellora::libreoffice {

enum class MemberId {
  ObjExcelApplication,
  RefEditInputs,
  ExcelApplication,
  CreateNewProject,
  AddNewSymbol,
  ShowRefEditInterface,
  UnloadfrmMaster,
  ErrNumber,
  ErrSource,
  ErrDescription,
};

/// What an argument by reference holds.
enum class ValueKind { Integer, Double, Text };

struct Parameter {
  std::string_view name;
  ValueKind kind;
};

enum class MemberKind { Method, Property, ReadOnlyProperty };

/// One name that macros may use on the object.
struct ClassMember {
  MemberId id;
  MemberKind kind;
  std::string_view name;
  /// All by reference; empty for properties.
  std::span<const Parameter> parameters;

  bool IsMethod() const { return kind == MemberKind::Method; }
  /// True for a method that opens a dialog, during which macros may run.
  bool WaitsForUser() const { return IsMethod() && id != MemberId::UnloadfrmMaster; }
};

/// All of them, in the order of the interface.
std::span<const ClassMember> ClassMembers();

/// The name by which a macro language is to remember a member that it looked for: the member's own, or one that no
/// macro writes for a method that must be looked for anew at each call.
rtl::OUString NameToKeep(const ClassMember& member);

/// The member of a name in any letter case, or of one to keep; null for none.
const ClassMember* FindClassMember(const rtl::OUString& name);

}  // namespace pellora::libreoffice
