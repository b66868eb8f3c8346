#include "platform/windows/ole/CallShape.h"

namespace pellora::ole {
namespace {

// Far above what any call carries; a count beyond it is a wild one.
constexpr UINT kMostArguments = 256;

}  // namespace

HRESULT CheckShape(const DISPPARAMS* parameters) noexcept {
  if (!parameters) return E_INVALIDARG;
  const bool missing =
      (parameters->cArgs > 0 && !parameters->rgvarg) || (parameters->cNamedArgs > 0 && !parameters->rgdispidNamedArgs);
  if (missing || parameters->cNamedArgs > parameters->cArgs) return E_INVALIDARG;
  return parameters->cArgs > kMostArguments ? DISP_E_BADPARAMCOUNT : S_OK;
}

bool NamesOnlyPutValue(const DISPPARAMS& parameters, WORD flags) noexcept {
  if (parameters.cNamedArgs == 0) return true;
  const bool put = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
  return put && parameters.cNamedArgs == 1 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
}

std::optional<CallKind> KindOf(WORD flags) noexcept {
  if (flags & DISPATCH_PROPERTYPUTREF) return CallKind::PutRef;
  if (flags & DISPATCH_PROPERTYPUT) return CallKind::Put;
  if (flags & DISPATCH_PROPERTYGET) return CallKind::Get;
  if (flags & DISPATCH_METHOD) return CallKind::Call;
  return std::nullopt;
}

}  // namespace pellora::ole
