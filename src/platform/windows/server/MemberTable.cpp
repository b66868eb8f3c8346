#include "platform/windows/server/MemberTable.h"

#include "platform/windows/ole/Failure.h"

namespace pellora::windows {
namespace {

// A pointer to an object is an object, a pointer to anything else is a reference.
VARTYPE TypeOf(const TYPEDESC& type) {
  if (type.vt != VT_PTR) return type.vt;
  const VARTYPE target = type.lptdesc->vt;
  return target == VT_USERDEFINED ? static_cast<VARTYPE>(VT_DISPATCH) : static_cast<VARTYPE>(target | VT_BYREF);
}

Member MemberOf(const FUNCDESC& function) {
  Member member{function.memid, function.invkind, {}};
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    if (!(parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL)) member.parameters.push_back(TypeOf(parameter.tdesc));
  }
  return member;
}

}  // namespace

MemberTable::MemberTable(ITypeInfo* type) {
  FUNCDESC* function = nullptr;
  for (UINT index = 0; SUCCEEDED(type->GetFuncDesc(index, &function)); ++index) {
    m_members.push_back(MemberOf(*function));
    type->ReleaseFuncDesc(function);
  }
}

const Member* MemberTable::Find(MEMBERID id, WORD flags) const {
  for (const Member& member : m_members)
    if (member.id == id && (member.kind & flags)) return &member;
  return nullptr;
}

}  // namespace pellora::windows
