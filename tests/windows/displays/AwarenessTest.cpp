#include <algorithm>
#include <cstring>
#include <map>
#include <set>

#include "Dialogs.h"
#include "platform/windows/ole/AutomationObject.h"
#include "platform/windows/ole/DispatchServer.h"
#include "platform/windows/server/WindowsPlatform.h"

namespace pellora::windows::test {
namespace {

/// The system's own call, where it has it.
template <class Function>
Function User32(const char* name) {
  const auto found = ::GetProcAddress(::GetModuleHandleW(L"user32.dll"), name);
  Function function = nullptr;
  std::memcpy(&function, &found, sizeof function);
  return function;
}

/// How the thread's windows and places are scaled at the moment: 0 unaware, 1 by the system's scale, 2 by the
/// display's.
int Awareness() {
  static const auto context = User32<void*(WINAPI*)()>("GetThreadDpiAwarenessContext");
  static const auto awareness = User32<int(WINAPI*)(void*)>("GetAwarenessFromDpiAwarenessContext");
  return context && awareness ? awareness(context()) : -1;
}

constexpr int kPerDisplay = 2;

/// Answers the one before, null where that cannot be changed.
void* SetAwareness(void* wanted) {
  static const auto set = User32<void*(WINAPI*)(void*)>("SetThreadDpiAwarenessContext");
  return set && wanted ? set(wanted) : nullptr;
}

void* const kUnaware = reinterpret_cast<void*>(static_cast<INT_PTR>(-1));

/// What was called in the host, and under which awareness.
struct Notes {
  std::map<std::string, int> calls;
  std::vector<std::string> wrong;
  int expected = 0;

  void Note(const std::string& what) {
    ++calls[what];
    if (Awareness() != expected) wrong.push_back(what);
  }
};

/// An object of the host as automation shows it, over one of the embedded workbook: notes every question, call and end.
class HostObject final : public IDispatch {
 public:
  static ole::ComPtr<IDispatch> Make(Notes& notes, IDispatch* object) {
    ole::ComPtr<IDispatch> made;
    made.attach(new HostObject(notes, object));
    return made;
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = ::IsEqualIID(id, IID_IUnknown) || ::IsEqualIID(id, IID_IDispatch) ? this : nullptr;
    if (*object) AddRef();
    return *object ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
  ULONG STDMETHODCALLTYPE Release() override {
    const auto left = --m_references;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return m_object->GetTypeInfoCount(count); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    m_notes.Note("question");
    return m_object->GetIDsOfNames(reserved, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* info, UINT* badArgument) override {
    m_notes.Note("call");
    std::vector<VARIANTARG> arguments(parameters->rgvarg, parameters->rgvarg + parameters->cArgs);
    for (auto& argument : arguments)
      if (argument.vt == VT_DISPATCH) argument.pdispVal = Behind(argument.pdispVal);
    DISPPARAMS passed{arguments.data(), parameters->rgdispidNamedArgs, parameters->cArgs, parameters->cNamedArgs};
    const auto code = m_object->Invoke(id, reserved, locale, flags, &passed, result, info, badArgument);
    if (code == S_OK && result && result->vt == VT_DISPATCH && result->pdispVal) {
      ole::ComPtr<IDispatch> inner;
      inner.attach(result->pdispVal);
      result->pdispVal = Make(m_notes, inner.get()).detach();
    }
    return code;
  }

 private:
  HostObject(Notes& notes, IDispatch* object) : m_notes(notes), m_object(object) { s_all.insert(this); }
  ~HostObject() {
    s_all.erase(this);
    m_notes.Note("end");
  }
  static IDispatch* Behind(IDispatch* object) {
    const auto found = std::find(s_all.begin(), s_all.end(), object);
    return found != s_all.end() ? static_cast<HostObject*>(object)->m_object.get() : object;
  }

  static inline std::set<IDispatch*> s_all;
  Notes& m_notes;
  ole::ComPtr<IDispatch> m_object;
  ULONG m_references = 1;
};

/// The platform of the library itself, with the tape dialog over a host that takes notes.
class AwarenessOfTheHost : public testing::Test {
 protected:
  AwarenessOfTheHost() {
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    m_before = SetAwareness(kUnaware);
  }
  ~AwarenessOfTheHost() override {
    SetAwareness(m_before);
    ::CoUninitialize();
  }
  void SetUp() override {
    if (!m_before) GTEST_SKIP() << "this system knows no awareness of threads";
    ASSERT_EQ(Awareness(), notes.expected);
  }

  void ShowTape(const std::function<void(frmAddRibbon&, HWND)>& look) {
    Desk desk;
    const WindowsPlatform library(::GetModuleHandleW(nullptr));
    desk.Install();
    const auto workbook = ole::DispatchServer::Show(desk.workbook.Application());
    desk.application = std::make_shared<ole::AutomationObject>(HostObject::Make(notes, workbook.get()).get());
    {
      frmAddRibbon form(desk.toolkit);
      form.Owner(&desk);
      form.AppSettings(mGlobal::AppSettings);
      OnDisplay::Show(form, [&](HWND window) { look(form, window); });
      form.Unload();
    }
    desk.application = nullptr;
  }

  Notes notes;

 private:
  void* m_before;
};

TEST_F(AwarenessOfTheHost, IsBackDuringEveryCallADialogMakes) {
  ShowTape([](frmAddRibbon& form, HWND) {
    ::SendMessageW(WindowOf(form.OptAskPrice), BM_CLICK, 0, 0);
    form.txtAddress.Text("Sheet1!$D$20:$E$24");
    ::SendMessageW(WindowOf(form.ButInsertNew), BM_CLICK, 0, 0);
  });
  EXPECT_EQ(notes.wrong, std::vector<std::string>());
  // Otherwise nothing was proven.
  for (const auto* kind : {"question", "call", "end"}) EXPECT_GT(notes.calls[kind], 20) << kind;
}

TEST_F(AwarenessOfTheHost, IsBackAfterTheDialog) {
  ShowTape([](frmAddRibbon&, HWND) {});
  EXPECT_EQ(Awareness(), notes.expected);
}

// The handlers of a form's controls run on behalf of its window, and their code is the library's.
TEST_F(AwarenessOfTheHost, DoesNotReachADialogsOwnHandlers) {
  int inHandler = -1;
  ShowTape([&](frmAddRibbon& form, HWND) {
    form.OptAskPrice.Click = [&] { inHandler = Awareness(); };
    ::PostMessageW(WindowOf(form.OptAskPrice), BM_CLICK, 0, 0);
  });
  EXPECT_EQ(inHandler, kPerDisplay);
}

TEST_F(AwarenessOfTheHost, DoesNotReachWhatADialogMakesOfKeys) {
  int inHandler = -1;
  ShowTape([&](frmAddRibbon& form, HWND) {
    form.ButInsert.Click = [&] { inHandler = Awareness(); };
    ::PostMessageW(WindowOf(form.txtAddress), WM_SYSCHAR, 'i', LPARAM{1} << 29 | 1);
  });
  EXPECT_EQ(inHandler, kPerDisplay);
}

int inTimer = -1;
void CALLBACK NoteInTimer(HWND, UINT, UINT_PTR timer, DWORD) {
  inTimer = Awareness();
  ::KillTimer(nullptr, timer);
}

int inHook = -1;
LRESULT CALLBACK NoteInHook(int code, WPARAM wide, LPARAM low) {
  inHook = Awareness();
  return ::CallNextHookEx(nullptr, code, wide, low);
}

// A host's timers without a window are called by whoever dispatches messages.
TEST_F(AwarenessOfTheHost, IsBackDuringItsTimers) {
  inTimer = -1;
  Desk desk;
  frmNewProject form(desk.toolkit);
  ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &NoteInTimer);
  // Due before the one that looks.
  OnDisplay::Show(form, [](HWND) {});
  EXPECT_EQ(inTimer, notes.expected);
}

TEST_F(AwarenessOfTheHost, IsBackInItsHookOfDialogs) {
  inHook = -1;
  Desk desk;
  frmNewProject form(desk.toolkit);
  const auto hook = ::SetWindowsHookExW(WH_MSGFILTER, &NoteInHook, nullptr, ::GetCurrentThreadId());
  OnDisplay::Show(form, [&](HWND) { ::PostMessageW(WindowOf(form.chkHigh), WM_KEYDOWN, VK_F2, 1); });
  ::UnhookWindowsHookEx(hook);
  EXPECT_EQ(inHook, notes.expected);
}

}  // namespace
}  // namespace pellora::windows::test
