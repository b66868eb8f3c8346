#include "platform/libreoffice/uno/Values.h"

#include <com/sun/star/bridge/oleautomation/Currency.hpp>
#include <com/sun/star/bridge/oleautomation/Date.hpp>
#include <com/sun/star/bridge/oleautomation/SCode.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/script/ArrayWrapper.hpp>
#include <com/sun/star/script/XTypeConverter.hpp>
#include <utility>

#include "core/Convert.h"
#include "core/Error.h"
#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/Text.h"
#include "platform/libreoffice/uno/UnoDispatch.h"

namespace pellora::libreoffice {
namespace {

namespace css = com::sun::star;
namespace ole = com::sun::star::bridge::oleautomation;
using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::TypeClass;
using css::uno::XInterface;

constexpr std::int32_t kParameterNotFound = static_cast<std::int32_t>(0x80020004);
constexpr double kCurrencyUnits = 10000;

template <class Held>
Held HeldIn(const Any& value) {
  Held held{};
  value >>= held;
  return held;
}

template <class Whole>
Variant FromWide(Whole value) {
  if (std::in_range<std::int32_t>(value)) return static_cast<std::int32_t>(value);
  return static_cast<double>(value);
}

// Rows of values, whatever the sequences hold.
using Rows = Sequence<Sequence<Any>>;

Any Converted(const Any& value, const css::uno::Type& type, const SessionPtr& session) {
  const Reference<css::script::XTypeConverter> converter(
      session->context->getServiceManager()->createInstanceWithContext("com.sun.star.script.Converter",
                                                                       session->context),
      css::uno::UNO_QUERY_THROW);
  return converter->convertTo(value, type);
}

Variant FromRows(const Rows& rows, int base, const SessionPtr& session) {
  const sal_Int32 columns = rows.hasElements() ? rows[0].getLength() : 0;
  auto block = std::make_shared<VariantArray>(rows.getLength(), columns, base, base);
  for (sal_Int32 row = 0; row < rows.getLength(); ++row) {
    if (rows[row].getLength() != columns) throw Error(errors::TypeMismatch);
    for (sal_Int32 column = 0; column < columns; ++column) block->At(row, column) = FromAny(rows[row][column], session);
  }
  return block;
}

Variant FromList(const Sequence<Any>& list, int base, const SessionPtr& session) {
  auto values = std::make_shared<VariantArray>(1, list.getLength(), base, base, 1);
  for (sal_Int32 i = 0; i < list.getLength(); ++i) values->At(0, i) = FromAny(list[i], session);
  return values;
}

Variant FromSequence(const Any& value, int base, const SessionPtr& session) {
  Rows rows;
  if (value >>= rows) return FromRows(rows, base, session);
  Sequence<Any> list;
  if (value >>= list) return FromList(list, base, session);
  const bool nested = value.getValueTypeName().startsWith("[][]");
  if (nested) return FromRows(HeldIn<Rows>(Converted(value, cppu::UnoType<Rows>::get(), session)), base, session);
  return FromList(HeldIn<Sequence<Any>>(Converted(value, cppu::UnoType<Sequence<Any>>::get(), session)), base, session);
}

Variant FromCode(std::int32_t code) {
  return code == kParameterNotFound ? Variant::Missing() : Variant::CellError(code);
}

Variant FromStruct(const Any& value, const SessionPtr& session) {
  css::script::ArrayWrapper wrapper;
  if (value >>= wrapper) return FromSequence(wrapper.Array, wrapper.IsZeroIndex ? 0 : 1, session);
  ole::Date date;
  if (value >>= date) return Variant::Date(date.Value);
  ole::SCode code;
  if (value >>= code) return FromCode(code.Value);
  ole::Currency currency;
  if (value >>= currency) return static_cast<double>(currency.Value) / kCurrencyUnits;
  throw Error(errors::TypeMismatch);
}

Variant FromInterface(const Any& value, const SessionPtr& session) {
  const auto object = HeldIn<Reference<XInterface>>(value);
  if (!object.is() && value.getValueType() == cppu::UnoType<XInterface>::get()) return Variant::Null();
  return object.is() ? DispatchPtr(std::make_shared<UnoDispatch>(object, session)) : DispatchPtr();
}

Any WholeNumber(std::int32_t number) {
  if (std::in_range<sal_Int16>(number)) return Any(static_cast<sal_Int16>(number));
  return Any(static_cast<sal_Int32>(number));
}

Any FromObject(const DispatchPtr& object) {
  const auto original = FromDispatch(object);
  if (object && !original.is()) throw Error(errors::TypeMismatch);
  return Any(original);
}

Any FromArray(const VariantArray& values) {
  Rows rows(static_cast<sal_Int32>(values.Rows()));
  Sequence<Any>* row = rows.getArray();
  for (std::size_t i = 0; i < values.Rows(); ++i) {
    row[i].realloc(static_cast<sal_Int32>(values.Columns()));
    Any* cell = row[i].getArray();
    for (std::size_t j = 0; j < values.Columns(); ++j) cell[j] = ToAny(values.At(i, j));
  }
  if (values.Dimensions() == 1) return Any(values.Rows() ? row[0] : Sequence<Any>());
  return Any(rows);
}

Any ToBool(const Variant& value) { return Any(ToBoolean(value)); }
Any ToObjectAny(const Variant& value) { return FromObject(ToObject(value)); }

struct Writer {
  TypeClass type;
  Any (*write)(const Variant&);
};

constexpr Writer kWriters[] = {
    {css::uno::TypeClass_ANY, [](const Variant& value) { return ToAny(value); }},
    {css::uno::TypeClass_BOOLEAN, ToBool},
    {css::uno::TypeClass_SHORT, [](const Variant& value) { return Any(static_cast<sal_Int16>(ToInteger(value))); }},
    {css::uno::TypeClass_LONG, [](const Variant& value) { return Any(static_cast<sal_Int32>(ToLong(value))); }},
    {css::uno::TypeClass_HYPER, [](const Variant& value) { return Any(static_cast<sal_Int64>(ToLong(value))); }},
    {css::uno::TypeClass_FLOAT, [](const Variant& value) { return Any(static_cast<float>(ToDouble(value))); }},
    {css::uno::TypeClass_DOUBLE, [](const Variant& value) { return Any(ToDouble(value)); }},
    {css::uno::TypeClass_STRING, [](const Variant& value) { return Any(Wide(ToText(value))); }},
    {css::uno::TypeClass_INTERFACE, ToObjectAny},
};

}  // namespace

Variant FromAny(const Any& value, const SessionPtr& session) {
  switch (value.getValueTypeClass()) {
    case css::uno::TypeClass_VOID: return {};
    case css::uno::TypeClass_BOOLEAN: return static_cast<bool>(HeldIn<bool>(value));
    case css::uno::TypeClass_BYTE:
    case css::uno::TypeClass_SHORT: return static_cast<std::int16_t>(HeldIn<sal_Int16>(value));
    case css::uno::TypeClass_UNSIGNED_SHORT:
    case css::uno::TypeClass_LONG: return static_cast<std::int32_t>(HeldIn<sal_Int32>(value));
    case css::uno::TypeClass_ENUM: return *static_cast<const std::int32_t*>(value.getValue());
    case css::uno::TypeClass_UNSIGNED_LONG:
    case css::uno::TypeClass_HYPER: return FromWide(HeldIn<sal_Int64>(value));
    case css::uno::TypeClass_UNSIGNED_HYPER: return FromWide(HeldIn<sal_uInt64>(value));
    case css::uno::TypeClass_FLOAT:
    case css::uno::TypeClass_DOUBLE: return HeldIn<double>(value);
    case css::uno::TypeClass_CHAR: return Narrow(rtl::OUString(*static_cast<const sal_Unicode*>(value.getValue())));
    case css::uno::TypeClass_STRING: return Narrow(HeldIn<rtl::OUString>(value));
    case css::uno::TypeClass_SEQUENCE: return Guarded([&] { return FromSequence(value, 0, session); });
    case css::uno::TypeClass_STRUCT: return Guarded([&] { return FromStruct(value, session); });
    case css::uno::TypeClass_INTERFACE: return FromInterface(value, session);
    default: throw Error(errors::TypeMismatch);
  }
}

Any ToAny(const Variant& value) {
  switch (value.Kind()) {
    case Variant::Type::Null: return Any(Reference<XInterface>());
    case Variant::Type::Boolean: return Any(value.Boolean());
    case Variant::Type::Integer: return Any(static_cast<sal_Int16>(value.Integer()));
    case Variant::Type::Long: return WholeNumber(value.Long());
    case Variant::Type::Double: return Any(value.Double());
    case Variant::Type::Date: return Any(ole::Date(value.DateDays()));
    case Variant::Type::String: return Any(Wide(value.String()));
    case Variant::Type::Error: return Any(ole::SCode(value.ErrorCode()));
    case Variant::Type::Object: return FromObject(value.Object());
    case Variant::Type::Array: return FromArray(value.Array());
    default: return {};
  }
}

Any ToAnyOf(const Variant& value, TypeClass type) {
  for (const Writer& writer : kWriters)
    if (writer.type == type) return writer.write(value);
  return ToAny(value);
}

DispatchPtr ObjectIn(const Variant& value) {
  auto object = ToObject(value);
  if (!object) throw Error(errors::ObjectNotSet);
  return object;
}

}  // namespace pellora::libreoffice
