#include "platform/windows/ole/DispatchServer.h"

#include <gtest/gtest.h>

#include <cstring>

#include "RecordingObject.h"
#include "platform/windows/ole/Convert.h"

namespace pellora::ole {
namespace {

using test::RecordingObject;

class Server : public testing::Test {
 protected:
  std::shared_ptr<RecordingObject> inner = std::make_shared<RecordingObject>();
  ComPtr<IDispatch> server = DispatchServer::Show(inner);

  HRESULT Ask(const wchar_t* name, DISPID* id) {
    std::wstring text(name);
    LPOLESTR names[] = {text.data()};
    return server->GetIDsOfNames(IID_NULL, names, 1, 0x409, id);
  }
  DISPID IdOf(const wchar_t* name) {
    DISPID id = 0x5A5A;
    EXPECT_EQ(Ask(name, &id), S_OK);
    return id;
  }
  HRESULT Use(DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result = nullptr, EXCEPINFO* info = nullptr) {
    return server->Invoke(id, IID_NULL, 0x409, flags, parameters, result, info, nullptr);
  }
};

TEST_F(Server, OneNameHasOneIdInAnyLetterCase) { EXPECT_EQ(IdOf(L"Total"), IdOf(L"tOtAl")); }

TEST_F(Server, ANameKeepsItsIdOnEveryObject) {
  const DISPID id = IdOf(L"Total");
  server = DispatchServer::Show(std::make_shared<RecordingObject>());
  EXPECT_EQ(IdOf(L"TOTAL"), id);
}

TEST_F(Server, AnUnknownNameIsNotGivenAnId) {
  DISPID id = 77;
  EXPECT_EQ(Ask(L"Nowhere", &id), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
}

TEST_F(Server, NamedArgumentsAreUnknownNames) {
  std::wstring member(L"Range"), argument(L"Cell1");
  LPOLESTR names[] = {member.data(), argument.data()};
  DISPID ids[] = {7, 7};
  EXPECT_EQ(server->GetIDsOfNames(IID_NULL, names, 2, 0x409, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST_F(Server, NullParametersAreRefused) {
  EXPECT_EQ(Use(IdOf(L"Total"), DISPATCH_METHOD, nullptr), E_INVALIDARG);
  EXPECT_EQ(inner->calls, 0);
}

TEST_F(Server, ANamedArgumentWithoutAnArrayIsRefused) {
  DISPPARAMS parameters{nullptr, nullptr, 0, 1};
  EXPECT_EQ(Use(IdOf(L"Total"), DISPATCH_METHOD, &parameters), E_INVALIDARG);
}

TEST_F(Server, ArgumentsWithoutAnArrayAreRefused) {
  DISPPARAMS parameters{nullptr, nullptr, 3, 0};
  EXPECT_EQ(Use(IdOf(L"Total"), DISPATCH_METHOD, &parameters), E_INVALIDARG);
}

TEST_F(Server, AWildCountIsRefused) {
  VARIANTARG argument;
  VariantInit(&argument);
  DISPPARAMS parameters{&argument, nullptr, 0x7FFFFFFF, 0};
  EXPECT_EQ(Use(IdOf(L"Total"), DISPATCH_METHOD, &parameters), DISP_E_BADPARAMCOUNT);
}

TEST_F(Server, NamedArgumentsOfAMethodAreRefused) {
  VARIANTARG argument;
  VariantInit(&argument);
  DISPID name = 3;
  DISPPARAMS parameters{&argument, &name, 1, 1};
  EXPECT_EQ(Use(IdOf(L"Total"), DISPATCH_METHOD, &parameters), DISP_E_NONAMEDARGS);
}

TEST_F(Server, AnIdThatWasNeverHandedOutIsNoMember) {
  DISPPARAMS none{};
  for (const DISPID id : {DISPID(-1), DISPID(-4), DISPID(100000)})
    EXPECT_EQ(Use(id, DISPATCH_PROPERTYGET, &none), DISP_E_MEMBERNOTFOUND);
}

TEST_F(Server, TheDefaultMemberIsValueWhereThereIsNoOther) {
  DISPPARAMS none{};
  EXPECT_EQ(Use(DISPID_VALUE, DISPATCH_PROPERTYGET, &none), S_OK);
  EXPECT_EQ(inner->name, "Value");
}

TEST_F(Server, FlagsThatSayNothingAreRefused) {
  DISPPARAMS none{};
  EXPECT_EQ(Use(IdOf(L"Total"), 0, &none), E_INVALIDARG);
}

TEST_F(Server, AnExpressionOfAMacroArrivesAsGet) {
  DISPPARAMS none{};
  Use(IdOf(L"Total"), DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none);
  EXPECT_EQ(inner->kind, CallKind::Get);
}

TEST_F(Server, APutWithoutAValueRunsNothing) {
  DISPPARAMS none{};
  EXPECT_EQ(Use(IdOf(L"Value"), DISPATCH_PROPERTYPUT, &none), static_cast<HRESULT>(0x800A01C2));
  EXPECT_EQ(inner->calls, 0);
}

TEST_F(Server, TheResultReplacesJunk) {
  inner->answer = [] { return Variant("text"); };
  VARIANT result;
  std::memset(&result, 0xCD, sizeof result);
  DISPPARAMS none{};
  ASSERT_EQ(Use(IdOf(L"Total"), DISPATCH_PROPERTYGET, &none, &result), S_OK);
  EXPECT_EQ(FromVariant(result), Variant("text"));
  VariantClear(&result);
}

TEST_F(Server, AFailureFillsTheRecordAndLeavesTheResultAlone) {
  inner->answer = []() -> Variant { throw Error(1004, "Host", "Refused"); };
  VARIANT result, before;
  std::memset(&result, 0xCD, sizeof result);
  before = result;
  ExcepInfo info;
  DISPPARAMS none{};
  EXPECT_EQ(Use(IdOf(L"Total"), DISPATCH_PROPERTYGET, &none, &result, info.put()), DISP_E_EXCEPTION);
  EXPECT_EQ(info.get().scode, static_cast<SCODE>(0x800A03EC));
  EXPECT_STREQ(info.get().bstrSource, L"Host");
  EXPECT_STREQ(info.get().bstrDescription, L"Refused");
  EXPECT_EQ(std::memcmp(&result, &before, sizeof result), 0);
}

TEST_F(Server, WithoutARecordTheCodeItselfIsAnswered) {
  inner->answer = []() -> Variant { throw Error(errors::TypeMismatch); };
  DISPPARAMS none{};
  EXPECT_EQ(Use(IdOf(L"Total"), DISPATCH_PROPERTYGET, &none), static_cast<HRESULT>(0x800A000D));
}

TEST_F(Server, AnotherInterfaceIsRefusedAndTheOutputCleared) {
  void* other = this;
  EXPECT_EQ(server->QueryInterface(IID_IClassFactory, &other), E_NOINTERFACE);
  EXPECT_EQ(other, nullptr);
}

TEST_F(Server, ItSurvivesItsLastReferenceGoneDuringItsCall) {
  inner->answer = [this] {
    server.reset();
    return Variant(1);
  };
  IDispatch* raw = server.get();
  const DISPID id = IdOf(L"Total");
  DISPPARAMS none{};
  EXPECT_EQ(raw->Invoke(id, IID_NULL, 0x409, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr), S_OK);
}

}  // namespace
}  // namespace pellora::ole
