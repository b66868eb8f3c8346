#pragma once

#include <com/sun/star/uno/Any.hxx>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/Sequence.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/Variant.h"
#include "platform/libreoffice/component/MemberTable.h"

namespace pellora::libreoffice {

/// The arguments of a call by name, in the order of the member's parameters, whatever the variables hold: what converts
/// is taken, and nothing is written before `WriteBack`. Lives for one call.
class CallArguments {
 public:
  using Values = com::sun::star::uno::Sequence<com::sun::star::uno::Any>;
  using Positions = com::sun::star::uno::Sequence<sal_Int16>;

  /// Arguments come by their place, or by name. Raises 450 for too many, 449 for one that is left out, 448 for a name
  /// that the member does not have, 13 for a value that does not convert, 6 for a number that does not fit.
  CallArguments(const ClassMember& member, const Values& given,
                const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context);

  std::int16_t Integer(std::size_t place) const { return m_values[place].Integer(); }
  double Double(std::size_t place) const { return m_values[place].Double(); }
  const std::string& Text(std::size_t place) const { return m_values[place].String(); }

  void Put(std::size_t place, Variant value) { m_values[place] = std::move(value); }

  /// Hands all values to the caller. They stand in the order of the call, without a gap: Basic writes the first value
  /// to its first argument, whatever position is given with it.
  void WriteBack(Positions& positions, Values& values) const;

 private:
  std::vector<Variant> m_values;
  /// Of each given argument the parameter it was meant for.
  std::vector<std::size_t> m_places;
};

}  // namespace pellora::libreoffice
