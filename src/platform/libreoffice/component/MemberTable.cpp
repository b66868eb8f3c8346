#include "platform/libreoffice/component/MemberTable.h"

#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

constexpr Parameter kQuoteFields[] = {
    {"AskPrice", ValueKind::Integer},  {"AskSize", ValueKind::Integer},    {"BidPrice", ValueKind::Integer},
    {"BidSize", ValueKind::Integer},   {"ClosePrice", ValueKind::Integer}, {"HighTick", ValueKind::Integer},
    {"LastPrice", ValueKind::Integer}, {"LastSize", ValueKind::Integer},   {"LowTick", ValueKind::Integer},
    {"Volume", ValueKind::Integer},
};

constexpr Parameter kContract[] = {
    {"Symbol", ValueKind::Text},       {"TypeSymbol", ValueKind::Text},
    {"Expiry", ValueKind::Text},       {"Strike", ValueKind::Double},
    {"Right", ValueKind::Text},        {"Multiplier", ValueKind::Double},
    {"Exchange", ValueKind::Text},     {"PrimaryExchange", ValueKind::Text},
    {"TypeCurrency", ValueKind::Text}, {"ComTypeListIndex", ValueKind::Integer},
};

constexpr ClassMember kMembers[] = {
    {MemberId::ObjExcelApplication, MemberKind::Property, "m_ObjExcelApplication", {}},
    {MemberId::RefEditInputs, MemberKind::Property, "RefEditInputs", {}},
    {MemberId::ExcelApplication, MemberKind::Property, "ExcelApplication", {}},
    {MemberId::CreateNewProject, MemberKind::Method, "CreateNewProject", kQuoteFields},
    {MemberId::AddNewSymbol, MemberKind::Method, "AddNewSymbol", kContract},
    {MemberId::ShowRefEditInterface, MemberKind::Method, "ShowRefEditInterface", {}},
    {MemberId::UnloadfrmMaster, MemberKind::Method, "UnloadfrmMaster", {}},
    {MemberId::ErrNumber, MemberKind::ReadOnlyProperty, "ErrNumber", {}},
    {MemberId::ErrSource, MemberKind::ReadOnlyProperty, "ErrSource", {}},
    {MemberId::ErrDescription, MemberKind::ReadOnlyProperty, "ErrDescription", {}},
};

constexpr char kCallMark[] = "()";

}  // namespace

std::span<const ClassMember> ClassMembers() { return kMembers; }

rtl::OUString NameToKeep(const ClassMember& member) {
  const rtl::OUString name = Wide(member.name);
  return member.WaitsForUser() ? name + kCallMark : name;
}

const ClassMember* FindClassMember(const rtl::OUString& name) {
  rtl::OUString wanted = name;
  name.endsWith(kCallMark, &wanted);
  for (const ClassMember& member : kMembers)
    if (wanted.equalsIgnoreAsciiCase(Wide(member.name))) return &member;
  return nullptr;
}

}  // namespace pellora::libreoffice
