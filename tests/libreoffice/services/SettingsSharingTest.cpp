// Several programs at one settings file, and programs that die.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

#include "platform/libreoffice/services/SettingsFile.h"
#include "tests/libreoffice/services/TemporaryFolder.h"

namespace pellora::libreoffice {
namespace {

constexpr int kValuesOfEach = 500;

/// A program of its own that does one thing and ends with its answer.
class Program {
 public:
  explicit Program(const std::function<bool()>& does) : m_id(fork()) {
    if (m_id == 0) _exit(does() ? 0 : 1);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() { Kill(); }

  bool Succeeds() {
    int status = -1;
    waitpid(std::exchange(m_id, 0), &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  void Kill() {
    if (m_id <= 0) return;
    kill(m_id, SIGKILL);
    waitpid(std::exchange(m_id, 0), nullptr, 0);
  }

 private:
  pid_t m_id;
};

bool WriteValues(const std::string& path, const std::string& prefix) {
  SettingsFile file(path, std::chrono::seconds(60));
  for (int i = 0; i < kValuesOfEach; ++i)
    if (file.SetValue(kCurrentUser, "K", prefix + std::to_string(i), i) != 0) return false;
  return true;
}

TEST(SettingsSharing, OfTwoProgramsThatWriteAThousandValuesNoneIsLost) {
  const TemporaryFolder folder;
  const std::string path = folder.Path("settings");
  Program first([&] { return WriteValues(path, "a"); });
  Program second([&] { return WriteValues(path, "b"); });
  EXPECT_TRUE(first.Succeeds());
  EXPECT_TRUE(second.Succeeds());
  SettingsFile file(path);
  std::vector<std::string> names;
  ASSERT_EQ(file.EnumerateValues(kCurrentUser, "K", names), 0);
  EXPECT_EQ(names.size(), 2u * kValuesOfEach);
  for (const char* prefix : {"a", "b"})
    EXPECT_EQ(file.QueryValue(kCurrentUser, "K", prefix + std::to_string(kValuesOfEach - 1)),
              RegistryValue(kValuesOfEach - 1));
}

TEST(SettingsSharing, AProgramKilledWhileItWritesLeavesTheFileWhole) {
  const TemporaryFolder folder;
  const std::string path = folder.Path("settings");
  const std::string large(1 << 20, 'x');
  SettingsFile file(path);
  ASSERT_EQ(file.SetValue(kCurrentUser, "K", "Large", large), 0);
  for (int round = 0; round < 20; ++round) {
    Program writer([&] {
      for (std::int32_t i = 0;; ++i) SettingsFile(path).SetValue(kCurrentUser, "K", "Count", i);
      return true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(5 + 7 * round % 30));
    writer.Kill();
    ASSERT_EQ(file.QueryValue(kCurrentUser, "K", "Large"), RegistryValue(large)) << round;
    ASSERT_EQ(file.SetValue(kCurrentUser, "K", "Round", round), 0) << round;
  }
}

TEST(SettingsSharing, AValueOfAnotherProgramIsSeenAtOnce) {
  const TemporaryFolder folder;
  SettingsFile one(folder.Path("settings")), other(folder.Path("settings"));
  one.SetValue(kCurrentUser, "K", "N", 1);
  EXPECT_EQ(other.QueryValue(kCurrentUser, "K", "N"), RegistryValue(1));
  other.SetValue(kCurrentUser, "K", "N", 2);
  EXPECT_EQ(one.QueryValue(kCurrentUser, "K", "N"), RegistryValue(2));
}

}  // namespace
}  // namespace pellora::libreoffice
