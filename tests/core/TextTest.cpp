#include "core/Text.h"

#include <gtest/gtest.h>

namespace pellora {
namespace {

using Pieces = std::vector<std::string>;

TEST(Utf16, WellFormedTextGoesThereAndBack) {
  const std::string text = "A\u00E4\u0416\u65E5\U0001F4C8";
  EXPECT_EQ(ToUtf16(text), u"A\u00E4\u0416\u65E5\U0001F4C8");
  EXPECT_EQ(ToUtf8(ToUtf16(text)), text);
}

TEST(Utf16, IllFormedBytesBecomeReplacementCharacters) {
  EXPECT_EQ(ToUtf16("a\xFFz"), u"a\uFFFDz");
  EXPECT_EQ(ToUtf16("\xE2\x82"), u"\uFFFD");
  EXPECT_EQ(ToUtf16("\xC0\xAF"), u"\uFFFD\uFFFD");
  EXPECT_EQ(ToUtf16("\xED\xA0\x80"), u"\uFFFD");
  EXPECT_EQ(ToUtf16("\xF0\x80\x80\x80"), u"\uFFFD");
}

TEST(Utf8, LoneSurrogatesBecomeReplacementCharacters) {
  const char16_t high[] = {0xD83D, u'x', 0};
  const char16_t low[] = {0xDCC8, 0};
  EXPECT_EQ(ToUtf8(high), "\uFFFDx");
  EXPECT_EQ(ToUtf8(low), "\uFFFD");
}

TEST(EqualNoCase, LettersOfEveryScriptMatchWhateverTheirCase) {
  EXPECT_TRUE(EqualNoCase("smart", "SMART"));
  EXPECT_TRUE(EqualNoCase("\u00E4rger", "\u00C4RGER"));
  EXPECT_TRUE(EqualNoCase("\u0436", "\u0416"));
  EXPECT_FALSE(EqualNoCase("a", "\u00E4"));
  EXPECT_FALSE(EqualNoCase("a", "ab"));
}

TEST(EqualAsciiNoCase, OnlyTheLettersAToZMatchWhateverTheirCase) {
  EXPECT_TRUE(EqualAsciiNoCase("Range", "rANGE"));
  EXPECT_FALSE(EqualAsciiNoCase("\u00E4", "\u00C4"));
  EXPECT_FALSE(EqualAsciiNoCase("@", "`"));
}

TEST(Split, PiecesStandBetweenEverySeparator) {
  EXPECT_EQ(Split("SMART|NYSE", "|"), (Pieces{"SMART", "NYSE"}));
  EXPECT_EQ(Split("|a||", "|"), (Pieces{"", "a", "", ""}));
  EXPECT_EQ(Split("alone", "|"), Pieces{"alone"});
  EXPECT_EQ(Split("a\r\nb", "\r\n"), (Pieces{"a", "b"}));
}

TEST(Split, AnEmptyTextHasNoPieces) { EXPECT_EQ(Split("", "|"), Pieces{}); }

TEST(Split, AnEmptySeparatorSplitsNothing) { EXPECT_EQ(Split("ab", ""), Pieces{"ab"}); }

TEST(Join, PutsTheSeparatorBetweenOnly) {
  EXPECT_EQ(Join({"SMART", "NYSE"}, "|"), "SMART|NYSE");
  EXPECT_EQ(Join({"one"}, "|"), "one");
  EXPECT_EQ(Join({"", ""}, "|"), "|");
  EXPECT_EQ(Join({}, "|"), "");
}

TEST(Replace, ReplacesEveryPlaceOnceFromTheLeft) {
  EXPECT_EQ(Replace("a-b-c", "-", "--"), "a--b--c");
  EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
  EXPECT_EQ(Replace("abc", "", "x"), "abc");
  EXPECT_EQ(Replace("", "a", "x"), "");
}

TEST(Find, AnswersTheFirstPlaceOrNone) {
  EXPECT_EQ(Find("abcb", "b"), 1u);
  EXPECT_EQ(Find("abc", "x"), std::string_view::npos);
}

}  // namespace
}  // namespace pellora
