#include "platform/libreoffice/services/SettingsFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>

#include "platform/libreoffice/services/WholeFile.h"
#include "tests/libreoffice/services/TemporaryFolder.h"

namespace pellora::libreoffice {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr char kOneValue[] = "[CurrentUser\\K]\n\"N\" = 1\n";

class SettingsFileOnDisk : public testing::Test {
 protected:
  std::int32_t Set(std::int32_t value) { return file.SetValue(kCurrentUser, "K", "N", value); }
  std::optional<RegistryValue> Get() { return file.QueryValue(kCurrentUser, "K", "N"); }
  mode_t Mode(std::string_view name) const {
    struct stat status {};
    stat(folder.Path(name).c_str(), &status);
    return status.st_mode & 07777;
  }
  ino_t Identity() const {
    struct stat status {};
    stat(folder.Path("settings").c_str(), &status);
    return status.st_ino;
  }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder.Path())) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  TemporaryFolder folder;
  SettingsFile file{folder.Path("settings")};
};

TEST_F(SettingsFileOnDisk, IsMadeForItsOwnerAloneWithItsFolder) {
  SettingsFile deep(folder.Path("a/b/settings"));
  EXPECT_EQ(deep.SetValue(kCurrentUser, "K", "N", 1), 0);
  EXPECT_EQ(Mode("a/b/settings"), 0600u);
  EXPECT_EQ(Mode("a/b"), 0700u);
}

TEST_F(SettingsFileOnDisk, LeavesNothingBesideItButItsLock) {
  Set(1);
  Set(2);
  EXPECT_EQ(Files(), (std::vector<std::string>{"settings", "settings.lock"}));
}

TEST_F(SettingsFileOnDisk, IsNotMadeByQuestions) {
  std::vector<std::string> names{"junk"};
  EXPECT_EQ(Get(), std::nullopt);
  EXPECT_EQ(file.EnumerateValues(kCurrentUser, "K", names), ENOENT);
  EXPECT_EQ(file.DeleteKey(kCurrentUser, "K"), ENOENT);
  EXPECT_EQ(names, std::vector<std::string>{"junk"});
  EXPECT_EQ(Files(), std::vector<std::string>{});
}

TEST_F(SettingsFileOnDisk, KeepsItsPermissions) {
  folder.Put("settings", kOneValue);
  fs::permissions(folder.Path("settings"), fs::perms(0640));
  Set(2);
  EXPECT_EQ(Mode("settings"), 0640u);
  EXPECT_EQ(Get(), RegistryValue(2));
}

TEST_F(SettingsFileOnDisk, IsNotWrittenForAValueThatIsTheSame) {
  folder.Put("settings", kOneValue);
  const auto before = Identity();
  EXPECT_EQ(Set(1), 0);
  EXPECT_EQ(Identity(), before);
  EXPECT_EQ(Files(), std::vector<std::string>{"settings"});
}

TEST_F(SettingsFileOnDisk, IsReplacedNotOverwritten) {
  folder.Put("settings", kOneValue);
  fs::create_hard_link(folder.Path("settings"), folder.Path("as before"));
  Set(2);
  EXPECT_EQ(folder.Content("as before"), kOneValue);
}

TEST_F(SettingsFileOnDisk, BehindALinkIsReplacedWhereTheLinkLeads) {
  fs::create_directory(folder.Path("elsewhere"));
  folder.Put("elsewhere/mine", kOneValue);
  fs::create_symlink("elsewhere/mine", folder.Path("link"));
  fs::create_symlink(folder.Path("link"), folder.Path("settings"));
  EXPECT_EQ(Set(2), 0);
  EXPECT_TRUE(fs::is_symlink(folder.Path("settings")));
  EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
  EXPECT_EQ(folder.Content("elsewhere/mine"), "[CurrentUser\\K]\n\"N\" = 2\n");
}

TEST_F(SettingsFileOnDisk, BehindALinkToNothingIsMadeThere) {
  fs::create_symlink("later", folder.Path("settings"));
  EXPECT_EQ(Set(2), 0);
  EXPECT_TRUE(fs::is_symlink(folder.Path("settings")));
  EXPECT_FALSE(folder.Content("later").empty());
}

TEST_F(SettingsFileOnDisk, InALinkThatLeadsToItselfIsRefused) {
  fs::create_symlink("settings", folder.Path("settings"));
  EXPECT_EQ(Set(2), ELOOP);
}

TEST_F(SettingsFileOnDisk, BelowAFileIsRefusedAndTheFileStays) {
  folder.Put("config", "mine");
  SettingsFile below(folder.Path("config/settings")), deeper(folder.Path("config/pellora/settings"));
  EXPECT_EQ(below.SetValue(kCurrentUser, "K", "N", 1), ENOTDIR);
  EXPECT_EQ(deeper.SetValue(kCurrentUser, "K", "N", 1), ENOTDIR);
  EXPECT_EQ(below.QueryValue(kCurrentUser, "K", "N"), std::nullopt);
  EXPECT_EQ(folder.Content("config"), "mine");
}

TEST_F(SettingsFileOnDisk, ThatIsAFolderIsRefused) {
  fs::create_directory(folder.Path("settings"));
  EXPECT_EQ(Set(1), EISDIR);
}

TEST_F(SettingsFileOnDisk, ThatIsAPipeIsRefusedWithoutWaiting) {
  ASSERT_EQ(mkfifo(folder.Path("settings").c_str(), 0600), 0);
  EXPECT_EQ(Set(1), EINVAL);
  EXPECT_EQ(Get(), std::nullopt);
}

TEST_F(SettingsFileOnDisk, OfMoreThanTwoMegabytesIsRefusedWithoutReadingIt) {
  folder.Put("settings", std::string((2 << 20) + 1, '#'));
  EXPECT_EQ(Set(1), EFBIG);
  EXPECT_EQ(Get(), std::nullopt);
}

TEST_F(SettingsFileOnDisk, IsNotMadeTooLargeToBeRead) {
  Set(1);
  EXPECT_EQ(file.SetValue(kCurrentUser, "K", "Large", std::string(2 << 20, 'x')), EFBIG);
  EXPECT_EQ(Get(), RegistryValue(1));
}

TEST_F(SettingsFileOnDisk, ChangedByAnotherProgramCountsAtOnce) {
  Set(1);
  Get();
  folder.Put("settings", "[CurrentUser\\K]\n\"N\" = 2\n");
  EXPECT_EQ(Get(), RegistryValue(2));
}

TEST_F(SettingsFileOnDisk, ThatCannotBeReplacedIsLeftAsItWas) {
  folder.Put("settings", kOneValue);
  // The place of the new content is taken by something that nobody, not even root, can take away as a file.
  fs::create_directories(folder.Path("settings.new/full"));
  EXPECT_EQ(Set(2), EEXIST);
  EXPECT_EQ(folder.Content("settings"), kOneValue);
}

// A disk that takes only so much more.
class FullDisk {
 public:
  FullDisk() : m_signal(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_limit);
    const rlimit little{16, m_limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &little);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_limit);
    std::signal(SIGXFSZ, m_signal);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*m_signal)(int);
  rlimit m_limit{};
};

TEST_F(SettingsFileOnDisk, OnAFullDiskIsLeftAsItWasWithNothingBesideIt) {
  folder.Put("settings", kOneValue);
  std::int32_t status = 0;
  {
    const FullDisk full;
    status = Set(2);
  }
  EXPECT_EQ(status, EFBIG);
  EXPECT_EQ(folder.Content("settings"), kOneValue);
  EXPECT_EQ(Files(), (std::vector<std::string>{"settings", "settings.lock"}));
}

// A user without special rights, for whom permissions count, in a folder that is his own.
class SettingsFileOfAUser : public SettingsFileOnDisk {
 protected:
  SettingsFileOfAUser() {
    folder.Put("settings", kOneValue);
    if (!m_isRoot) return;
    for (const auto& path : {folder.Path(), folder.Path("settings")})
      EXPECT_EQ(chown(path.c_str(), kNobody, kNobody), 0);
    EXPECT_EQ(seteuid(kNobody), 0);
  }
  ~SettingsFileOfAUser() override {
    fs::permissions(folder.Path(), fs::perms::owner_all);
    EXPECT_EQ(seteuid(m_isRoot ? 0 : geteuid()), 0);
  }
  static constexpr uid_t kNobody = 65534;
  const bool m_isRoot = geteuid() == 0;
};

TEST_F(SettingsFileOfAUser, ThatMayNotBeWrittenIsNotReplacedEither) {
  fs::permissions(folder.Path("settings"), fs::perms(0400));
  EXPECT_EQ(Set(2), EACCES);
  EXPECT_EQ(Get(), RegistryValue(1));
}

TEST_F(SettingsFileOfAUser, ThatMayNotBeReadIsNotReplacedEither) {
  fs::permissions(folder.Path("settings"), fs::perms(0200));
  EXPECT_EQ(Set(2), EACCES);
  fs::permissions(folder.Path("settings"), fs::perms(0600));
  EXPECT_EQ(Get(), RegistryValue(1));
}

TEST_F(SettingsFileOfAUser, InAFolderThatMayNotBeWrittenIsReadOnly) {
  fs::permissions(folder.Path(), fs::perms(0500));
  EXPECT_EQ(Set(2), EACCES);
  EXPECT_EQ(Set(1), 0);
  EXPECT_EQ(Get(), RegistryValue(1));
}

TEST_F(SettingsFileOfAUser, StaysHisWhenRootWrites) {
  if (!m_isRoot) GTEST_SKIP() << "needs root";
  ASSERT_EQ(seteuid(0), 0);
  EXPECT_EQ(Set(2), 0);
  struct stat status {};
  ASSERT_EQ(stat(folder.Path("settings").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, kNobody);
}

TEST_F(SettingsFileOnDisk, WithoutAPathIsRefused) {
  SettingsFile none("");
  EXPECT_EQ(none.SetValue(kCurrentUser, "K", "N", 1), ENOENT);
  EXPECT_EQ(none.QueryValue(kCurrentUser, "K", "N"), std::nullopt);
}

TEST_F(SettingsFileOnDisk, TakesOverWhatADeadProgramLeft) {
  folder.Put("settings", kOneValue);
  folder.Put("settings.new", "half a fi");
  folder.Put("settings.lock", "");
  EXPECT_EQ(Set(2), 0);
  EXPECT_EQ(folder.Content("settings"), "[CurrentUser\\K]\n\"N\" = 2\n");
}

TEST_F(SettingsFileOnDisk, ThatAnotherKeepsLockedIsGivenUpInTime) {
  FileLock other;
  ASSERT_EQ(other.Take(folder.Path("settings.lock"), 0ms), 0);
  SettingsFile hurried(folder.Path("settings"), 30ms);
  EXPECT_EQ(hurried.SetValue(kCurrentUser, "K", "N", 1), ETIMEDOUT);
  EXPECT_EQ(hurried.QueryValue(kCurrentUser, "K", "N"), std::nullopt);
}

// The variables of the environment that the default depends on, put back in the end.
class DefaultPath : public testing::Test {
 protected:
  DefaultPath() : m_home(Get("HOME")), m_config(Get("XDG_CONFIG_HOME")) {}
  ~DefaultPath() override {
    Set("HOME", m_home);
    Set("XDG_CONFIG_HOME", m_config);
  }
  static std::optional<std::string> Get(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
  }
  static void Set(const char* name, const std::optional<std::string>& value) {
    if (value)
      setenv(name, value->c_str(), 1);
    else
      unsetenv(name);
  }

 private:
  std::optional<std::string> m_home, m_config;
};

TEST_F(DefaultPath, IsInTheConfigurationFolder) {
  Set("XDG_CONFIG_HOME", "/c");
  EXPECT_EQ(SettingsFile::DefaultPath(), "/c/pellora/settings");
}

TEST_F(DefaultPath, IsInTheHomeFolderWithoutOneOrWithARelativeOne) {
  Set("HOME", "/h");
  for (const auto& value :
       {std::optional<std::string>(), std::optional<std::string>(""), std::optional<std::string>("relative")}) {
    Set("XDG_CONFIG_HOME", value);
    EXPECT_EQ(SettingsFile::DefaultPath(), "/h/.config/pellora/settings");
  }
}

TEST_F(DefaultPath, IsInTheHomeFolderOfTheUsersRecordWithoutTheVariable) {
  Set("HOME", std::nullopt);
  Set("XDG_CONFIG_HOME", std::nullopt);
  EXPECT_TRUE(SettingsFile::DefaultPath().ends_with("/.config/pellora/settings"));
  EXPECT_TRUE(SettingsFile::DefaultPath().starts_with("/"));
}

}  // namespace
}  // namespace pellora::libreoffice
