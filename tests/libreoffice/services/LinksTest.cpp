#include "platform/libreoffice/services/Links.h"

#include <gtest/gtest.h>

namespace pellora::libreoffice {
namespace {

TEST(IsLink, ForATextWithAScheme) {
  for (const char* link : {"mailto:", "http://x", "HTTPS://x", "x-y+z.1:a", "file:///a"})
    EXPECT_TRUE(IsLink(link)) << link;
}

TEST(IsLink, NotForPathsAndDrives) {
  for (const char* text : {"", ":", "C:\\x", "/a:b", "a b:c", "1a:b", "folder/mailto:x",
                           "\xC3\xA4"
                           "b:c"})
    EXPECT_FALSE(IsLink(text)) << text;
}

TEST(ProperLink, KeepsWhatIsProper) {
  const char* const link = "mailto:a@b.c?subject=x%20y&body=%0A%c3%b6;(1)*'!$,+=#[~]";
  EXPECT_EQ(ProperLink(link), link);
}

TEST(ProperLink, EscapesTheRest) {
  EXPECT_EQ(ProperLink("mailto:?body=a b\n\"<\xC3\xB6>\\^`{|} 5% 5%2 %zz %"),
            "mailto:?body=a%20b%0A%22%3C%C3%B6%3E%5C%5E%60%7B%7C%7D%205%25%205%252%20%25zz%20%25");
}

TEST(FileLink, EscapesEverythingButLettersDigitsAndAFewMarks) {
  EXPECT_EQ(FileLink("/a b/\xC3\xB6#?%20;.txt"), "file:///a%20b/%C3%B6%23%3F%2520%3B.txt");
}

}  // namespace
}  // namespace pellora::libreoffice
