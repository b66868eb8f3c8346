#include "platform/windows/ole/AutomationObject.h"

#include <gtest/gtest.h>

#include "RecordingObject.h"
#include "platform/windows/ole/Convert.h"
#include "platform/windows/ole/DispatchServer.h"
#include "platform/windows/ole/Failure.h"

namespace pellora::ole {
namespace {

using test::RecordingObject;

class Apartment : public testing::Test {
 protected:
  Apartment() { CoInitialize(nullptr); }
  ~Apartment() override { CoUninitialize(); }
};

// One of the library's objects, reached through automation as a foreign one would be.
class ThroughAutomation : public Apartment {
 protected:
  std::shared_ptr<RecordingObject> inner = std::make_shared<RecordingObject>();
  AutomationObject outer{ToDispatch(inner).get()};

  Error Failure(CallKind kind = CallKind::Get, std::string_view name = "Total") {
    try {
      outer.Invoke(name, kind, {});
    } catch (const Error& error) {
      return error;
    }
    return Error(0);
  }
};

TEST_F(ThroughAutomation, ArgumentsArriveInTheirWrittenOrder) {
  const Variant arguments[] = {"A1", 2, Variant::Missing()};
  outer.Invoke("Range", CallKind::Get, arguments);
  EXPECT_EQ(inner->arguments, std::vector<Variant>(std::begin(arguments), std::end(arguments)));
}

TEST_F(ThroughAutomation, TheAnswerComesBack) {
  inner->answer = [] { return Variant(12.5); };
  EXPECT_EQ(outer.Invoke("Total", CallKind::Get, {}), Variant(12.5));
}

TEST_F(ThroughAutomation, ObjectsComeBackAsThemselves) {
  const DispatchPtr other = std::make_shared<RecordingObject>();
  inner->answer = [&] { return Variant(other); };
  EXPECT_EQ(outer.Invoke("Range", CallKind::Get, {}).Object(), other);
}

TEST_F(ThroughAutomation, EveryKindOfUseArrives) {
  const Variant value[] = {1};
  for (const CallKind kind : {CallKind::Get, CallKind::Put, CallKind::PutRef, CallKind::Call}) {
    outer.Invoke("Value", kind, value);
    EXPECT_EQ(inner->kind, kind);
  }
}

TEST_F(ThroughAutomation, LetterCaseOfANameDoesNotMatter) {
  outer.Invoke("tOTAL", CallKind::Get, {});
  EXPECT_EQ(inner->calls, 1);
}

TEST_F(ThroughAutomation, HasAsksWithoutRunning) {
  EXPECT_TRUE(outer.Has("total"));
  EXPECT_FALSE(outer.Has("Nowhere"));
  EXPECT_EQ(inner->calls, 0);
}

TEST_F(ThroughAutomation, AnUnknownMemberIs438) {
  EXPECT_EQ(Failure(CallKind::Get, "Nowhere").Number(), errors::MemberNotSupported);
}

TEST_F(ThroughAutomation, AnErrorKeepsNumberSourceAndDescription) {
  inner->answer = []() -> Variant { throw Error(errors::Component(100), "Somewhere", "Something \xE2\x82\xAC"); };
  const Error error = Failure();
  EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040064));
  EXPECT_EQ(error.Source(), "Somewhere");
  EXPECT_EQ(error.Description(), "Something \xE2\x82\xAC");
}

TEST_F(ThroughAutomation, AClassicNumberStaysSmall) {
  inner->answer = []() -> Variant { throw Error(errors::ApplicationDefined, "", "No such sheet"); };
  EXPECT_EQ(Failure().Number(), errors::ApplicationDefined);
}

TEST_F(ThroughAutomation, ABusyHostIsRecognisable) {
  inner->answer = []() -> Variant { throw Error(errors::Suspended); };
  EXPECT_TRUE(IsBusy(Failure().Number()));
}

TEST_F(ThroughAutomation, AFailureThatIsNoErrorOfTheLibraryArrivesWithItsText) {
  inner->answer = []() -> Variant { throw std::runtime_error("odd"); };
  EXPECT_EQ(Failure().Number(), errors::InternalError);
  EXPECT_EQ(Failure().Description(), "odd");
}

TEST_F(ThroughAutomation, PassedOutAgainItIsTheOriginalObject) {
  const auto server = ToDispatch(inner);
  EXPECT_EQ(ToDispatch(std::make_shared<AutomationObject>(server.get())).get(), server.get());
}

class CountingHook : public CallHook {
 public:
  CountingHook() { InstallCallHook(this); }
  ~CountingHook() override { InstallCallHook(nullptr); }
  void Around(const std::function<void()>& call) override {
    struct Inside {
      int& count;
      explicit Inside(int& counter) : count(++counter) {}
      ~Inside() { --count; }
    } scope(inside);
    ++entered;
    call();
  }
  int inside = 0;
  int entered = 0;
};

TEST_F(ThroughAutomation, TheHookIsEnteredAroundACall) {
  CountingHook hook;
  int seen = 0;
  inner->answer = [&] { return Variant(seen = hook.inside); };
  outer.Invoke("Total", CallKind::Get, {});
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(hook.inside, 0);
}

TEST_F(ThroughAutomation, TheHookIsLeftWhenACallFails) {
  CountingHook hook;
  inner->answer = []() -> Variant { throw Error(errors::InvalidCall); };
  Failure();
  EXPECT_EQ(hook.inside, 0);
  EXPECT_EQ(hook.entered, 1);
}

// An object that exists on every Windows, and under Wine.
class Dictionary : public Apartment {
 protected:
  static AutomationObject Make() {
    CLSID id;
    ComPtr<IDispatch> made;
    if (SUCCEEDED(CLSIDFromProgID(L"Scripting.Dictionary", &id)))
      CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDispatch), reinterpret_cast<void**>(made.put()));
    if (!made) throw std::runtime_error("no dictionary on this system");
    return AutomationObject(made.get());
  }
  static void Add(AutomationObject& dictionary, const Variant& key, const Variant& value) {
    const Variant arguments[] = {key, value};
    dictionary.Invoke("Add", CallKind::Call, arguments);
  }
  static Variant Item(AutomationObject& dictionary, const Variant& key) {
    return dictionary.Invoke("Item", CallKind::Get, {&key, 1});
  }
};

TEST_F(Dictionary, KeepsWhatItIsGiven) {
  auto dictionary = Make();
  Add(dictionary, "SPY", 441.25);
  EXPECT_EQ(Item(dictionary, "SPY"), Variant(441.25));
  EXPECT_EQ(dictionary.Invoke("Count", CallKind::Get, {}), Variant(1));
}

TEST_F(Dictionary, APropertyWithAnArgumentIsPut) {
  auto dictionary = Make();
  const Variant arguments[] = {"key", "value"};
  dictionary.Invoke("Item", CallKind::Put, arguments);
  EXPECT_EQ(Item(dictionary, "key"), Variant("value"));
}

TEST_F(Dictionary, KeepsTheLibrarysObjectsAsThemselves) {
  auto dictionary = Make();
  const DispatchPtr object = std::make_shared<RecordingObject>();
  Add(dictionary, "key", object);
  EXPECT_EQ(Item(dictionary, "key").Object(), object);
}

TEST_F(Dictionary, ItsKeysAreAnArrayFromZero) {
  auto dictionary = Make();
  Add(dictionary, "a", 1);
  Add(dictionary, "b", 2);
  const Variant keys = dictionary.Invoke("Keys", CallKind::Call, {});
  EXPECT_EQ(keys.Array().ColumnBase(), 0);
  EXPECT_EQ(keys.Array().At(0, 1), Variant("b"));
}

TEST_F(Dictionary, ASecondKeyOfTheSameNameIsItsOwnError) {
  auto dictionary = Make();
  Add(dictionary, "a", 1);
  try {
    Add(dictionary, "a", 1);
    FAIL() << "added twice";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), 457);
  }
}

TEST_F(Dictionary, NamesAreLookedUpOnceForAllObjectsOfTheType) {
  auto first = Make();
  first.Invoke("Count", CallKind::Get, {});
  const unsigned long before = AutomationObject::Lookups();
  auto second = Make();
  second.Invoke("count", CallKind::Get, {});
  first.Invoke("COUNT", CallKind::Get, {});
  EXPECT_EQ(AutomationObject::Lookups(), before);
}

TEST_F(ThroughAutomation, NamesOfATypeThatDoesNotTellItselfAreLookedUpEachTime) {
  const unsigned long before = AutomationObject::Lookups();
  outer.Invoke("Total", CallKind::Get, {});
  outer.Invoke("Total", CallKind::Get, {});
  EXPECT_EQ(AutomationObject::Lookups(), before + 2);
}

TEST(ErrorFromCode, StandardCodesBecomeTheClassicNumbersWithTheirText) {
  const Error error = ErrorFromCode(DISP_E_TYPEMISMATCH);
  EXPECT_EQ(error.Number(), errors::TypeMismatch);
  EXPECT_EQ(error.Description(), "Type mismatch");
}

TEST(ErrorFromCode, ACodeWithoutTextIsNamedInTheDescription) {
  SetErrorInfo(0, nullptr);
  const Error error = ErrorFromCode(static_cast<HRESULT>(0x800706BA));
  EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x800706BA));
  EXPECT_EQ(error.Description(), "Application-defined or object-defined error (0x800706BA)");
}

TEST(ErrorFromCode, TheTextOfTheRecordIsUsedAsItIs) {
  ExcepInfo info;
  info.put()->scode = static_cast<SCODE>(0x800A03EC);
  const_cast<EXCEPINFO&>(info.get()).bstrDescription = SysAllocString(L"Unable to set");
  EXPECT_EQ(ErrorFromCode(DISP_E_EXCEPTION, &info).Description(), "Unable to set");
  EXPECT_EQ(ErrorFromCode(DISP_E_EXCEPTION, &info).Number(), errors::ApplicationDefined);
}

TEST(ErrorFromCode, AnOldSmallNumberInTheRecordCounts) {
  ExcepInfo info;
  info.put()->wCode = 1004;
  EXPECT_EQ(ErrorFromCode(DISP_E_EXCEPTION, &info).Number(), errors::ApplicationDefined);
}

TEST(ErrorFromCode, ARecordWithNeitherCodeNorNumberIsAFailureAllTheSame) {
  ExcepInfo info;
  EXPECT_EQ(ErrorFromCode(DISP_E_EXCEPTION, &info).Number(), static_cast<std::int32_t>(E_FAIL));
}

HRESULT STDAPICALLTYPE FillLater(EXCEPINFO* info) {
  info->scode = static_cast<SCODE>(0x80040064);
  info->bstrDescription = SysAllocString(L"late");
  return S_OK;
}

TEST(ErrorFromCode, ARecordThatIsFilledInLaterIsAskedFor) {
  ExcepInfo info;
  info.put()->pfnDeferredFillIn = FillLater;
  const Error error = ErrorFromCode(DISP_E_EXCEPTION, &info);
  EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040064));
  EXPECT_EQ(error.Description(), "late");
}

}  // namespace
}  // namespace pellora::ole
