#include "LoadedServer.h"
#include "platform/windows/services/VersionResource.h"

namespace pellora::windows::test {
namespace {

// What a class root has under a key; "(none)" for nothing.
std::string Value(HKEY root, const std::string& key, const wchar_t* name = nullptr) {
  wchar_t text[1024];
  DWORD size = sizeof text;
  const std::wstring path = ole::Wide("Software\\Classes\\" + key);
  if (RegGetValueW(root, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size) != ERROR_SUCCESS) return "(none)";
  return ole::Narrow(text);
}

std::string GuidText(REFGUID id) {
  wchar_t text[40];
  StringFromGUID2(id, text, 40);
  return ole::Narrow(text);
}

// Registration through the module's own doors, taken back at the end.
class Registration : public LoadedServer {
 protected:
  using Door0 = HRESULT WINAPI();
  using Install = HRESULT WINAPI(BOOL, PCWSTR);

  HRESULT ForUser(BOOL install) { return Door<Install>("DllInstall")(install, L"user"); }
  HRESULT ForMachine(bool install) { return Door<Door0>(install ? "DllRegisterServer" : "DllUnregisterServer")(); }
  void TearDown() override {
    ForUser(FALSE);
    ForMachine(false);
  }

  void ExpectKeys(HKEY root) {
    const std::string classId = GuidText(__uuidof(::cPellora)), classKey = "CLSID\\" + classId;
    EXPECT_EQ(Value(root, classKey), "Pellora.cPellora");
    EXPECT_EQ(Value(root, classKey + "\\InprocServer32"), ole::Narrow(Path()));
    EXPECT_EQ(Value(root, classKey + "\\InprocServer32", L"ThreadingModel"), "Apartment");
    EXPECT_EQ(Value(root, classKey + "\\ProgID"), "Pellora.cPellora.1");
    EXPECT_EQ(Value(root, classKey + "\\VersionIndependentProgID"), "Pellora.cPellora");
    EXPECT_NE(Value(root, classKey + "\\TypeLib"), "(none)");
    EXPECT_EQ(Value(root, "Pellora.cPellora\\CLSID"), classId);
    EXPECT_EQ(Value(root, "Pellora.cPellora\\CurVer"), "Pellora.cPellora.1");
    EXPECT_EQ(Value(root, "Pellora.cPellora.1\\CLSID"), classId);
  }
  void ExpectNothing(HKEY root) {
    EXPECT_EQ(Value(root, "CLSID\\" + GuidText(__uuidof(::cPellora))), "(none)");
    EXPECT_EQ(Value(root, "Pellora.cPellora"), "(none)");
    EXPECT_EQ(Value(root, "Pellora.cPellora.1"), "(none)");
  }
};

TEST_F(Registration, ForTheMachineWritesTheMachinesClasses) {
  ASSERT_EQ(ForMachine(true), S_OK);
  ExpectKeys(HKEY_LOCAL_MACHINE);
}

TEST_F(Registration, IsTakenBackWhole) {
  ForMachine(true);
  EXPECT_EQ(ForMachine(false), S_OK);
  ExpectNothing(HKEY_LOCAL_MACHINE);
}

TEST_F(Registration, CanBeTakenBackTwice) {
  EXPECT_EQ(ForMachine(false), S_OK);
  EXPECT_EQ(ForMachine(false), S_OK);
}

TEST_F(Registration, ForTheUserLeavesTheMachinesClassesAlone) {
  ASSERT_EQ(ForUser(TRUE), S_OK);
  ExpectKeys(HKEY_CURRENT_USER);
  ExpectNothing(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(ForUser(FALSE), S_OK);
  ExpectNothing(HKEY_CURRENT_USER);
}

TEST_F(Registration, TheProgIdLeadsToTheClass) {
  ForMachine(true);
  CLSID found;
  ASSERT_EQ(CLSIDFromProgID(L"Pellora.cPellora", &found), S_OK);
  EXPECT_EQ(GuidText(found), GuidText(__uuidof(::cPellora)));
}

TEST_F(Registration, ARegisteredClassIsCreatedByTheSystem) {
  ForMachine(true);
  ComPtr<_cPellora> object;
  EXPECT_EQ(CoCreateInstance(__uuidof(::cPellora), nullptr, CLSCTX_INPROC_SERVER, __uuidof(_cPellora),
                             reinterpret_cast<void**>(object.put())),
            S_OK);
}

TEST_F(Registration, TheVersionOfTheFileIsToldByItself) {
  const LibraryInfo info = ReadLibraryInfo(GetModuleHandleW(L"Pellora.dll"));
  EXPECT_EQ(info.title, "Pellora");
  EXPECT_EQ(info.major, 1);
  EXPECT_EQ(info.minor, 0);
  EXPECT_EQ(info.revision, 0);
}

}  // namespace
}  // namespace pellora::windows::test
