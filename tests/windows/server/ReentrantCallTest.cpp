#include <functional>

#include "LoadedServer.h"
#include "platform/windows/ole/Convert.h"

namespace pellora::windows::test {
namespace {

using ole::BStr;
using ole::ExcepInfo;
using ole::FromVariant;
using ole::OleVariant;
using ole::ToVariant;

constexpr HRESULT kFailure = static_cast<HRESULT>(0x80040064);
constexpr UINT kBetweenLooks = 20;

BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
  wchar_t name[20] = L"";
  GetClassNameW(window, name, 20);
  if (!IsWindowVisible(window) || wcscmp(name, L"#32770") != 0) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// Makes a call on the dialog's own thread while the dialog is open with another window before it, then closes it.
class WhileADialogIsOpen {
 public:
  explicit WhileADialogIsOpen(std::function<void()> call) : m_call(std::move(call)) {
    s_current = this;
    m_timer = SetTimer(nullptr, 0, kBetweenLooks, Look);
  }
  ~WhileADialogIsOpen() {
    KillTimer(nullptr, m_timer);
    s_current = nullptr;
  }
  WhileADialogIsOpen(const WhileADialogIsOpen&) = delete;
  WhileADialogIsOpen& operator=(const WhileADialogIsOpen&) = delete;

  bool called = false, wasBehind = false, cameForward = false;

 private:
  static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&dialog));
    if (dialog && !s_current->called) s_current->Use(dialog);
  }
  void Use(HWND dialog) {
    called = true;
    const HWND other = CreateWindowExW(0, L"STATIC", L"In front", WS_POPUP | WS_VISIBLE, 0, 0, 200, 200, nullptr,
                                       nullptr, nullptr, nullptr);
    SetForegroundWindow(other);
    wasBehind = GetForegroundWindow() == other;
    m_call();
    cameForward = GetForegroundWindow() == dialog;
    DestroyWindow(other);
    PostMessageW(dialog, WM_CLOSE, 0, 0);
  }

  static inline WhileADialogIsOpen* s_current = nullptr;
  std::function<void()> m_call;
  UINT_PTR m_timer = 0;
};

class ReentrantCall : public LoadedObject {
 protected:
  HRESULT NewProject(short* fields, VARIANT_BOOL* confirmed) {
    return object->CreateNewProject(&fields[0], &fields[1], &fields[2], &fields[3], &fields[4], &fields[5], &fields[6],
                                    &fields[7], &fields[8], &fields[9], confirmed);
  }
  // Opens a dialog in which the call is made.
  void During(std::function<void()> call) {
    WhileADialogIsOpen open(std::move(call));
    short fields[10] = {};
    VARIANT_BOOL confirmed = VARIANT_TRUE;
    ASSERT_EQ(NewProject(fields, &confirmed), S_OK);
    ASSERT_TRUE(open.called);
    wasBehind = open.wasBehind;
    cameForward = open.cameForward;
  }

  bool wasBehind = false, cameForward = false;
};

TEST_F(ReentrantCall, IsRefusedWithTheComponentsFailure) {
  HRESULT code = S_OK;
  BStr outcome;
  During([&] { code = object->ShowRefEditInterface(outcome.put()); });
  EXPECT_EQ(code, kFailure);
  EXPECT_EQ(outcome.get(), nullptr);
}

TEST_F(ReentrantCall, BringsTheOpenDialogForward) {
  During([&] { object->UnloadfrmMaster(); });
  EXPECT_TRUE(wasBehind);
  EXPECT_TRUE(cameForward);
}

TEST_F(ReentrantCall, LeavesTheFieldsOfAProject) {
  short fields[10] = {0, 1, 0, 1, 7, 0, 1, 0, 1, -3};
  const std::vector<short> before(std::begin(fields), std::end(fields));
  VARIANT_BOOL confirmed = 77;
  HRESULT code = S_OK;
  During([&] { code = NewProject(fields, &confirmed); });
  EXPECT_EQ(code, kFailure);
  EXPECT_EQ(std::vector<short>(std::begin(fields), std::end(fields)), before);
  EXPECT_EQ(confirmed, 77);
}

TEST_F(ReentrantCall, LeavesTheVariablesOfASymbol) {
  BStr held[7];
  BSTR texts[7];
  for (int i = 0; i < 7; ++i) held[i] = BStr("old"), texts[i] = held[i].get();
  double strike = 9, multiplier = 8;
  short type = 3, outcome = 77;
  HRESULT code = S_OK;
  During([&] {
    code = object->AddNewSymbol(&texts[0], &texts[1], &texts[2], &strike, &texts[3], &multiplier, &texts[4], &texts[5],
                                &texts[6], &type, &outcome);
  });
  EXPECT_EQ(code, kFailure);
  for (int i = 0; i < 7; ++i) EXPECT_EQ(texts[i], held[i].get()) << i;
  EXPECT_EQ(strike, 9);
  EXPECT_EQ(multiplier, 8);
  EXPECT_EQ(type, 3);
  EXPECT_EQ(outcome, 77);
}

// What a script has: variables of the types it happened to give them, one of them never set.
TEST_F(ReentrantCall, LeavesAScriptsVariablesAndTheirTypes) {
  OleVariant variables[10];
  for (const int i : {0, 1, 2, 4, 6, 7}) variables[i] = ToVariant(Variant("old"));
  for (const int i : {3, 9}) variables[i] = ToVariant(Variant(std::int32_t{3}));
  variables[5] = ToVariant(Variant("100"));
  VARIANTARG arguments[10];
  for (int i = 0; i < 10; ++i) {
    arguments[9 - i].vt = VT_BYREF | VT_VARIANT;
    arguments[9 - i].pvarVal = &variables[i].get();
  }
  DISPPARAMS parameters{arguments, nullptr, 10, 0};
  std::wstring name(L"AddNewSymbol");
  LPOLESTR names[] = {name.data()};
  DISPID id = DISPID_UNKNOWN;
  ASSERT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, 0x409, &id), S_OK);
  HRESULT code = S_OK;
  ExcepInfo info;
  OleVariant result;
  During([&] {
    code = object->Invoke(id, IID_NULL, 0x409, DISPATCH_METHOD, &parameters, &result.get(), info.put(), nullptr);
  });
  EXPECT_EQ(code, DISP_E_EXCEPTION);
  EXPECT_EQ(info.get().scode, kFailure);
  EXPECT_STREQ(info.get().bstrSource, L"Pellora.cPellora.AddNewSymbol");
  EXPECT_STREQ(info.get().bstrDescription, L"cPellora component failure");
  EXPECT_EQ(FromVariant(variables[0].get()), Variant("old"));
  EXPECT_EQ(FromVariant(variables[3].get()), Variant(std::int32_t{3}));
  EXPECT_EQ(FromVariant(variables[5].get()), Variant("100"));
  EXPECT_EQ(variables[8].get().vt, VT_EMPTY);
  EXPECT_EQ(FromVariant(variables[9].get()), Variant(std::int32_t{3}));
}

TEST_F(ReentrantCall, OfAnotherObjectIsRefusedAndBringsTheOpenDialogForward) {
  HRESULT code = S_OK;
  BStr outcome;
  During([&] { code = Make()->ShowRefEditInterface(outcome.put()); });
  EXPECT_EQ(code, kFailure);
  EXPECT_EQ(outcome.get(), nullptr);
  EXPECT_TRUE(wasBehind);
  EXPECT_TRUE(cameForward);
}

TEST_F(ReentrantCall, IsNotUnderWayAnyMoreForAnotherObjectWhenItsOwnWasReleasedInIt) {
  const auto second = Make();
  _cPellora* const last = object.get();
  short fields[10] = {};
  VARIANT_BOOL confirmed = VARIANT_TRUE;
  {
    WhileADialogIsOpen open([&] { object.reset(); });
    last->CreateNewProject(&fields[0], &fields[1], &fields[2], &fields[3], &fields[4], &fields[5], &fields[6],
                           &fields[7], &fields[8], &fields[9], &confirmed);
    ASSERT_TRUE(open.called);
  }
  EXPECT_EQ(confirmed, VARIANT_FALSE);
  EXPECT_EQ(second->UnloadfrmMaster(), S_OK);
}

TEST_F(ReentrantCall, IsAcceptedAgainOnceTheDialogIsClosed) {
  During([] {});
  EXPECT_EQ(object->UnloadfrmMaster(), S_OK);
}

}  // namespace
}  // namespace pellora::windows::test
