// Stands where the windows and the late-bound objects will be linked from.
#include <com/sun/star/bridge/oleautomation/Date.hpp>

#include "core/Error.h"
#include "platform/libreoffice/forms/UnoToolkit.h"
#include "platform/libreoffice/uno/Text.h"
#include "platform/libreoffice/uno/UnoObject.h"

namespace pellora::libreoffice {

#ifndef PELLORA_HAS_FORMS
UnoToolkit::UnoToolkit(const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context)
    : m_context(context) {}
std::unique_ptr<FormPeer> UnoToolkit::CreatePeer(Form&) { throw Error(errors::InvalidCall); }
MessageAnswer UnoToolkit::ShowMessage(const Message&) { return MessageAnswer::Abort; }
void UnoToolkit::Beep() {}
#endif

#ifndef PELLORA_HAS_UNO
using com::sun::star::uno::Any;
using com::sun::star::uno::Reference;
using com::sun::star::uno::XComponentContext;
using com::sun::star::uno::XInterface;

DispatchPtr ToDispatch(const Reference<XInterface>& object, const Reference<XComponentContext>&) {
  if (!object.is()) return nullptr;
  throw Error(errors::TypeMismatch);
}

Reference<XInterface> FromDispatch(const DispatchPtr&) { return {}; }

Variant FromAny(const Any& value, const Reference<XComponentContext>& context) {
  rtl::OUString text;
  bool flag = false;
  std::int16_t integer = 0;
  std::int32_t number = 0;
  double real = 0;
  Reference<XInterface> object;
  if (!value.hasValue()) return {};
  if (value.getValueTypeClass() == com::sun::star::uno::TypeClass_INTERFACE && (value >>= object, true))
    return ToDispatch(object, context);
  if (value >>= text) return Narrow(text);
  if (value >>= flag) return flag;
  if (value >>= integer) return integer;
  if (value >>= number) return number;
  if (value >>= real) return real;
  sal_Int64 wide = 0;
  if (value >>= wide) return static_cast<double>(wide);
  com::sun::star::bridge::oleautomation::Date date;
  if (value >>= date) return Variant::Date(date.Value);
  throw Error(errors::TypeMismatch);
}

Any ToAny(const Variant& value) {
  switch (value.Kind()) {
    case Variant::Type::Boolean: return Any(value.Boolean());
    case Variant::Type::Integer: return Any(value.Integer());
    case Variant::Type::Long: return Any(value.Long());
    case Variant::Type::Double: return Any(value.Double());
    case Variant::Type::String: return Any(Wide(value.String()));
    default: return {};
  }
}
#endif

}  // namespace pellora::libreoffice
