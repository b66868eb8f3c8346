#include "platform/windows/server/ComPellora.h"

#include <algorithm>
#include <array>

#include "automation/ArgumentOrder.h"
#include "core/Error.h"
#include "platform/windows/ole/CallShape.h"
#include "platform/windows/ole/Convert.h"
#include "platform/windows/ole/Failure.h"
#include "platform/windows/server/CallArguments.h"

namespace pellora::windows {
namespace {

using ole::BStr;
using ole::ComPtr;
using ole::OleVariant;

constexpr std::string_view kSource = "Pellora.cPellora";

using TextVariables = std::array<BSTR*, kContractTextOrder.size()>;

template <class... Pointers>
bool AnyNull(const Pointers*... pointers) {
  return (... || (pointers == nullptr));
}

// Whatever goes wrong while an object is made, also around the portable one, its creator hears of it in one way.
ComPtr<_cPellora> MakeOrRaise(_cPellora* (*make)()) {
  ComPtr<_cPellora> made;
  try {
    made.attach(make());
  } catch (...) {
    throw Error(errors::Component(100), "Pellora.cPellora.Class_Initialize", "cPellora component failure");
  }
  return made;
}

ContractRecord ReadTexts(const TextVariables& variables) {
  ContractRecord contract;
  for (std::size_t i = 0; i < variables.size(); ++i)
    contract.*kContractTextOrder[i].text = ole::Narrow({*variables[i], SysStringLen(*variables[i])});
  return contract;
}

// Makes all texts before it touches a variable, so that the variables change together or not at all.
void WriteTexts(const ContractRecord& contract, const TextVariables& variables) {
  std::array<BStr, kContractTextOrder.size()> texts;
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = BStr(contract.*kContractTextOrder[i].text);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    BStr old;
    old.attach(*variables[i]);
    *variables[i] = texts[i].detach();
  }
}

}  // namespace

HRESULT ComPellora::Create(REFIID id, void** object) {
  const auto made = MakeOrRaise([]() -> _cPellora* { return new ComPellora; });
  return made->QueryInterface(id, object);
}

HRESULT ComPellora::ReportFailedCreation() noexcept { return ole::ReportCaught(__uuidof(_cPellora), kSource); }

HRESULT ComPellora::QueryInterface(REFIID id, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) || IsEqualIID(id, __uuidof(_cPellora)))
    *object = static_cast<_cPellora*>(this);
  else if (IsEqualIID(id, IID_ISupportErrorInfo))
    *object = static_cast<ISupportErrorInfo*>(this);
  if (!*object) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG ComPellora::AddRef() noexcept { return ++m_references; }

ULONG ComPellora::Release() noexcept {
  const ULONG left = --m_references;
  if (left == 0) delete this;
  return left;
}

HRESULT ComPellora::GetTypeInfoCount(UINT* count) noexcept {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT ComPellora::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  *info = ComPtr<ITypeInfo>(m_state->type()).detach();
  return S_OK;
}

HRESULT ComPellora::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
  if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids || count == 0 || std::find(names, names + count, nullptr) != names + count) return E_INVALIDARG;
  return m_state->type()->GetIDsOfNames(names, count, ids);
}

HRESULT ComPellora::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* info, UINT* badArgument) noexcept {
  if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (const HRESULT shape = ole::CheckShape(parameters); FAILED(shape)) return shape;
  SetErrorInfo(0, nullptr);
  try {
    const Member* const member = m_state->members().Find(id, flags);
    return member ? CallMember(*member, *parameters, result, info, badArgument) : DISP_E_MEMBERNOTFOUND;
  } catch (...) {
    return ole::ReportCaught(info);
  }
}

HRESULT ComPellora::CallMember(const Member& member, const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* info,
                               UINT* badArgument) {
  // The members and the variables outlive the call even when the caller lets go of the object in it.
  const ComPtr<_cPellora> self(this);
  CallArguments arguments(member.parameters);
  if (const HRESULT code = arguments.Take(parameters, badArgument); FAILED(code)) return code;
  const bool put = member.kind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF);
  DISPID putId = DISPID_PROPERTYPUT;
  DISPPARAMS fitting{arguments.data(), put ? &putId : nullptr, arguments.size(), put ? 1u : 0u};
  OleVariant answer;
  const HRESULT code = m_state->type()->Invoke(static_cast<_cPellora*>(this), member.id, static_cast<WORD>(member.kind),
                                               &fitting, put ? nullptr : answer.put(), info, badArgument);
  if (SUCCEEDED(code)) arguments.WriteBack();
  if (code == DISP_E_EXCEPTION) arguments.WriteBackChanged();
  if (SUCCEEDED(code) && result) *result = answer.detach();
  return code;
}

HRESULT ComPellora::InterfaceSupportsErrorInfo(REFIID id) noexcept {
  return IsEqualIID(id, __uuidof(_cPellora)) ? S_OK : S_FALSE;
}

template <class Body>
HRESULT ComPellora::Run(Body&& body) noexcept {
  SetErrorInfo(0, nullptr);
  // The caller may release its last reference while a dialog is up.
  const ComPtr<_cPellora> self(this);
  try {
    body();
    return S_OK;
  } catch (...) {
    return ole::ReportCaught(__uuidof(_cPellora), kSource);
  }
}

HRESULT ComPellora::get_m_ObjExcelApplication(IDispatch** application) noexcept {
  if (!application) return E_POINTER;
  return Run([&] { *application = ole::ToDispatch(m_object.m_ObjExcelApplication()).detach(); });
}

HRESULT ComPellora::putref_m_ObjExcelApplication(IDispatch* application) noexcept {
  return Run([&] { m_object.m_ObjExcelApplication(ole::FromDispatch(application)); });
}

HRESULT ComPellora::put_m_ObjExcelApplication(IDispatch* application) noexcept {
  return putref_m_ObjExcelApplication(application);
}

HRESULT ComPellora::get_RefEditInputs(BSTR* address) noexcept {
  if (!address) return E_POINTER;
  return Run([&] { *address = BStr(m_object.RefEditInputs()).detach(); });
}

HRESULT ComPellora::put_RefEditInputs(BSTR address) noexcept {
  return Run([&] { m_object.RefEditInputs(ole::Narrow({address, SysStringLen(address)})); });
}

HRESULT ComPellora::get_ExcelApplication(VARIANT* application) noexcept {
  if (!application) return E_POINTER;
  return Run([&] { ole::ToVariant(m_object.ExcelApplication(), application); });
}

HRESULT ComPellora::put_ExcelApplication(VARIANT application) noexcept {
  return Run([&] { m_object.ExcelApplication(ole::FromVariant(application)); });
}

HRESULT ComPellora::putref_ExcelApplication(VARIANT application) noexcept { return put_ExcelApplication(application); }

HRESULT ComPellora::CreateNewProject(short* AskPrice, short* AskSize, short* BidPrice, short* BidSize,
                                     short* ClosePrice, short* HighTick, short* LastPrice, short* LastSize,
                                     short* LowTick, short* Volume, VARIANT_BOOL* confirmed) noexcept {
  short* const variables[] = {AskPrice, AskSize,   BidPrice, BidSize, ClosePrice,
                              HighTick, LastPrice, LastSize, LowTick, Volume};
  if (!confirmed || std::find(std::begin(variables), std::end(variables), nullptr) != std::end(variables))
    return E_POINTER;
  return Run([&] {
    QuoteFields fields;
    for (std::size_t i = 0; i < kQuoteFieldOrder.size(); ++i) fields.*kQuoteFieldOrder[i] = *variables[i];
    const bool answer = m_object.CreateNewProject(fields);
    for (std::size_t i = 0; answer && i < kQuoteFieldOrder.size(); ++i) *variables[i] = fields.*kQuoteFieldOrder[i];
    *confirmed = answer ? VARIANT_TRUE : VARIANT_FALSE;
  });
}

HRESULT ComPellora::AddNewSymbol(BSTR* Symbol, BSTR* TypeSymbol, BSTR* Expiry, double* Strike, BSTR* Right,
                                 double* Multiplier, BSTR* Exchange, BSTR* PrimaryExchange, BSTR* TypeCurrency,
                                 short* ComTypeListIndex, short* outcome) noexcept {
  if (AnyNull(Symbol, TypeSymbol, Expiry, Right, Exchange, PrimaryExchange, TypeCurrency) ||
      AnyNull(Strike, Multiplier) || AnyNull(ComTypeListIndex, outcome))
    return E_POINTER;
  const TextVariables texts = {Symbol, TypeSymbol, Expiry, Right, Exchange, PrimaryExchange, TypeCurrency};
  ContractRecord before, contract;
  const HRESULT code = Run([&] {
    before = ReadTexts(texts);
    before.Strike = *Strike;
    before.Multiplier = *Multiplier;
    before.ComTypeListIndex = *ComTypeListIndex;
    contract = before;
    *outcome = m_object.AddNewSymbol(contract);
  });
  // A call that was refused has not come to the variables. One that failed later has: the caller finds how far it came,
  // and the failure's own record stays.
  if (contract == before) return code;
  try {
    WriteTexts(contract, texts);
  } catch (...) {
    return ole::ReportCaught(__uuidof(_cPellora), kSource);
  }
  *Strike = contract.Strike;
  *Multiplier = contract.Multiplier;
  *ComTypeListIndex = contract.ComTypeListIndex;
  return code;
}

HRESULT ComPellora::ShowRefEditInterface(BSTR* outcome) noexcept {
  if (!outcome) return E_POINTER;
  return Run([&] { *outcome = BStr(m_object.ShowRefEditInterface()).detach(); });
}

HRESULT ComPellora::UnloadfrmMaster() noexcept {
  return Run([&] { m_object.UnloadfrmMaster(); });
}

}  // namespace pellora::windows
