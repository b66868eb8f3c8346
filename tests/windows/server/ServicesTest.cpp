#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/Error.h"
#include "platform/windows/ole/Owners.h"
#include "platform/windows/services/VersionResource.h"
#include "platform/windows/services/WindowsClock.h"
#include "platform/windows/services/WindowsEventLog.h"
#include "platform/windows/services/WindowsLogFiles.h"
#include "platform/windows/services/WindowsRegistry.h"
#include "platform/windows/services/WindowsShell.h"
#include "platform/windows/services/WindowsTextServices.h"
#include "tests/LocaleNumbers.h"

namespace pellora::windows {
namespace {

// A part of the user's registry that belongs to one test.
class RegistryTest : public testing::Test {
 protected:
  RegistryTest() { RegDeleteTreeA(HKEY_CURRENT_USER, kRoot); }
  ~RegistryTest() override { RegDeleteTreeA(HKEY_CURRENT_USER, kRoot); }

  static bool KeyIsThere(const std::string& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
  }
  // The type and bytes of a value, as stored.
  static std::pair<DWORD, std::string> Stored(const char* name) {
    char data[256];
    DWORD type = 0, size = sizeof data;
    const auto status = RegGetValueA(HKEY_CURRENT_USER, kSection, name, RRF_RT_ANY | RRF_NOEXPAND, &type, data, &size);
    return status == ERROR_SUCCESS ? std::pair(type, std::string(data, size)) : std::pair(DWORD(-1), std::string());
  }

  static constexpr const char* kRoot = "Software\\PelloraServicesTest";
  static constexpr const char* kSection = "Software\\PelloraServicesTest\\Settings\\frmSettings";
  WindowsRegistry registry;
};

TEST_F(RegistryTest, ATextIsStoredWithOneTerminatingZero) {
  ASSERT_EQ(registry.SetValue(kCurrentUser, kSection, "List", std::string("PUT|CALL")), 0);
  EXPECT_EQ(Stored("List"), std::pair(DWORD(REG_SZ), std::string("PUT|CALL\0", 9)));
}

TEST_F(RegistryTest, ANumberIsStoredInFourBytes) {
  ASSERT_EQ(registry.SetValue(kCurrentUser, kSection, "Left", -2), 0);
  EXPECT_EQ(Stored("Left"), std::pair(DWORD(REG_DWORD), std::string("\xFE\xFF\xFF\xFF")));
}

TEST_F(RegistryTest, WhatWasStoredIsReadInItsKind) {
  registry.SetValue(kCurrentUser, kSection, "Text", std::string("5"));
  registry.SetValue(kCurrentUser, kSection, "Number", 5);
  registry.SetValue(kCurrentUser, kSection, "Empty", std::string());
  EXPECT_EQ(registry.QueryValue(kCurrentUser, kSection, "Text"), RegistryValue(std::string("5")));
  EXPECT_EQ(registry.QueryValue(kCurrentUser, kSection, "Number"), RegistryValue(5));
  EXPECT_EQ(registry.QueryValue(kCurrentUser, kSection, "Empty"), RegistryValue(std::string()));
}

TEST_F(RegistryTest, AnotherKindOfValueIsUnknown) {
  registry.SetValue(kCurrentUser, kSection, "Text", std::string("5"));
  HKEY key = nullptr;
  ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, kSection, 0, KEY_WRITE, &key), ERROR_SUCCESS);
  RegSetValueExA(key, "Bytes", 0, REG_BINARY, reinterpret_cast<const BYTE*>("abc"), 3);
  RegCloseKey(key);
  EXPECT_EQ(registry.QueryValue(kCurrentUser, kSection, "Bytes"), RegistryValue(RegistryUnknown{}));
}

TEST_F(RegistryTest, AskingForWhatIsNotThereCreatesNothing) {
  EXPECT_EQ(registry.QueryValue(kCurrentUser, kSection, "List"), std::nullopt);
  EXPECT_FALSE(KeyIsThere(kRoot));
}

TEST_F(RegistryTest, NamesOfValuesAreListedWithoutKeys) {
  registry.SetValue(kCurrentUser, kSection, "First", 1);
  registry.SetValue(kCurrentUser, kSection, "A much longer name", 2);
  registry.SetValue(kCurrentUser, std::string(kSection) + "\\Below", "Other", 3);
  std::vector<std::string> names;
  ASSERT_EQ(registry.EnumerateValues(kCurrentUser, kSection, names), 0);
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::string>{"A much longer name", "First"}));
}

TEST_F(RegistryTest, ListingAMissingKeyIsAFailure) {
  std::vector<std::string> names{"as before"};
  EXPECT_EQ(registry.EnumerateValues(kCurrentUser, kSection, names), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(names, std::vector<std::string>{"as before"});
}

TEST_F(RegistryTest, AKeyIsDeletedWithItsValues) {
  registry.SetValue(kCurrentUser, kSection, "First", 1);
  EXPECT_EQ(registry.DeleteKey(kCurrentUser, kSection), 0);
  EXPECT_FALSE(KeyIsThere(kSection));
  EXPECT_EQ(registry.DeleteKey(kCurrentUser, kSection), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryTest, AValueIsNotDeletedAsAKey) {
  registry.SetValue(kCurrentUser, kSection, "First", 1);
  EXPECT_NE(registry.DeleteKey(kCurrentUser, std::string(kSection) + "\\First"), 0);
  EXPECT_NE(registry.QueryValue(kCurrentUser, kSection, "First"), std::nullopt);
}

TEST_F(RegistryTest, TextsOfTheSystemsCodePageComeBack) {
  const std::string text = FromAnsi(ToAnsi("B\xC3\xB6rse"));
  registry.SetValue(kCurrentUser, kSection, "List", text);
  EXPECT_EQ(registry.QueryValue(kCurrentUser, kSection, "List"), RegistryValue(text));
}

// A folder that belongs to one test.
class Files : public testing::Test {
 protected:
  Files() { std::filesystem::create_directories(folder); }
  ~Files() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  std::string Path(const char* name) const { return (folder / name).string(); }
  static std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
  }
  std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("pellora-" + std::to_string(GetCurrentProcessId()));
};

TEST_F(Files, ALogGrowsByExactlyTheBytesGiven) {
  WindowsLogFiles files;
  EXPECT_TRUE(files.Append(Path("Error Log.txt"), "one\r\n"));
  EXPECT_TRUE(files.Append(Path("Error Log.txt"), std::string_view("t\0wo\n", 5)));
  EXPECT_EQ(Content(Path("Error Log.txt")), std::string("one\r\nt\0wo\n", 10));
}

TEST_F(Files, ALogInAMissingFolderIsRefused) {
  EXPECT_FALSE(WindowsLogFiles().Append(Path("nowhere\\Error Log.txt"), "one"));
}

TEST_F(Files, ALogIsDeletedOnce) {
  WindowsLogFiles files;
  files.Append(Path("Error Log.txt"), "one");
  EXPECT_TRUE(files.Delete(Path("Error Log.txt")));
  EXPECT_FALSE(files.Delete(Path("Error Log.txt")));
}

TEST_F(Files, ExistAccordingToTheShell) {
  WindowsLogFiles().Append(Path("there.txt"), "x");
  WindowsShell shell;
  EXPECT_TRUE(shell.FileExists(Path("there.txt")));
  EXPECT_FALSE(shell.FileExists(Path("not there.txt")));
}

TEST_F(Files, AProgramIsRunToItsEndWithItsParameters) {
  const std::string target = Path("made by the program.txt");
  EXPECT_TRUE(WindowsShell().RunAndWait("C:\\windows\\system32\\cmd.exe", "/c echo done>\"" + target + "\"", ""));
  EXPECT_EQ(Content(target), "done\r\n");
}

TEST_F(Files, AProgramStartsInItsDirectory) {
  EXPECT_TRUE(WindowsShell().RunAndWait("C:\\windows\\system32\\cmd.exe", "/c echo done>here.txt", folder.string()));
  EXPECT_EQ(Content(Path("here.txt")), "done\r\n");
}

TEST(WindowsShell, AProgramThatIsNotThereIsNotRun) {
  EXPECT_FALSE(WindowsShell().RunAndWait("C:\\nowhere\\nothing.exe", "", ""));
}

TEST(WindowsShell, AMissingFolderIsNotExplored) {
  const auto result = WindowsShell().Execute("explore", "C:\\nowhere\\at all", "", "");
  EXPECT_TRUE(result == 2 || result == 3) << result;
}

// True as soon as a program that was started has written that, or false after ten seconds.
bool Comes(const std::filesystem::path& file, const std::string& content) {
  for (int tries = 0; tries < 1000; ++tries, Sleep(10)) {
    std::ifstream there(file, std::ios::binary);
    std::ostringstream now;
    now << there.rdbuf();
    if (now.str() == content) return true;
  }
  return false;
}

TEST_F(Files, AProgramIsExecutedInADirectoryWithItsParameters) {
  const auto result =
      WindowsShell().Execute("open", "C:\\windows\\system32\\cmd.exe", "/c echo done>executed.txt", folder.string());
  EXPECT_GT(result, 32);
  EXPECT_TRUE(Comes(Path("executed.txt"), "done\r\n"));
}

TEST_F(Files, AnEmptyVerbIsTheUsualOne) {
  WindowsShell().Execute("", "C:\\windows\\system32\\cmd.exe", "/c echo done>executed.txt", folder.string());
  EXPECT_TRUE(Comes(Path("executed.txt"), "done\r\n"));
}

TEST_F(Files, ThatAreMissingHaveNoProperties) {
  EXPECT_LE(WindowsShell().ShowProperties(Path("not there.txt"), 0), 32);
}

TEST_F(Files, HavePropertiesToShowWhereTheSystemCan) {
  if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")) GTEST_SKIP() << "Wine shows none";
  WindowsLogFiles().Append(Path("there.txt"), "x");
  EXPECT_GT(WindowsShell().ShowProperties(Path("there.txt"), 0), 32);
}

// The machine's classes, with a document type of a test's own.
class DocumentType : public testing::Test {
 protected:
  DocumentType() {
    Write("SOFTWARE\\Classes\\.pelloratest", "Pellora.Test");
    Write("SOFTWARE\\Classes\\Pellora.Test\\Shell\\&Open", "");
    Write("SOFTWARE\\Classes\\Pellora.Test\\Shell\\print", "");
    Write("SOFTWARE\\Classes\\.pelloraplain\\Shell\\edit", "");
  }
  ~DocumentType() override {
    for (const char* key : {".pelloratest", "Pellora.Test", ".pelloraplain"})
      RegDeleteTreeA(HKEY_LOCAL_MACHINE, (std::string("SOFTWARE\\Classes\\") + key).c_str());
  }
  static void Write(const char* key, const char* text) {
    WindowsRegistry().SetValue(kLocalMachine, key, "", std::string(text));
  }
  WindowsShell shell;
};

TEST_F(DocumentType, TellsTheVerbsOfTheClassThatTheExtensionNames) {
  auto verbs = shell.DocumentVerbs("C:\\some.folder\\file.pelloratest");
  std::sort(verbs.begin(), verbs.end());
  EXPECT_EQ(verbs, (std::vector<std::string>{"&Open", "print"}));
}

TEST_F(DocumentType, IsOpenedByItsProgram) {
  const auto folder = std::filesystem::temp_directory_path();
  const auto document = folder / "some document.pelloratest", opened = folder / "pellora opened.txt";
  std::ofstream(document) << "x";
  std::filesystem::remove(opened);
  Write("SOFTWARE\\Classes\\Pellora.Test\\Shell\\Open\\command",
        ("cmd.exe /c echo %1>\"" + opened.string() + "\"").c_str());
  EXPECT_GT(shell.Execute("Open", document.string(), "", ""), 32);
  EXPECT_TRUE(Comes(opened, document.string() + "\r\n"));
  std::filesystem::remove(opened);
  std::filesystem::remove(document);
}

TEST_F(DocumentType, IsNotOpenedByAVerbItLacks) {
  const auto document = std::filesystem::temp_directory_path() / "some document.pelloratest";
  std::ofstream(document) << "x";
  EXPECT_LE(shell.Execute("juggle", document.string(), "", ""), 32);
  std::filesystem::remove(document);
}

TEST_F(DocumentType, TellsTheVerbsOfTheExtensionWhereItNamesNoClass) {
  EXPECT_EQ(shell.DocumentVerbs("file.pelloraplain"), std::vector<std::string>{"edit"});
}

TEST_F(DocumentType, AFileWithoutExtensionHasNoVerbs) {
  EXPECT_EQ(shell.DocumentVerbs("C:\\some.pelloratest\\file"), std::vector<std::string>());
}

TEST(WindowsClock, TellsLocalTime) {
  SYSTEMTIME before;
  GetLocalTime(&before);
  double days = 0;
  SystemTimeToVariantTime(&before, &days);
  EXPECT_NEAR(WindowsClock().Now(), days, 60.0 / 86400);
}

TEST(WindowsEventLog, IsThereAndTakesAnEntry) {
  WindowsEventLog log;
  EXPECT_TRUE(log.Available());
  EXPECT_TRUE(log.WriteError("Pellora", "A test of the event log"));
}

TEST(WindowsTextServices, NumbersReadAndPrintAsInMacros) {
  const WindowsTextServices text;
  EXPECT_EQ(text.NumberText(1.5), "1.5");
  EXPECT_EQ(text.NumberText(100.0), "100");
  EXPECT_EQ(text.ParseNumber("1.5"), 1.5);
  EXPECT_EQ(text.ParseNumber(" 100 "), 100.0);
  EXPECT_EQ(text.ParseNumber(""), std::nullopt);
  EXPECT_EQ(text.ParseNumber("1.5x"), std::nullopt);
}

struct LocaleCase {
  const char* name;
  unsigned long locale;
  const char* half;
  const char* otherHalf;
};

class NumbersInALocale : public testing::TestWithParam<LocaleCase> {};

TEST_P(NumbersInALocale, AreReadAndPrintedWithItsSeparator) {
  const WindowsTextServices text(GetParam().locale);
  EXPECT_EQ(text.ParseNumber(GetParam().half), 0.5);
  EXPECT_EQ(text.NumberText(0.5), GetParam().half);
}

TEST_P(NumbersInALocale, AnothersSeparatorIsNotThatOfDecimals) {
  const WindowsTextServices text(GetParam().locale);
  EXPECT_NE(text.ParseNumber(GetParam().otherHalf), std::optional(0.5));
}

TEST_P(NumbersInALocale, SignsAndExponentsAreNumbersEverywhereAndWordsNowhere) {
  const WindowsTextServices text(GetParam().locale);
  EXPECT_EQ(text.ParseNumber("-100"), -100.0);
  EXPECT_EQ(text.ParseNumber("2e3"), 2000.0);
  EXPECT_EQ(text.ParseNumber("Dec07"), std::nullopt);
  EXPECT_EQ(text.ParseNumber(""), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Locales, NumbersInALocale,
                         testing::Values(LocaleCase{"English", 0x0409, "0.5", "0,5"},
                                         LocaleCase{"German", 0x0407, "0,5", "0.5"},
                                         LocaleCase{"French", 0x040C, "0,5", "0.5"}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(WindowsTextServices, NumbersAreReadAsInTheTableOfAllPlatforms) {
  const WindowsTextServices english(0x0409), german(0x0407), french(0x040C);
  for (const auto& row : LocaleNumbers()) {
    EXPECT_EQ(english.ParseNumber(row.text), row.english) << row.text;
    EXPECT_EQ(german.ParseNumber(row.text), row.german) << row.text;
    EXPECT_EQ(french.ParseNumber(row.text), row.french) << row.text;
  }
}

TEST(WindowsTextServices, ANumberTooLargeIsAnOverflow) {
  try {
    WindowsTextServices().ParseNumber("1e999");
    FAIL() << "no overflow";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), errors::Overflow);
  }
}

TEST(WindowsTextServices, UpperCaseIsThatOfEveryScript) {
  // a umlaut, Greek alpha, Cyrillic zhe.
  EXPECT_EQ(WindowsTextServices().Upper("a\xC3\xA4\xCE\xB1\xD0\xB6"), "A\xC3\x84\xCE\x91\xD0\x96");
}

TEST(WindowsTextServices, ADateComesBackThroughItsText) {
  const WindowsTextServices text;
  EXPECT_EQ(text.ParseDate(text.DateText(39434)), 39434.0);
  EXPECT_EQ(text.ParseDate("no date"), std::nullopt);
}

TEST(WindowsTextServices, DateAndTimeAreInTheSystemsFormats) {
  const WindowsTextServices text;
  wchar_t date[64], time[64];
  const SYSTEMTIME moment{2007, 12, 2, 18, 9, 30, 5, 0};
  GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &moment, nullptr, date, 64);
  GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &moment, nullptr, time, 64);
  double days = 0;
  SYSTEMTIME copy = moment;
  SystemTimeToVariantTime(&copy, &days);
  EXPECT_EQ(text.ShortDate(days), ole::Narrow(date));
  EXPECT_EQ(text.LongTime(days), ole::Narrow(time));
}

TEST(WindowsTextServices, WhatTheCodePageLacksBecomesAQuestionMark) {
  if (GetACP() == CP_UTF8) GTEST_SKIP() << "this system's code page lacks nothing";
  EXPECT_EQ(ToAnsi("a\xE0\xA4\x95"), "a?");
}

TEST(VersionResource, AModuleWithoutOneGetsTheDefaults) {
  const LibraryInfo info = ReadLibraryInfo(GetModuleHandleW(nullptr));
  EXPECT_EQ(info.title, "Pellora");
  EXPECT_EQ(info.major, 1);
  EXPECT_EQ(info.minor, 0);
  EXPECT_EQ(info.revision, 0);
}

}  // namespace
}  // namespace pellora::windows
