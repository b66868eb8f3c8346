#include "platform/libreoffice/component/CallArguments.h"

#include <algorithm>
#include <com/sun/star/bridge/oleautomation/NamedArgument.hpp>

#include "core/Convert.h"
#include "core/Error.h"
#include "platform/libreoffice/uno/Text.h"
#include "platform/libreoffice/uno/UnoObject.h"

namespace pellora::libreoffice {
namespace {

namespace uno = com::sun::star::uno;
using com::sun::star::bridge::oleautomation::NamedArgument;

std::size_t PlaceOf(std::span<const Parameter> parameters, const rtl::OUString& name) {
  const auto found = std::find_if(parameters.begin(), parameters.end(), [&](const Parameter& parameter) {
    return name.equalsIgnoreAsciiCase(Wide(parameter.name));
  });
  if (found == parameters.end()) throw Error(errors::NamedArgumentNotFound);
  return static_cast<std::size_t>(found - parameters.begin());
}

Variant As(ValueKind kind, const Variant& value) {
  switch (kind) {
    case ValueKind::Integer: return ToInteger(value);
    case ValueKind::Double: return ToDouble(value);
    case ValueKind::Text: break;
  }
  return ToText(value);
}

// A value of another kind is a mismatch whatever kind it is; only a number too large is told apart.
Variant Fit(ValueKind kind, const uno::Any& given, const uno::Reference<uno::XComponentContext>& context) {
  try {
    return As(kind, FromAny(given, context));
  } catch (const Error& error) {
    throw Error(error.Number() == errors::Overflow ? errors::Overflow : errors::TypeMismatch);
  }
}

}  // namespace

CallArguments::CallArguments(const ClassMember& member, const Values& given,
                             const uno::Reference<uno::XComponentContext>& context)
    : m_values(member.parameters.size()) {
  const auto count = static_cast<std::size_t>(given.getLength());
  if (count > m_values.size()) throw Error(errors::WrongArgumentCount);
  std::vector<bool> isGiven(m_values.size());
  for (std::size_t position = 0; position < count; ++position) {
    NamedArgument named;
    const uno::Any& argument = given[static_cast<sal_Int32>(position)];
    const bool byName = argument >>= named;
    const std::size_t place = byName ? PlaceOf(member.parameters, named.Name) : position;
    if (isGiven[place]) throw Error(errors::WrongArgumentCount);
    m_values[place] = Fit(member.parameters[place].kind, byName ? named.Value : argument, context);
    isGiven[place] = true;
    m_places.push_back(place);
  }
  if (count < m_values.size()) throw Error(errors::ArgumentNotOptional);
}

void CallArguments::WriteBack(Positions& positions, Values& values) const {
  const auto count = static_cast<sal_Int32>(m_places.size());
  Positions all(count);
  Values written(count);
  for (sal_Int32 position = 0; position < count; ++position) {
    all.getArray()[position] = static_cast<sal_Int16>(position);
    written.getArray()[position] = ToAny(m_values[m_places[static_cast<std::size_t>(position)]]);
  }
  positions = all;
  values = written;
}

}  // namespace pellora::libreoffice
