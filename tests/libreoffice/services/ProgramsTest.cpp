#include "platform/libreoffice/services/Programs.h"

#include <gtest/gtest.h>

namespace pellora::libreoffice {
namespace {

using Words = std::vector<std::string>;

struct CommandRow {
  const char* parameters;
  Words words;
};

TEST(CommandWords, AreApartByBlanksOutsideQuotes) {
  const CommandRow rows[] = {
      {"", {}},
      {"  \t ", {}},
      {"a", {"a"}},
      {" a  b ", {"a", "b"}},
      {"\"a b\" c", {"a b", "c"}},
      {"\"\"", {""}},
      {"a\"b c\"d", {"ab cd"}},
      {"\"open", {"open"}},
      {"\\\"a\\\"", {"\"a\""}},
      {"\"a\\\\\" b", {"a\\", "b"}},
      {"\"a\\\\\\\" b\"", {"a\\\" b"}},
      {"C:\\x\\y \\\\server", {"C:\\x\\y", "\\\\server"}},
      {"a\\", {"a\\"}},
      {"it's $HOME `x` *.txt ; > f | g", {"it's", "$HOME", "`x`", "*.txt", ";", ">", "f", "|", "g"}},
  };
  for (const auto& row : rows) EXPECT_EQ(CommandWords(row.parameters), row.words) << row.parameters;
}

TEST(StartProgram, TellsWhyItCannot) {
  pid_t started = 77;
  EXPECT_EQ(StartProgram("/nowhere/nothing", {}, "", started), ENOENT);
  EXPECT_EQ(StartProgram("", {}, "", started), ENOENT);
  EXPECT_EQ(StartProgram("/bin/true", {}, "/nowhere", started), ENOENT);
  EXPECT_EQ(StartProgram("/etc/passwd", {}, "", started), EACCES);
  EXPECT_EQ(StartProgram("/bin/true", {std::string("a\0b", 3)}, "", started), EINVAL);
}

}  // namespace
}  // namespace pellora::libreoffice
