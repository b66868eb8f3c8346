#include <cstring>

#include "DialogCloser.h"
#include "FakeApplication.h"
#include "LoadedServer.h"
#include "platform/windows/ole/Convert.h"

namespace pellora::windows::test {
namespace {

using ole::BStr;
using ole::ExcepInfo;
using ole::FromVariant;
using ole::OleVariant;
using ole::ToVariant;

constexpr WORD kGet = DISPATCH_PROPERTYGET, kPut = DISPATCH_PROPERTYPUT, kPutRef = DISPATCH_PROPERTYPUTREF,
               kCall = DISPATCH_METHOD;
constexpr HRESULT kNotSet = static_cast<HRESULT>(0x800A005B), kMismatch = static_cast<HRESULT>(0x800A000D);

// What the thread's error object says, which is taken.
struct Said {
  std::string source, description;
};

Said TakeError() {
  ComPtr<IErrorInfo> info;
  BStr source, description;
  if (GetErrorInfo(0, info.put()) != S_OK) return {};
  info->GetSource(source.put());
  info->GetDescription(description.put());
  return {source.Text(), description.Text()};
}

class Object : public LoadedObject {
 protected:
  DISPID IdOf(const wchar_t* name) {
    std::wstring text(name);
    LPOLESTR names[] = {text.data()};
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, 0x409, &id), S_OK);
    return id;
  }
  HRESULT Use(DISPID id, WORD flags, DISPPARAMS* parameters) {
    return object->Invoke(id, IID_NULL, 0x409, flags, parameters, &result.get(), info.put(), nullptr);
  }
  HRESULT Get(const wchar_t* name) {
    DISPPARAMS none{};
    return Use(IdOf(name), kGet, &none);
  }
  HRESULT Set(const wchar_t* name, WORD flags, VARIANT value) {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS one{&value, &put, 1, 1};
    return Use(IdOf(name), flags, &one);
  }

  OleVariant result;
  ExcepInfo info;
};

VARIANT Holding(const ComPtr<IDispatch>& held) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_DISPATCH;
  value.pdispVal = held.get();
  return value;
}

TEST_F(Object, HasNoApplicationAtFirst) {
  IDispatch* application = reinterpret_cast<IDispatch*>(this);
  EXPECT_EQ(object->get_m_ObjExcelApplication(&application), S_OK);
  EXPECT_EQ(application, nullptr);
}

TEST_F(Object, TheFieldAndThePropertyAreTheSame) {
  const auto application = MakeFake<AnswersEverything>();
  ASSERT_EQ(object->putref_ExcelApplication(Holding(application)), S_OK);
  ComPtr<IDispatch> read;
  ASSERT_EQ(object->get_m_ObjExcelApplication(read.put()), S_OK);
  EXPECT_EQ(read.get(), application.get());
}

TEST_F(Object, TheFieldIsSetBothWays) {
  const auto first = MakeFake<AnswersEverything>(), second = MakeFake<AnswersEverything>();
  EXPECT_EQ(object->putref_m_ObjExcelApplication(first.get()), S_OK);
  EXPECT_EQ(object->put_m_ObjExcelApplication(second.get()), S_OK);
  OleVariant read;
  ASSERT_EQ(object->get_ExcelApplication(read.put()), S_OK);
  EXPECT_EQ(read.get().pdispVal, second.get());
}

TEST_F(Object, AnObjectThatIsNoSpreadsheetIsATypeMismatch) {
  EXPECT_EQ(object->putref_ExcelApplication(Holding(MakeFake<AnswersNothing>())), kMismatch);
  EXPECT_EQ(TakeError().description, "Type mismatch");
}

TEST_F(Object, AValueThatIsNoObjectIsATypeMismatchAndKeepsTheOldOne) {
  const auto application = MakeFake<AnswersEverything>();
  object->putref_ExcelApplication(Holding(application));
  const OleVariant text = ToVariant(Variant("Excel"));
  EXPECT_EQ(object->put_ExcelApplication(text.get()), kMismatch);
  ComPtr<IDispatch> read;
  object->get_m_ObjExcelApplication(read.put());
  EXPECT_EQ(read.get(), application.get());
}

TEST_F(Object, IsSetByNameFromAScriptsVariable) {
  const auto application = MakeFake<AnswersEverything>();
  for (const WORD flags : {kPut, kPutRef})
    for (const wchar_t* name : {L"ExcelApplication", L"m_ObjExcelApplication"}) {
      VARIANT variable = Holding(application), argument;
      argument.vt = VT_BYREF | VT_VARIANT;
      argument.pvarVal = &variable;
      EXPECT_EQ(Set(name, flags, argument), S_OK);
      ASSERT_EQ(Get(name), S_OK);
      EXPECT_EQ(result.get().pdispVal, application.get());
      result.reset();
    }
}

TEST_F(Object, IsSetByNameFromATypedObjectVariable) {
  const auto application = MakeFake<AnswersEverything>();
  for (const WORD flags : {kPut, kPutRef})
    for (const wchar_t* name : {L"ExcelApplication", L"m_ObjExcelApplication"}) {
      IDispatch* variable = application.get();
      VARIANT argument;
      argument.vt = VT_BYREF | VT_DISPATCH;
      argument.ppdispVal = &variable;
      EXPECT_EQ(Set(name, flags, argument), S_OK);
      ASSERT_EQ(Get(name), S_OK);
      EXPECT_EQ(result.get().pdispVal, application.get());
      result.reset();
    }
}

TEST_F(Object, LetsGoOfItsApplication) {
  auto application = std::make_shared<AnswersEverything>();
  object->putref_m_ObjExcelApplication(ole::ToDispatch(application).get());
  object.reset();
  EXPECT_EQ(application.use_count(), 1);
}

TEST_F(Object, RefEditInputsFailsBeforeThereIsADialog) {
  BSTR output = reinterpret_cast<BSTR>(this);
  EXPECT_EQ(object->get_RefEditInputs(&output), kNotSet);
  EXPECT_EQ(output, reinterpret_cast<BSTR>(this)) << "written on success only";
  EXPECT_EQ(TakeError().description, "Object variable or With block variable not set");
}

TEST_F(Object, AnErrorByNameFillsTheCallersRecord) {
  EXPECT_EQ(Get(L"RefEditInputs"), DISP_E_EXCEPTION);
  EXPECT_EQ(info.get().scode, kNotSet);
  EXPECT_STREQ(info.get().bstrSource, L"Pellora.cPellora");
  EXPECT_STREQ(info.get().bstrDescription, L"Object variable or With block variable not set");
}

TEST_F(Object, ASuccessfulCallLeavesNoOldErrorBehind) {
  BStr output;
  object->get_RefEditInputs(output.put());
  EXPECT_EQ(object->UnloadfrmMaster(), S_OK);
  EXPECT_EQ(TakeError().description, "");
}

TEST_F(Object, UnloadfrmMasterBeforeAnyDialogDoesNothing) { EXPECT_EQ(object->UnloadfrmMaster(), S_OK); }

TEST_F(Object, NullOutputsAreRefused) {
  EXPECT_EQ(object->get_RefEditInputs(nullptr), E_POINTER);
  EXPECT_EQ(object->get_ExcelApplication(nullptr), E_POINTER);
  EXPECT_EQ(object->get_m_ObjExcelApplication(nullptr), E_POINTER);
  EXPECT_EQ(object->ShowRefEditInterface(nullptr), E_POINTER);
  short field = 1;
  EXPECT_EQ(
      object->CreateNewProject(&field, &field, &field, &field, &field, &field, &field, &field, &field, &field, nullptr),
      E_POINTER);
}

// The two inputs that bring a careless dispatcher down, and their relatives.
TEST_F(Object, NullParametersAreRefused) { EXPECT_EQ(Use(IdOf(L"UnloadfrmMaster"), kCall, nullptr), E_INVALIDARG); }

TEST_F(Object, ANamedArgumentWithoutAnArrayIsRefused) {
  DISPPARAMS parameters{nullptr, nullptr, 0, 1};
  EXPECT_EQ(Use(IdOf(L"UnloadfrmMaster"), kCall, &parameters), E_INVALIDARG);
}

TEST_F(Object, ArgumentsWithoutAnArrayAreRefused) {
  DISPPARAMS parameters{nullptr, nullptr, 10, 0};
  EXPECT_EQ(Use(IdOf(L"CreateNewProject"), kCall, &parameters), E_INVALIDARG);
}

TEST_F(Object, TooFewArgumentsAreRefused) {
  DISPPARAMS none{};
  EXPECT_EQ(Use(IdOf(L"CreateNewProject"), kCall, &none), DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(Object, TooManyArgumentsAreRefused) {
  VARIANTARG argument;
  VariantInit(&argument);
  DISPPARAMS one{&argument, nullptr, 1, 0};
  EXPECT_EQ(Use(IdOf(L"UnloadfrmMaster"), kCall, &one), DISP_E_BADPARAMCOUNT);
}

TEST_F(Object, AnUnknownIdAndAWrongUseAreNoMembers) {
  DISPPARAMS none{};
  EXPECT_EQ(Use(4711, kCall, &none), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Use(IdOf(L"UnloadfrmMaster"), kGet, &none), DISP_E_MEMBERNOTFOUND);
}

TEST_F(Object, AnUnknownNameHasNoId) {
  std::wstring text(L"Nowhere");
  LPOLESTR names[] = {text.data()};
  DISPID id = 5;
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, 0x409, &id), DISP_E_UNKNOWNNAME);
}

TEST_F(Object, NullNamesAreRefused) {
  LPOLESTR names[] = {nullptr};
  DISPID id = 5;
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, 0x409, &id), E_INVALIDARG);
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, nullptr, 1, 0x409, &id), E_INVALIDARG);
}

TEST_F(Object, ArgumentsHaveNames) {
  std::wstring member(L"CreateNewProject"), argument(L"volume");
  LPOLESTR names[] = {member.data(), argument.data()};
  DISPID ids[] = {-7, -7};
  ASSERT_EQ(object->GetIDsOfNames(IID_NULL, names, 2, 0x409, ids), S_OK);
  EXPECT_EQ(ids[1], 9);
}

TEST_F(Object, AProjectThatIsCancelledChangesNothing) {
  const DialogCloser user;
  short fields[10] = {0, 1, 0, 1, 7, 0, 1, 0, 1, -3}, before[10];
  std::memcpy(before, fields, sizeof before);
  VARIANT_BOOL confirmed = 77;
  ASSERT_EQ(object->CreateNewProject(&fields[0], &fields[1], &fields[2], &fields[3], &fields[4], &fields[5], &fields[6],
                                     &fields[7], &fields[8], &fields[9], &confirmed),
            S_OK);
  EXPECT_EQ(confirmed, VARIANT_FALSE);
  EXPECT_EQ(std::memcmp(before, fields, sizeof before), 0);
}

// The ten arguments of AddNewSymbol as a script has them: variants, filled with other things.
class NewSymbol : public Object {
 protected:
  HRESULT Call() {
    VARIANTARG arguments[10];
    for (int i = 0; i < 10; ++i) {
      arguments[9 - i].vt = VT_BYREF | VT_VARIANT;
      arguments[9 - i].pvarVal = &variables[i].get();
    }
    DISPPARAMS parameters{arguments, nullptr, 10, 0};
    return Use(IdOf(L"AddNewSymbol"), kCall, &parameters);
  }
  void Fill(const Variant& text, const Variant& number) {
    for (const int i : {0, 1, 2, 4, 6, 7, 8}) variables[i] = ToVariant(text);
    for (const int i : {3, 5, 9}) variables[i] = ToVariant(number);
  }
  OleVariant variables[10];
};

TEST_F(NewSymbol, CancelledItClearsAllButTheType) {
  const DialogCloser user;
  Fill("old", 3);
  ASSERT_EQ(Call(), S_OK);
  EXPECT_EQ(FromVariant(result.get()), Variant(std::int16_t{2}));
  for (const int i : {0, 1, 2, 4, 6, 7, 8}) EXPECT_EQ(FromVariant(variables[i].get()), Variant("")) << i;
  for (const int i : {3, 5}) EXPECT_EQ(FromVariant(variables[i].get()), Variant(0.0)) << i;
  EXPECT_EQ(FromVariant(variables[9].get()), Variant(std::int16_t{3}));
}

TEST_F(NewSymbol, UnsetVariablesAreAccepted) {
  const DialogCloser user;
  ASSERT_EQ(Call(), S_OK);
  EXPECT_EQ(FromVariant(variables[0].get()), Variant(""));
}

TEST_F(NewSymbol, AVariableThatDoesNotConvertIsATypeMismatchAndNothingChanges) {
  Fill("old", 3);
  variables[3] = ToVariant(Variant("no number"));
  EXPECT_EQ(Call(), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(FromVariant(variables[0].get()), Variant("old"));
  EXPECT_EQ(FromVariant(variables[3].get()), Variant("no number"));
}

TEST_F(NewSymbol, TypedVariablesAreWrittenThemselves) {
  const DialogCloser user;
  BSTR texts[7];
  for (BSTR& text : texts) text = SysAllocString(L"old");
  double strike = 9, multiplier = 9;
  short type = 1, outcome = 77;
  ASSERT_EQ(object->AddNewSymbol(&texts[0], &texts[1], &texts[2], &strike, &texts[3], &multiplier, &texts[4], &texts[5],
                                 &texts[6], &type, &outcome),
            S_OK);
  EXPECT_EQ(outcome, 2);
  for (BSTR text : texts) EXPECT_EQ(SysStringLen(text), 0u);
  for (BSTR text : texts) SysFreeString(text);
  EXPECT_EQ(strike, 0);
  EXPECT_EQ(multiplier, 0);
  EXPECT_EQ(type, 1);
}

TEST_F(Object, TheTapeDialogStaysAndKeepsItsAddress) {
  const DialogCloser user;
  object->putref_m_ObjExcelApplication(MakeFake<AnswersEverything>().get());
  BStr outcome, address;
  const HRESULT shown = object->ShowRefEditInterface(outcome.put());
  ASSERT_EQ(shown, S_OK) << TakeError().description;
  EXPECT_EQ(object->put_RefEditInputs(BStr("Sheet1!$A$1:$C$9").get()), S_OK);
  ASSERT_EQ(object->get_RefEditInputs(address.put()), S_OK);
  EXPECT_EQ(address.Text(), "Sheet1!$A$1:$C$9");
  EXPECT_EQ(object->UnloadfrmMaster(), S_OK);
  EXPECT_EQ(object->get_RefEditInputs(address.put()), kNotSet);
}

}  // namespace
}  // namespace pellora::windows::test
