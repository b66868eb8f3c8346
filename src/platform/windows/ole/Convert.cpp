#include "platform/windows/ole/Convert.h"

#include <limits>
#include <memory>

#include "core/Error.h"
#include "platform/windows/ole/AutomationObject.h"
#include "platform/windows/ole/DispatchServer.h"

namespace pellora::ole {
namespace {

constexpr std::int32_t kUnsupportedType = 458;
// A reference to a variant that holds a reference again is as deep as callers go; a ring of them must not hang us.
constexpr int kMostReferences = 4;

using Read = Variant (*)(const void* at);

template <class T>
const T& Held(const void* at) {
  return *static_cast<const T*>(at);
}

// A whole number as 32 bits where it fits, otherwise as the double nearest to it.
template <class Whole>
Variant ReadWide(const void* at) {
  const Whole value = Held<Whole>(at);
  if (std::in_range<std::int32_t>(value)) return static_cast<std::int32_t>(value);
  return static_cast<double>(value);
}

template <class Narrow, class Kind>
Variant ReadAs(const void* at) {
  return static_cast<Kind>(Held<Narrow>(at));
}

Variant ReadCurrency(const void* at) {
  double value = 0;
  if (FAILED(VarR8FromCy(Held<CY>(at), &value))) throw Error(errors::Overflow);
  return value;
}

Variant ReadDecimal(const void* at) {
  double value = 0;
  if (FAILED(VarR8FromDec(const_cast<DECIMAL*>(&Held<DECIMAL>(at)), &value))) throw Error(errors::Overflow);
  return value;
}

Variant ReadText(const void* at) {
  const BSTR text = Held<BSTR>(at);
  return text ? Narrow({text, SysStringLen(text)}) : std::string();
}

Variant ReadError(const void* at) {
  const SCODE code = Held<SCODE>(at);
  return code == DISP_E_PARAMNOTFOUND ? Variant::Missing() : Variant::CellError(code);
}

Variant ReadUnknown(const void* at) {
  const ComPtr<IUnknown> object(Held<IUnknown*>(at));
  const auto dispatch = object.As<IDispatch>();
  if (object && !dispatch) throw Error(errors::TypeMismatch);
  return FromDispatch(dispatch.get());
}

struct Reader {
  VARTYPE type;
  Read read;
};

constexpr Reader kReaders[] = {
    {VT_EMPTY, [](const void*) { return Variant(); }},
    {VT_NULL, [](const void*) { return Variant::Null(); }},
    {VT_BOOL, [](const void* at) -> Variant { return Held<VARIANT_BOOL>(at) != VARIANT_FALSE; }},
    {VT_I1, ReadAs<signed char, std::int16_t>},
    {VT_UI1, ReadAs<unsigned char, std::int16_t>},
    {VT_I2, ReadAs<std::int16_t, std::int16_t>},
    {VT_UI2, ReadAs<std::uint16_t, std::int32_t>},
    {VT_I4, ReadAs<std::int32_t, std::int32_t>},
    {VT_INT, ReadAs<std::int32_t, std::int32_t>},
    {VT_UI4, ReadWide<std::uint32_t>},
    {VT_UINT, ReadWide<std::uint32_t>},
    {VT_I8, ReadWide<std::int64_t>},
    {VT_UI8, ReadWide<std::uint64_t>},
    {VT_R4, ReadAs<float, double>},
    {VT_R8, ReadAs<double, double>},
    {VT_CY, ReadCurrency},
    {VT_DECIMAL, ReadDecimal},
    {VT_DATE, [](const void* at) { return Variant::Date(Held<DATE>(at)); }},
    {VT_BSTR, ReadText},
    {VT_ERROR, ReadError},
    {VT_DISPATCH, [](const void* at) -> Variant { return FromDispatch(Held<IDispatch*>(at)); }},
    {VT_UNKNOWN, ReadUnknown},
    {VT_VARIANT, [](const void* at) { return FromVariant(Held<VARIANT>(at)); }},
};

Read ReaderOf(VARTYPE type) {
  for (const auto& reader : kReaders)
    if (reader.type == type) return reader.read;
  throw Error(kUnsupportedType);
}

// Keeps an array's memory in place.
class ArrayAccess {
 public:
  explicit ArrayAccess(SAFEARRAY* array) : m_array(array) {
    if (FAILED(SafeArrayAccessData(array, &m_data))) throw Error(errors::TypeMismatch);
  }
  ArrayAccess(const ArrayAccess&) = delete;
  ArrayAccess& operator=(const ArrayAccess&) = delete;
  ~ArrayAccess() { SafeArrayUnaccessData(m_array); }
  void* data() const { return m_data; }

 private:
  SAFEARRAY* m_array;
  void* m_data = nullptr;
};

struct Dimension {
  LONG base = 1;
  std::size_t count = 0;
};

Dimension DimensionOf(SAFEARRAY* array, UINT number) {
  LONG lower = 1, upper = 0;
  if (FAILED(SafeArrayGetLBound(array, number, &lower)) || FAILED(SafeArrayGetUBound(array, number, &upper)))
    throw Error(errors::TypeMismatch);
  return {lower, upper < lower ? 0 : static_cast<std::size_t>(static_cast<std::int64_t>(upper) - lower + 1)};
}

// In automation's arrays the first index runs fastest, so a block lies column by column.
Variant ReadArray(SAFEARRAY* array, VARTYPE type) {
  if (!array) return std::make_shared<VariantArray>(1, 0, 1, 1, 1);
  const UINT dimensions = SafeArrayGetDim(array);
  if (dimensions < 1 || dimensions > 2) throw Error(errors::TypeMismatch);
  const Dimension rows = dimensions == 2 ? DimensionOf(array, 1) : Dimension{1, 1};
  const Dimension columns = DimensionOf(array, dimensions);
  auto values =
      std::make_shared<VariantArray>(rows.count, columns.count, rows.base, columns.base, static_cast<int>(dimensions));
  const ArrayAccess access(array);
  const Read read = ReaderOf(type);
  const auto* at = static_cast<const char*>(access.data());
  for (std::size_t column = 0; column < columns.count; ++column)
    for (std::size_t row = 0; row < rows.count; ++row, at += array->cbElements) values->At(row, column) = read(at);
  return values;
}

Variant ReadAt(VARTYPE type, const void* at) {
  if (type & VT_ARRAY) return ReadArray(Held<SAFEARRAY*>(at), type & VT_TYPEMASK);
  return ReaderOf(type)(at);
}

OleVariant OfType(VARTYPE type) {
  OleVariant value;
  value.get().vt = type;
  return value;
}

OleVariant WriteArray(const VariantArray& values) {
  const bool block = values.Dimensions() == 2;
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(values.Rows()), values.RowBase()},
                             {static_cast<ULONG>(values.Columns()), values.ColumnBase()}};
  OleArray array(SafeArrayCreate(VT_VARIANT, block ? 2 : 1, block ? bounds : bounds + 1));
  if (!array.get()) throw Error(errors::OutOfMemory);
  {
    const ArrayAccess access(array.get());
    auto* at = static_cast<VARIANT*>(access.data());
    for (std::size_t column = 0; column < values.Columns(); ++column)
      for (std::size_t row = 0; row < values.Rows(); ++row) ToVariant(values.At(row, column), at++);
  }
  OleVariant result = OfType(VT_ARRAY | VT_VARIANT);
  result.get().parray = array.detach();
  return result;
}

OleVariant WriteError(std::int32_t code) {
  OleVariant result = OfType(VT_ERROR);
  result.get().scode = code;
  return result;
}

OleVariant WriteText(std::string_view text) {
  BStr copy(text);
  OleVariant result = OfType(VT_BSTR);
  result.get().bstrVal = copy.detach();
  return result;
}

OleVariant WriteObject(const DispatchPtr& object) {
  auto dispatch = ToDispatch(object);
  OleVariant result = OfType(VT_DISPATCH);
  result.get().pdispVal = dispatch.detach();
  return result;
}

// The kinds that are a number in the value itself.
OleVariant WritePlain(const Variant& value) {
  OleVariant result;
  VARIANT& out = result.get();
  switch (value.Kind()) {
    case Variant::Type::Null: out.vt = VT_NULL; break;
    case Variant::Type::Boolean:
      out.vt = VT_BOOL;
      out.boolVal = value.Boolean() ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case Variant::Type::Integer:
      out.vt = VT_I2;
      out.iVal = value.Integer();
      break;
    case Variant::Type::Long:
      out.vt = VT_I4;
      out.lVal = value.Long();
      break;
    case Variant::Type::Double:
      out.vt = VT_R8;
      out.dblVal = value.Double();
      break;
    case Variant::Type::Date:
      out.vt = VT_DATE;
      out.date = value.DateDays();
      break;
    default: break;
  }
  return result;
}

}  // namespace

Variant FromVariant(const VARIANT& value) {
  const VARIANT* held = &value;
  for (int references = 0; held->vt == (VT_BYREF | VT_VARIANT); ++references) {
    held = held->pvarVal;
    if (!held || references == kMostReferences) throw Error(errors::TypeMismatch);
  }
  const VARTYPE type = held->vt & ~VT_BYREF;
  if (held->vt & VT_BYREF) {
    if (!held->byref || type == VT_VARIANT) throw Error(errors::TypeMismatch);
    return ReadAt(type, held->byref);
  }
  // A decimal lies over the whole value, everything else behind its head.
  return ReadAt(type, type == VT_DECIMAL ? static_cast<const void*>(&held->decVal) : &held->llVal);
}

OleVariant ToVariant(const Variant& value) {
  switch (value.Kind()) {
    case Variant::Type::Missing: return WriteError(DISP_E_PARAMNOTFOUND);
    case Variant::Type::Error: return WriteError(value.ErrorCode());
    case Variant::Type::String: return WriteText(value.String());
    case Variant::Type::Object: return WriteObject(value.Object());
    case Variant::Type::Array: return WriteArray(value.Array());
    default: return WritePlain(value);
  }
}

void ToVariant(const Variant& value, VARIANT* output) { *output = ToVariant(value).detach(); }

DispatchPtr FromDispatch(IDispatch* object) {
  if (!object) return nullptr;
  if (auto own = DispatchServer::Original(object)) return own;
  return std::make_shared<AutomationObject>(object);
}

ComPtr<IDispatch> ToDispatch(const DispatchPtr& object) {
  if (!object) return {};
  if (const auto* automation = dynamic_cast<const AutomationObject*>(object.get()))
    return ComPtr<IDispatch>(automation->get());
  return DispatchServer::Show(object);
}

}  // namespace pellora::ole
