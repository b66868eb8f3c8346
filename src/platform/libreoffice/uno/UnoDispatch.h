#pragma once

#include <com/sun/star/uno/Any.hxx>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <span>
#include <string_view>

#include "core/Dispatch.h"
#include "platform/libreoffice/uno/Members.h"

namespace pellora::libreoffice {

/// An object of the office program as a late-bound one. Shares the object for as long as it lives, which may be longer
/// than the workbook: every call then raises an `Error`.
class UnoDispatch : public Dispatch {
 public:
  using Object = com::sun::star::uno::Reference<com::sun::star::uno::XInterface>;
  using Context = com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>;

  /// `object` must not be null.
  UnoDispatch(Object object, Context context);

  Variant Invoke(std::string_view name, CallKind kind, std::span<const Variant> arguments) override;
  bool Has(std::string_view name) override;

  /// As the object itself has it, without the table of differences. Names in lower case.
  Variant Plain(std::string_view lowerName, CallKind kind, std::span<const Variant> arguments);
  /// Reads a property or runs a method without arguments, as the object itself has it, and leaves the answer as it is.
  com::sun::star::uno::Any Raw(std::string_view lowerName);

  const Object& object() const { return m_object; }
  const Context& context() const { return m_context; }
  const ObjectType& type() const { return *m_type; }

 private:
  com::sun::star::uno::Any Read(const Member& member, std::span<const Variant> arguments);
  void Write(const Member& member, std::span<const Variant> arguments);
  com::sun::star::uno::Any Run(const Method& method, std::span<const Variant> arguments);
  com::sun::star::uno::Any Indexed(const com::sun::star::uno::Any& collection, std::span<const Variant> arguments);

  Object m_object;
  Context m_context;
  const ObjectType* m_type;
};

}  // namespace pellora::libreoffice
