#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <initializer_list>

#include "LoadedServer.h"
#include "RegistryChanges.h"
#include "platform/windows/ole/Failure.h"
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

// Each key and value of a registration, with the library's file as FILE.
const std::vector<std::string> kWritten = {
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61})",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\InprocServer32)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\InprocServer32|=FILE)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\InprocServer32|ThreadingModel=Apartment)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\ProgID)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\ProgID|=Pellora.cPellora.1)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\Programmable)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\Programmable|=)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\TypeLib)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\TypeLib|={2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8})",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\Version)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\VersionIndependentProgID)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\VersionIndependentProgID|=Pellora.cPellora)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}\Version|=1.0)",
    R"(CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}|=Pellora.cPellora)",
    R"(Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA})",
    R"(Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}\ProxyStubClsid32)",
    R"(Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}\ProxyStubClsid32|={00020424-0000-0000-C000-000000000046})",
    R"(Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}\TypeLib)",
    R"(Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}\TypeLib|=FILE_ID)",
    R"(Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}\TypeLib|Version=1.0)",
    R"(Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}|=_cPellora)",
    R"(Pellora.cPellora)",
    R"(Pellora.cPellora.1)",
    R"(Pellora.cPellora.1\CLSID)",
    R"(Pellora.cPellora.1\CLSID|={E6F41B9B-E88E-46C2-92C4-54BC6EC07D61})",
    R"(Pellora.cPellora.1|=Pellora.cPellora)",
    R"(Pellora.cPellora\CLSID)",
    R"(Pellora.cPellora\CLSID|={E6F41B9B-E88E-46C2-92C4-54BC6EC07D61})",
    R"(Pellora.cPellora\CurVer)",
    R"(Pellora.cPellora\CurVer|=Pellora.cPellora.1)",
    R"(Pellora.cPellora|=Pellora.cPellora)",
    R"(TypeLib\{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8})",
    R"(TypeLib\{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8}\1.0)",
    R"(TypeLib\{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8}\1.0\0)",
    R"(TypeLib\{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8}\1.0\0\BITNESS)",
    R"(TypeLib\{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8}\1.0\0\BITNESS|=FILE)",
    R"(TypeLib\{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8}\1.0\FLAGS)",
    R"(TypeLib\{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8}\1.0\FLAGS|=0)",
    R"(TypeLib\{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8}\1.0|=Vantix user interface library)",
};

void Replace(std::string& text, const std::string& what, const std::string& with) {
  if (const auto at = text.find(what); at != std::string::npos) text.replace(at, what.size(), with);
}

// In lower case, which does not count in names of keys, and without the keys that only a fresh user lacks.
std::vector<std::string> Plain(std::vector<std::string> lines) {
  for (std::string& line : lines)
    for (char& c : line) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  std::erase_if(lines, [](const std::string& line) {
    return line == R"(software\classes\clsid)" || line == R"(software\classes\interface)" ||
           line == R"(software\classes\typelib)";
  });
  std::sort(lines.begin(), lines.end());
  return lines;
}

// Registers in a hive, compares it with before, unregisters, compares again; the other hive is not to change at all.
class RegistryDifference : public Registration {
 protected:
  std::vector<std::string> Expected() {
    std::vector<std::string> lines = kWritten;
    for (std::string& line : lines) {
      Replace(line, "FILE_ID", "{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8}");
      Replace(line, "FILE", ole::Narrow(Path()));
      Replace(line, "BITNESS", sizeof(void*) == 8 ? "win64" : "win32");
      line = "Software\\Classes\\" + line;
    }
    return lines;
  }
  template <class Install, class Remove>
  void Compare(HKEY root, HKEY other, Install install, Remove remove) {
    const RegistryTree before = Classes(root), otherBefore = Classes(other);
    ASSERT_EQ(install(), S_OK);
    const auto added = Added(before, Classes(root));
    for (const std::string& line : added) std::printf("  + %s\n", line.c_str());
    EXPECT_EQ(Plain(added), Plain(Expected()));
    ASSERT_EQ(remove(), S_OK);
    EXPECT_EQ(Classes(root), before);
    EXPECT_EQ(Classes(other), otherBefore);
  }
};

TEST_F(RegistryDifference, OfTheMachineIsTheTableAndNothingAfterwards) {
  Compare(
      HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER, [&] { return ForMachine(true); }, [&] { return ForMachine(false); });
}

TEST_F(RegistryDifference, OfTheUserIsTheTableAndNothingAfterwards) {
  Compare(
      HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, [&] { return ForUser(TRUE); }, [&] { return ForUser(FALSE); });
}

TEST_F(Registration, TheTypeLibraryIsFoundByItsIdentifier) {
  ForMachine(true);
  ComPtr<ITypeLib> library;
  EXPECT_EQ(LoadRegTypeLib(LIBID_Pellora, 1, 0, 0, library.put()), S_OK);
}

// A key that cannot be written: below a volatile key, which is gone with the session, no lasting one can be made.
class BrokenRegistration : public Registration {
 protected:
  void Break(const std::wstring& key) {
    RegKey made;
    RegCreateKeyExW(HKEY_CURRENT_USER, (L"Software\\Classes\\" + key).c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                    KEY_WRITE, nullptr, made.put(), nullptr);
  }
  std::wstring InterfaceKey() { return L"Interface\\" + ole::Wide(GuidText(__uuidof(_cPellora))); }
};

TEST_F(BrokenRegistration, FailsAndLeavesNothingBehind) {
  const RegistryTree before = Classes(HKEY_CURRENT_USER);
  Break(InterfaceKey());
  EXPECT_EQ(ForUser(TRUE), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
  EXPECT_EQ(Added(before, Classes(HKEY_CURRENT_USER)), std::vector<std::string>());
}

TEST_F(BrokenRegistration, SaysWhichKeyCouldNotBeWritten) {
  Break(InterfaceKey());
  ForUser(TRUE);
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.put()), S_OK);
  ole::BStr text;
  info->GetDescription(text.put());
  EXPECT_NE(text.Text().find("Software\\Classes\\" + ole::Narrow(InterfaceKey()) + "\\ProxyStubClsid32"),
            std::string::npos)
      << text.Text();
}

TEST_F(BrokenRegistration, WritesThatKeyIntoTheFileItIsGiven) {
  const auto file = std::filesystem::temp_directory_path() / "pellora registration.txt";
  std::filesystem::remove(file);
  Break(InterfaceKey());
  Door<Install>("DllInstall")(TRUE, (L"user," + file.wstring()).c_str());
  std::string text;
  {
    std::ifstream content(file);
    std::getline(content, text);
  }
  EXPECT_NE(text.find(ole::Narrow(InterfaceKey()) + "\\ProxyStubClsid32"), std::string::npos) << text;
  std::filesystem::remove(file);
}

TEST_F(Registration, ThatSucceedsWritesNoFile) {
  const auto file = std::filesystem::temp_directory_path() / "pellora registration.txt";
  std::filesystem::remove(file);
  EXPECT_EQ(Door<Install>("DllInstall")(TRUE, (L"user," + file.wstring()).c_str()), S_OK);
  EXPECT_FALSE(std::filesystem::exists(file));
  ForUser(FALSE);
}

TEST_F(Registration, OfAUserWithoutClassesLeavesNoEmptyKeys) {
  ForUser(TRUE);
  ForUser(FALSE);
  for (const char* key : {"CLSID", "Interface", "TypeLib"}) {
    const RegistryTree tree = Classes(HKEY_CURRENT_USER);
    const std::string path = std::string("Software\\Classes\\") + key;
    const auto next = tree.upper_bound(path);
    EXPECT_TRUE(!tree.count(path) || (next != tree.end() && next->starts_with(path))) << key;
  }
}

// Both bitnesses share the class's name: taking one back leaves the name to the other.
TEST_F(Registration, WhatTheOtherBitnessNeedsStaysForIt) {
  const std::wstring classKey = L"Software\\Classes\\CLSID\\" + ole::Wide(GuidText(__uuidof(::cPellora)));
  const REGSAM other = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  RegKey key, seen;
  RegCreateKeyExW(HKEY_LOCAL_MACHINE, classKey.c_str(), 0, nullptr, 0, KEY_WRITE | other, nullptr, key.put(), nullptr);
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, classKey.c_str(), 0, KEY_READ, seen.put()) == ERROR_SUCCESS)
    GTEST_SKIP() << "one view of the registry for both bitnesses";
  ForMachine(true);
  ForMachine(false);
  EXPECT_NE(Value(HKEY_LOCAL_MACHINE, "Pellora.cPellora\\CLSID"), "(none)");
  EXPECT_EQ(Value(HKEY_LOCAL_MACHINE, "CLSID\\" + GuidText(__uuidof(::cPellora))), "(none)");
  RegDeleteKeyExW(HKEY_LOCAL_MACHINE, classKey.c_str(), other, 0);
}

TEST_F(Registration, ByAnotherWordThanUserAndMachineIsRefusedAndWritesNothing) {
  const RegistryTree user = Classes(HKEY_CURRENT_USER), machine = Classes(HKEY_LOCAL_MACHINE);
  for (const wchar_t* word : {L"usr", L"users", L"user ", L"0", L"usr,", L"machine user"})
    EXPECT_EQ(Door<Install>("DllInstall")(TRUE, word), E_INVALIDARG) << ole::Narrow(word);
  EXPECT_EQ(Classes(HKEY_CURRENT_USER), user);
  EXPECT_EQ(Classes(HKEY_LOCAL_MACHINE), machine);
}

TEST_F(Registration, IsNotTakenBackByAnotherWord) {
  ForMachine(true);
  EXPECT_EQ(Door<Install>("DllInstall")(FALSE, L"usr"), E_INVALIDARG);
  ExpectKeys(HKEY_LOCAL_MACHINE);
}

TEST_F(Registration, ByAnotherWordSaysWhichWordsThereAre) {
  const auto file = std::filesystem::temp_directory_path() / "pellora registration.txt";
  std::filesystem::remove(file);
  Door<Install>("DllInstall")(TRUE, (L"usr," + file.wstring()).c_str());
  std::string text;
  {
    std::ifstream content(file);
    std::getline(content, text);
  }
  EXPECT_NE(text.find("\"user\" or \"machine\""), std::string::npos) << text;
  std::filesystem::remove(file);
}

TEST_F(Registration, WithoutAWordIsForTheMachineAsWithItsWordInAnyCase) {
  for (const wchar_t* word : std::initializer_list<const wchar_t*>{nullptr, L"", L",", L"machine", L"MACHINE"}) {
    ASSERT_EQ(Door<Install>("DllInstall")(TRUE, word), S_OK);
    ExpectKeys(HKEY_LOCAL_MACHINE);
    ASSERT_EQ(Door<Install>("DllInstall")(FALSE, word), S_OK);
    ExpectNothing(HKEY_LOCAL_MACHINE);
  }
}

TEST_F(Registration, ForTheUserTakesItsWordInAnyCase) {
  ASSERT_EQ(Door<Install>("DllInstall")(TRUE, L"User"), S_OK);
  ExpectKeys(HKEY_CURRENT_USER);
  ExpectNothing(HKEY_LOCAL_MACHINE);
}

// The place of a user's 32-bit classes, which the system makes for a 32-bit library and leaves when they are gone.
class NarrowClasses : public Registration {
 protected:
  static constexpr const wchar_t* kNode = L"Software\\Classes\\Wow6432Node";
  static void Make(const std::wstring& path) {
    RegKey key;
    RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_WRITE | KEY_WOW64_64KEY, nullptr, key.put(),
                    nullptr);
  }
  static bool IsThere() {
    RegKey key;
    return RegOpenKeyExW(HKEY_CURRENT_USER, kNode, 0, KEY_READ | KEY_WOW64_64KEY, key.put()) == ERROR_SUCCESS;
  }
};

TEST_F(NarrowClasses, GoWithTheLastOfThem) {
  ForUser(TRUE);
  Make(kNode);
  ForUser(FALSE);
  EXPECT_FALSE(IsThere());
}

TEST_F(NarrowClasses, StayForTheOthers) {
  const std::wstring other = std::wstring(kNode) + L"\\Another.Class";
  ForUser(TRUE);
  Make(other);
  ForUser(FALSE);
  EXPECT_TRUE(IsThere());
  for (const std::wstring& path : {other, std::wstring(kNode)})
    RegDeleteKeyExW(HKEY_CURRENT_USER, path.c_str(), KEY_WOW64_64KEY, 0);
}

TEST_F(Registration, TheVersionOfTheFileIsTheProjects) {
  const LibraryInfo info = ReadLibraryInfo(Module());
  EXPECT_EQ(info.title, "Pellora");
  EXPECT_EQ(std::to_string(info.major) + "." + std::to_string(info.minor) + "." + std::to_string(info.revision),
            PELLORA_VERSION);
}

// The text of a resource of the library.
std::string Resource(HMODULE module, int id, LPCWSTR type) {
  const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(id), type);
  const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
  const auto* bytes = loaded ? static_cast<const char*>(LockResource(loaded)) : nullptr;
  return bytes ? std::string(bytes, SizeofResource(module, found)) : std::string();
}

TEST_F(Registration, TheVersionInTheFilesPropertiesIsTheProjects) {
  std::string block = Resource(Module(), 1, RT_VERSION);
  wchar_t* text = nullptr;
  UINT length = 0;
  for (const wchar_t* name : {L"FileVersion", L"ProductVersion"}) {
    const std::wstring path = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    ASSERT_TRUE(VerQueryValueW(block.data(), path.c_str(), reinterpret_cast<void**>(&text), &length));
    EXPECT_EQ(ole::Narrow(text), PELLORA_VERSION);
  }
}

TEST_F(Registration, TheVersionOfTheManifestIsTheProjects) {
  EXPECT_NE(Resource(Module(), 2, RT_MANIFEST).find("name=\"Vantix.Pellora\" version=\"" PELLORA_VERSION ".0\""),
            std::string::npos);
}

}  // namespace
}  // namespace pellora::windows::test
