#include "platform/libreoffice/uno/UnoDispatch.h"

#include <com/sun/star/script/XDefaultMethod.hpp>

#include "core/Error.h"
#include "platform/libreoffice/uno/Differences.h"
#include "platform/libreoffice/uno/Documents.h"
#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/Text.h"
#include "platform/libreoffice/uno/Values.h"

namespace pellora::libreoffice {
namespace {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;

// Arguments that are left out at the end are void, where a parameter takes any value.
Sequence<Any> Padded(const Method& method, std::span<const Variant> arguments) {
  const auto& types = method.parameters;
  if (arguments.size() > types.size()) throw Error(errors::WrongArgumentCount);
  Sequence<Any> values(static_cast<sal_Int32>(types.size()));
  Any* value = values.getArray();
  for (std::size_t i = 0; i < types.size(); ++i) {
    const bool given = i < arguments.size() && !arguments[i].Is(Variant::Type::Missing);
    if (!given && types[i] != css::uno::TypeClass_ANY) throw Error(errors::ArgumentNotOptional);
    if (given) value[i] = ToAnyOf(arguments[i], types[i]);
  }
  return values;
}

}  // namespace

UnoDispatch::UnoDispatch(Object object, SessionPtr session)
    : m_object(std::move(object)),
      m_session(std::move(session)),
      m_type(&ObjectType::Of(m_object, m_session->context)),
      m_seenClosings(ClosedDocuments(m_session->context)) {}

Variant UnoDispatch::Invoke(std::string_view name, CallKind kind, std::span<const Variant> arguments) {
  return Guarded([&] {
    CheckAlive(*this);
    for (const Variant& argument : arguments)
      if (argument.Is(Variant::Type::Object))
        if (const auto* shown = dynamic_cast<const UnoDispatch*>(argument.Object().get())) CheckAlive(*shown);
    const Call call{*this, LowerName(name), kind, arguments};
    const Difference* difference = DifferenceFor(call);
    return difference ? difference->instead(call) : call.Plain();
  });
}

bool UnoDispatch::Has(std::string_view name) {
  const std::string lower = LowerName(name);
  return m_type->Find(lower) || AddsMember(m_type->Kind(), lower);
}

Variant UnoDispatch::Plain(std::string_view lowerName, CallKind kind, std::span<const Variant> arguments) {
  const Member* member = m_type->Find(lowerName);
  if (!member) throw Error(errors::MemberNotSupported);
  if (kind == CallKind::Get || kind == CallKind::Call)
    return Adopt(FromAny(Read(*member, arguments), m_session), arguments);
  Write(*member, arguments);
  return {};
}

// What belongs to a range knows it: a border has no way back to its range.
Variant UnoDispatch::Adopt(Variant answer, std::span<const Variant> arguments) {
  if (!answer.Is(Variant::Type::Object)) return answer;
  auto* child = dynamic_cast<UnoDispatch*>(answer.Object().get());
  if (!child) return answer;
  const ObjectKind kind = child->m_type->Kind();
  const bool part = kind == ObjectKind::Other || kind == ObjectKind::Borders || kind == ObjectKind::Border ||
                    kind == ObjectKind::Interior;
  if (!part) return answer;
  if (m_type->Kind() == ObjectKind::Range) child->m_owner = shared_from_this();
  if (m_owner) child->m_owner = m_owner;
  if (!arguments.empty()) child->m_index = arguments.front();
  return answer;
}

Any UnoDispatch::Raw(std::string_view lowerName) {
  const Member* member = m_type->Find(lowerName);
  if (!member) throw Error(errors::MemberNotSupported);
  return Read(*member, {});
}

Any UnoDispatch::Read(const Member& member, std::span<const Variant> arguments) {
  if (member.method.method.is()) return Run(member.method, arguments);
  const bool readable = member.attribute.is() || member.getter.method.is();
  if (!readable) throw Error(errors::MemberNotSupported);
  const Any value = member.attribute.is() ? member.attribute->get(Any(m_object)) : Run(member.getter, {});
  return arguments.empty() ? value : Indexed(value, arguments);
}

void UnoDispatch::Write(const Member& member, std::span<const Variant> arguments) {
  if (arguments.size() != 1) throw Error(errors::WrongArgumentCount);
  if (member.attribute.is()) {
    Any object(m_object);
    member.attribute->set(object, ToAnyOf(arguments[0], member.attributeType));
  } else if (member.setter.method.is()) {
    Run(member.setter, arguments);
  } else {
    throw Error(errors::WrongArgumentCount);
  }
}

Any UnoDispatch::Run(const Method& method, std::span<const Variant> arguments) {
  Sequence<Any> values = Padded(method, arguments);
  return method.method->invoke(Any(m_object), values);
}

// A property that is a collection, called with arguments, means the collection's default member.
Any UnoDispatch::Indexed(const Any& collection, std::span<const Variant> arguments) {
  const Reference<css::script::XDefaultMethod> object(collection, css::uno::UNO_QUERY);
  if (!object.is()) throw Error(errors::WrongArgumentCount);
  const std::string name = LowerName(Narrow(object->getDefaultMethodName()));
  UnoDispatch shown(object, m_session);
  const Member* member = shown.m_type->Find(name);
  if (!member) throw Error(errors::WrongArgumentCount);
  return shown.Read(*member, arguments);
}

}  // namespace pellora::libreoffice
