#include "platform/windows/server/CallArguments.h"

#include <cstring>
#include <utility>

namespace pellora::windows {
namespace {

using ole::OleVariant;

// A variant that refers to a variant that refers to one is as deep as callers go.
constexpr int kMostReferences = 4;

struct Width {
  VARTYPE type;
  std::size_t bytes;
};

// The types of variables that can be read into, and written from, a member's argument.
constexpr Width kWidths[] = {
    {VT_UI1, 1},  {VT_I1, 1},  {VT_I2, 2},  {VT_UI2, 2},  {VT_BOOL, 2},
    {VT_I4, 4},   {VT_UI4, 4}, {VT_INT, 4}, {VT_UINT, 4}, {VT_R4, 4},
    {VT_I8, 8},   {VT_UI8, 8}, {VT_R8, 8},  {VT_CY, 8},   {VT_BSTR, sizeof(BSTR)},
    {VT_DATE, 8},
};

std::size_t WidthOf(VARTYPE type) {
  for (const Width& width : kWidths)
    if (width.type == type) return width.bytes;
  return 0;
}

bool SameValue(const VARIANTARG& left, const VARIANTARG& right) {
  if (left.vt != VT_BSTR) return left.vt == right.vt && std::memcmp(&left.llVal, &right.llVal, WidthOf(left.vt)) == 0;
  const UINT bytes = SysStringByteLen(left.bstrVal);
  return right.vt == VT_BSTR && bytes == SysStringByteLen(right.bstrVal) &&
         (bytes == 0 || std::memcmp(left.bstrVal, right.bstrVal, bytes) == 0);
}

// The variable behind references to variants; null for a null or endless one.
VARIANTARG* Innermost(VARIANTARG* variable) {
  for (int references = 0; variable && variable->vt == (VT_BYREF | VT_VARIANT); ++references) {
    if (references == kMostReferences) return nullptr;
    variable = variable->pvarVal;
  }
  return variable;
}

bool IsReadable(const VARIANTARG* variable, VARTYPE wanted) {
  if (!variable || !(variable->vt & VT_BYREF)) return variable != nullptr;
  const VARTYPE type = variable->vt & ~VT_BYREF;
  // An object variable is read where an object is wanted, and nowhere written.
  const bool isObject = wanted == VT_DISPATCH && (type == VT_DISPATCH || type == VT_UNKNOWN);
  return variable->byref && (isObject || WidthOf(type) > 0);
}

void WriteTo(VARIANTARG& variable, VARIANTARG& value) {
  VARIANTARG* const target = Innermost(&variable);
  if (!target) return;
  if (!(target->vt & VT_BYREF)) {
    VariantCopy(target, &value);
    return;
  }
  const VARTYPE type = target->vt & ~VT_BYREF;
  OleVariant fitting;
  if (FAILED(VariantChangeTypeEx(&fitting.get(), &value, LOCALE_USER_DEFAULT, 0, type))) return;
  if (type == VT_BSTR) SysFreeString(*target->pbstrVal);
  std::memcpy(target->byref, &fitting.get().llVal, WidthOf(type));
  // What a text holds has changed hands.
  fitting.detach();
}

}  // namespace

CallArguments::CallArguments(const std::vector<VARTYPE>& types)
    : m_types(types), m_values(types.size()), m_temporaries(types.size()) {}

HRESULT CallArguments::Take(const DISPPARAMS& parameters, UINT* badArgument) {
  const UINT count = static_cast<UINT>(m_types.size());
  if (parameters.cArgs > count) return DISP_E_BADPARAMCOUNT;
  std::vector<UINT> source(count, parameters.cArgs);
  for (UINT index = 0; index < parameters.cArgs; ++index) {
    const bool named = index < parameters.cNamedArgs;
    const DISPID name = named ? parameters.rgdispidNamedArgs[index] : 0;
    const bool value = named && name == DISPID_PROPERTYPUT;
    const UINT place = value ? count - 1 : named ? static_cast<UINT>(name) : parameters.cArgs - 1 - index;
    if (place >= count) return DISP_E_PARAMNOTFOUND;
    source[place] = index;
  }
  for (UINT place = 0; place < count; ++place) {
    if (source[place] == parameters.cArgs) return DISP_E_PARAMNOTOPTIONAL;
    const HRESULT code = Fit(parameters.rgvarg[source[place]], m_types[place], count - 1 - place);
    if (FAILED(code) && badArgument) *badArgument = source[place];
    if (FAILED(code)) return code;
  }
  return S_OK;
}

HRESULT CallArguments::Fit(VARIANTARG& given, VARTYPE type, std::size_t slot) {
  const bool byReference = type & VT_BYREF;
  const VARTYPE plainType = type & ~VT_BYREF;
  if (byReference && given.vt == type && given.byref) {
    m_values[slot] = given;
    return S_OK;
  }
  VARIANTARG* const variable = Innermost(&given);
  const bool anything = plainType == VT_VARIANT;
  if (!variable || (!anything && !IsReadable(variable, type))) return DISP_E_TYPEMISMATCH;
  if (variable->vt == VT_ERROR && variable->scode == DISP_E_PARAMNOTFOUND && !anything) return DISP_E_PARAMNOTOPTIONAL;
  OleVariant plain;
  OleVariant& temporary = m_temporaries[slot];
  if (FAILED(VariantCopyInd(&plain.get(), variable))) return DISP_E_TYPEMISMATCH;
  if (anything)
    temporary = std::move(plain);
  else if (FAILED(VariantChangeTypeEx(&temporary.get(), &plain.get(), LOCALE_USER_DEFAULT, 0, plainType)))
    return DISP_E_TYPEMISMATCH;
  m_values[slot] = temporary.get();
  if (!byReference) return S_OK;
  m_values[slot].vt = type;
  m_values[slot].byref = &temporary.get().llVal;
  if (!(given.vt & VT_BYREF)) return S_OK;
  Borrowed borrowed{&given, slot, {}};
  const HRESULT copied = VariantCopy(&borrowed.before.get(), &temporary.get());
  m_borrowed.push_back(std::move(borrowed));
  return copied;
}

void CallArguments::WriteBack() {
  for (const Borrowed& borrowed : m_borrowed) WriteTo(*borrowed.variable, m_temporaries[borrowed.slot].get());
}

void CallArguments::WriteBackChanged() {
  std::erase_if(m_borrowed, [this](const Borrowed& borrowed) {
    return SameValue(borrowed.before.get(), m_temporaries[borrowed.slot].get());
  });
  WriteBack();
}

}  // namespace pellora::windows
