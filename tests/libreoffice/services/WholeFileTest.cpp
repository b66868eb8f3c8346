#include "platform/libreoffice/services/WholeFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/libreoffice/services/TemporaryFolder.h"

namespace pellora::libreoffice {
namespace {

constexpr uid_t kNobody = 65534;

/// A folder of another one, in which root is at work: only root can make one.
class InAFolderOfAnother : public testing::Test {
 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "only root works in folders of others";
    ASSERT_EQ(chown(folder.Path().c_str(), kNobody, kNobody), 0);
  }
  static uid_t OwnerOf(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 ? status.st_uid : 0;
  }
  std::string At(const std::string& name) const { return folder.Path(name); }

  TemporaryFolder folder;
};

TEST_F(InAFolderOfAnother, NewFoldersAreTheOthers) {
  ASSERT_EQ(MakeFolderOf(At("a/b/settings")), 0);
  EXPECT_EQ(OwnerOf(At("a")), kNobody);
  EXPECT_EQ(OwnerOf(At("a/b")), kNobody);
}

TEST_F(InAFolderOfAnother, ANewLockIsTheOthers) {
  FileLock lock;
  ASSERT_EQ(lock.Take(At("lock"), std::chrono::milliseconds(10)), 0);
  EXPECT_EQ(OwnerOf(At("lock")), kNobody);
}

TEST_F(InAFolderOfAnother, ANewFileIsTheOthers) {
  ASSERT_EQ(ReplaceWholeFile(At("settings"), "x"), 0);
  EXPECT_EQ(OwnerOf(At("settings")), kNobody);
}

TEST_F(InAFolderOfAnother, ALockThatWasThereKeepsItsOwner) {
  { FileLock().Take(At("lock"), std::chrono::milliseconds(10)); }
  ASSERT_EQ(chown(At("lock").c_str(), 0, 0), 0);
  FileLock lock;
  ASSERT_EQ(lock.Take(At("lock"), std::chrono::milliseconds(10)), 0);
  EXPECT_EQ(OwnerOf(At("lock")), 0u);
}

}  // namespace
}  // namespace pellora::libreoffice
