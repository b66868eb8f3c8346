#pragma once

#include <vector>

#include "platform/windows/ole/Owners.h"

namespace pellora::windows {

/// One way of using a member of an interface: its id, the kind of use, and the types of its arguments in their written
/// order, VT_BYREF where the caller's variable is written.
struct Member {
  MEMBERID id;
  INVOKEKIND kind;
  std::vector<VARTYPE> parameters;
};

/// The members of an interface as its type information tells them, read once: walking it costs more than most calls.
class MemberTable {
 public:
  explicit MemberTable(ITypeInfo* type);

  /// The member of that id for a late-bound call's flags, null for none.
  const Member* Find(MEMBERID id, WORD flags) const;

 private:
  std::vector<Member> m_members;
};

}  // namespace pellora::windows
