#include "platform/libreoffice/services/SystemLog.h"

#include <gtest/gtest.h>
#include <syslog.h>

#include <vector>

namespace pellora::libreoffice {
namespace {

struct Entries {
  std::vector<std::pair<int, std::string>> all;
  SystemLog log{[this](int priority, const std::string& text) { all.emplace_back(priority, text); }};
};

TEST(SystemLog, WritesAnErrorWithItsSource) {
  Entries entries;
  EXPECT_TRUE(entries.log.WriteError("Pellora", "B\xC3\xB6rse %s %n"));
  ASSERT_EQ(entries.all.size(), 1u);
  EXPECT_EQ(entries.all[0], (std::pair<int, std::string>(LOG_USER | LOG_ERR, "Pellora: B\xC3\xB6rse %s %n")));
}

TEST(SystemLog, WritesALongerTextAsLinesOfOneEntry) {
  Entries entries;
  entries.log.WriteError("Pellora", std::string_view("one\r\n\ttwo\0three", 15));
  ASSERT_EQ(entries.all.size(), 1u);
  EXPECT_EQ(entries.all[0].second, "Pellora: one\n\ttwo?three");
}

TEST(SystemLog, IsThereAndTakesWhatLooksLikeAFormat) {
  SystemLog log;
  EXPECT_TRUE(log.Available());
  EXPECT_TRUE(log.WriteError("Pellora", "A test of the log: %s%s%s%n"));
}

}  // namespace
}  // namespace pellora::libreoffice
