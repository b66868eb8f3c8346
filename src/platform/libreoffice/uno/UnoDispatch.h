#pragma once

#include <com/sun/star/uno/Any.hxx>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <span>
#include <string_view>

#include "core/Dispatch.h"
#include "platform/libreoffice/uno/Members.h"
#include "platform/libreoffice/uno/Session.h"

namespace pellora::libreoffice {

/// An object of the office program as a late-bound one. Shares the object for as long as it lives, which may be longer
/// than the workbook: every call then raises an `Error`.
class UnoDispatch : public Dispatch, public std::enable_shared_from_this<UnoDispatch> {
 public:
  using Object = com::sun::star::uno::Reference<com::sun::star::uno::XInterface>;
  using Context = com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>;

  /// `object` must not be null.
  UnoDispatch(Object object, SessionPtr session);

  Variant Invoke(std::string_view name, CallKind kind, std::span<const Variant> arguments) override;
  bool Has(std::string_view name) override;

  /// As the object itself has it, without the table of differences. Names in lower case.
  Variant Plain(std::string_view lowerName, CallKind kind, std::span<const Variant> arguments);
  /// Reads a property or runs a method without arguments, as the object itself has it, and leaves the answer as it is.
  com::sun::star::uno::Any Raw(std::string_view lowerName);

  const Object& object() const { return m_object; }
  const SessionPtr& session() const { return m_session; }
  const Context& context() const { return m_session->context; }
  const ObjectType& type() const { return *m_type; }

  /// The range that a border, a fill or a font belongs to, and the index with which it was asked for; null and empty
  /// for objects that stand for themselves.
  const std::shared_ptr<UnoDispatch>& owner() const { return m_owner; }
  const Variant& index() const { return m_index; }

  /// How many documents had been closed when this was last known to be alive.
  std::uint32_t seenClosings() const { return m_seenClosings; }
  void seeClosings(std::uint32_t count) const { m_seenClosings = count; }

 private:
  Variant Adopt(Variant answer, std::span<const Variant> arguments);
  com::sun::star::uno::Any Read(const Member& member, std::span<const Variant> arguments);
  void Write(const Member& member, std::span<const Variant> arguments);
  com::sun::star::uno::Any Run(const Method& method, std::span<const Variant> arguments);
  com::sun::star::uno::Any Indexed(const com::sun::star::uno::Any& collection, std::span<const Variant> arguments);

  Object m_object;
  SessionPtr m_session;
  const ObjectType* m_type;
  std::shared_ptr<UnoDispatch> m_owner;
  Variant m_index;
  mutable std::uint32_t m_seenClosings;
};

}  // namespace pellora::libreoffice
