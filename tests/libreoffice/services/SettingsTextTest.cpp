#include "platform/libreoffice/services/SettingsText.h"

#include <gtest/gtest.h>

#include "core/Text.h"

namespace pellora::libreoffice {
namespace {

constexpr char kKey[] = "Software\\CORVANE\\Vantix\\S";

RegistryValue Text(std::string_view text) { return std::string(text); }

std::optional<RegistryValue> ValueIn(std::string_view content, std::string_view name) {
  return SettingsText(content).Value(kCurrentUser, "K", name);
}

TEST(SettingsText, OfANewFileReadsAsDescribed) {
  SettingsText text("");
  text.SetValue(kCurrentUser, kKey, "List", Text("PUT|CALL"));
  text.SetValue(kCurrentUser, kKey, "Left", -5);
  text.SetValue(kLocalMachine, "M", "", RegistryUnknown{});
  EXPECT_EQ(text.Content(),
            "# Settings, one a line: keys in brackets, their values below. Texts are in quotes, where %0A is a line "
            "break.\n"
            "\n"
            "[CurrentUser\\Software\\CORVANE\\Vantix\\S]\n"
            "\"List\" = \"PUT|CALL\"\n"
            "\"Left\" = -5\n"
            "\n"
            "[LocalMachine\\M]\n"
            "\"\" = ?\n");
}

TEST(SettingsText, AnyTextComesBackThroughTheFile) {
  using namespace std::string_view_literals;
  for (const auto value :
       {""sv, " "sv, "\""sv, "a\"b\\"sv, "%"sv, "%0A"sv, "%%"sv, "\r\n\t\x01\x7F"sv, "\0a\0"sv, "[x]"sv, "# x"sv, "5"sv,
        "?"sv, "B\xC3\xB6rse \xF0\x9F\x93\x88"sv, "\xFF\xC3"sv, "a\xEF\xBF\xBD"sv}) {
    SettingsText text("");
    text.SetValue(kCurrentUser, value, value, Text(value));
    const SettingsText again(text.Content());
    EXPECT_EQ(again.Value(kCurrentUser, value, value), Text(value)) << value;
    EXPECT_EQ(again.Names(kCurrentUser, value), std::vector<std::string>{std::string(value)}) << value;
  }
}

TEST(SettingsText, IsUtf8WhateverTheTexts) {
  SettingsText text("");
  text.SetValue(kCurrentUser, "\xC3", "\xE2\x82", Text("\xFF"));
  EXPECT_EQ(ToUtf8(ToUtf16(text.Content())), text.Content());
}

TEST(SettingsText, LettersOfEveryScriptAreReadableInTheFile) {
  SettingsText text("");
  text.SetValue(kCurrentUser, "K", "N", Text("B\xC3\xB6rse"));
  EXPECT_NE(text.Content().find("\"N\" = \"B\xC3\xB6rse\"\n"), std::string::npos);
}

TEST(SettingsText, EveryNumberOf32BitsComesBack) {
  for (const std::int32_t number : {0, -1, INT32_MAX, INT32_MIN}) {
    SettingsText text("");
    text.SetValue(kCurrentUser, "K", "N", number);
    EXPECT_EQ(SettingsText(text.Content()).Value(kCurrentUser, "K", "N"), RegistryValue(number));
  }
}

struct DataRow {
  const char* data;
  RegistryValue value;
};

TEST(SettingsText, WhatIsNeitherTextNorNumberIsUnknown) {
  const DataRow rows[] = {{"5", 5},
                          {"\"5\"", Text("5")},
                          {"\"50%\"", Text("50%")},
                          {"\"%zz%4\"", Text("%zz%4")},
                          {"?", RegistryUnknown{}},
                          {"", RegistryUnknown{}},
                          {"2147483648", RegistryUnknown{}},
                          {"5x", RegistryUnknown{}},
                          {"\"", RegistryUnknown{}},
                          {"\"PUT|CA", RegistryUnknown{}},
                          {"\"a\" \"b\"", RegistryUnknown{}},
                          {"hex:01,02", RegistryUnknown{}}};
  for (const auto& row : rows)
    EXPECT_EQ(ValueIn("[CurrentUser\\K]\n\"N\" = " + std::string(row.data) + "\n", "N"), row.value) << row.data;
}

TEST(SettingsText, BlanksReturnsAndAByteOrderMarkCountForNothing) {
  EXPECT_EQ(ValueIn("\xEF\xBB\xBF [currentuser\\K] \r\n\t\"N\"=\"x\" \r\n", "N"), Text("x"));
}

TEST(SettingsText, ALastLineWithoutItsEndCounts) {
  EXPECT_EQ(ValueIn("[CurrentUser\\K]\n\"N\" = 5", "N"), RegistryValue(5));
}

TEST(SettingsText, AnotherRootIsWrittenAsItsNumber) {
  SettingsText text("");
  text.SetValue(static_cast<std::int32_t>(0x80000003), "K", "N", 5);
  EXPECT_NE(text.Content().find("[0x80000003\\K]\n"), std::string::npos);
  EXPECT_EQ(SettingsText(text.Content()).Value(static_cast<std::int32_t>(0x80000003), "k", "n"), RegistryValue(5));
}

TEST(SettingsText, NamesAreEqualWithoutRegardToCaseInEveryScript) {
  EXPECT_EQ(ValueIn("[CurrentUser\\k]\n\"B\xC3\x96RSE\" = 5\n", "b\xC3\xB6rse"), RegistryValue(5));
}

TEST(SettingsText, OfTwoValuesOfOneNameTheFirstCounts) {
  const SettingsText text("[CurrentUser\\K]\n\"N\" = 1\n\"n\" = 2\n");
  EXPECT_EQ(text.Value(kCurrentUser, "K", "N"), RegistryValue(1));
  EXPECT_EQ(text.Names(kCurrentUser, "K"), std::vector<std::string>{"N"});
}

constexpr char kDamaged[] =
    "what is this\r\n"
    "\"early\" = 1\n"
    "[CurrentUser\\K]\n"
    "# mine\n"
    "\"N\" = \"x\"\n"
    "\"half\n"
    "\"Bytes\" = hex:01\n"
    "=\n"
    "[CurrentUser\\Broken\n"
    "\"N\" = \"of nobody\"\n"
    "\"late\" = 2\n"
    "[NoRoot\\K]\n"
    "\"N\" = 3\n"
    "[CurrentUser\\L]\n"
    "\"N\" = 4";

TEST(SettingsText, DamagedLinesHideNoOthers) {
  const SettingsText text(kDamaged);
  EXPECT_EQ(text.Value(kCurrentUser, "K", "N"), Text("x"));
  EXPECT_EQ(text.Value(kCurrentUser, "L", "N"), RegistryValue(4));
  EXPECT_EQ(text.Value(kCurrentUser, "K", "late"), std::nullopt);
}

TEST(SettingsText, AChangeKeepsEveryOtherLineByteForByte) {
  SettingsText text(kDamaged);
  text.SetValue(kCurrentUser, "K", "n", Text("y"));
  std::string expected = kDamaged;
  expected.replace(expected.find("\"x\""), 3, "\"y\"");
  EXPECT_EQ(text.Content(), expected + "\n");
}

TEST(SettingsText, ANewValueStandsAfterTheKeysOthers) {
  SettingsText text(kDamaged);
  text.SetValue(kCurrentUser, "K", "New", 7);
  std::string expected = kDamaged;
  expected.insert(expected.find("=\n[CurrentUser\\Broken"), "\"New\" = 7\n");
  EXPECT_EQ(text.Content(), expected + "\n");
}

TEST(SettingsText, DeletingAKeyKeepsTheLinesThatWereNotUnderstood) {
  SettingsText text(kDamaged);
  text.DeleteKey(kCurrentUser, "K");
  std::string expected = kDamaged;
  for (const std::string gone : {"[CurrentUser\\K]\n", "\"N\" = \"x\"\n", "\"Bytes\" = hex:01\n"})
    expected.erase(expected.find(gone), gone.size());
  EXPECT_EQ(text.Content(), expected + "\n");
}

TEST(SettingsText, DeletingTheOnlyKeyBelowKeepsTheKeyAbove) {
  SettingsText text("[CurrentUser\\A\\B]\n\"N\" = 1\n");
  text.DeleteKey(kCurrentUser, "A\\B");
  EXPECT_TRUE(SettingsText(text.Content()).HasKey(kCurrentUser, "A"));
  EXPECT_FALSE(SettingsText(text.Content()).HasKey(kCurrentUser, "A\\B"));
}

TEST(SettingsText, TheSameValueIsNoChange) {
  SettingsText text("[CurrentUser\\K]\n\"N\"=5\n\"Odd\" = hex:01\n");
  text.SetValue(kCurrentUser, "k", "n", 5);
  text.SetValue(kCurrentUser, "K", "Odd", RegistryUnknown{});
  EXPECT_FALSE(text.Changed());
  text.SetValue(kCurrentUser, "k", "n", Text("5"));
  EXPECT_TRUE(text.Changed());
}

TEST(SettingsText, AKeyIsThereWithAllKeysAboveIt) {
  const SettingsText text("[CurrentUser\\A\\B\\C]\n");
  for (const char* path : {"A", "a\\b", "A\\B\\C"}) EXPECT_TRUE(text.HasKey(kCurrentUser, path)) << path;
  for (const char* path : {"A\\B\\C\\D", "B", "A\\", "AB"}) EXPECT_FALSE(text.HasKey(kCurrentUser, path)) << path;
  EXPECT_FALSE(text.HasKey(kLocalMachine, "A"));
}

}  // namespace
}  // namespace pellora::libreoffice
