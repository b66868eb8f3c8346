#include "platform/libreoffice/services/PlainLogFiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/libreoffice/services/TemporaryFolder.h"

namespace pellora::libreoffice {
namespace {

class LogsOnDisk : public testing::Test {
 protected:
  TemporaryFolder folder;
  PlainLogFiles files;
};

TEST_F(LogsOnDisk, GrowByExactlyTheBytesGiven) {
  EXPECT_TRUE(files.Append(folder.Path("Error Log.txt"), "one\r\n"));
  EXPECT_TRUE(files.Append(folder.Path("Error Log.txt"), std::string_view("t\0w\xFF\n", 5)));
  EXPECT_EQ(folder.Content("Error Log.txt"), std::string("one\r\nt\0w\xFF\n", 10));
}

TEST_F(LogsOnDisk, WithABareNameAreInTheCurrentDirectory) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  const bool written = files.Append("Error Log.txt", "one");
  std::filesystem::current_path(before);
  EXPECT_TRUE(written);
  EXPECT_EQ(folder.Content("Error Log.txt"), "one");
}

TEST_F(LogsOnDisk, ThatCannotBeWrittenAreRefused) {
  folder.Put("file", "");
  for (const std::string& path : {folder.Path("nowhere/Error Log.txt"), folder.Path("file/Error Log.txt"),
                                  folder.Path(), std::string(), folder.Path(std::string_view("a\0b", 3))})
    EXPECT_FALSE(files.Append(path, "one")) << path;
}

TEST_F(LogsOnDisk, OnAFullDiskAreAFailure) { EXPECT_FALSE(files.Append("/dev/full", "one")); }

TEST_F(LogsOnDisk, ThatArePipesAreRefusedWithoutWaiting) {
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(files.Append(folder.Path("pipe"), "one"));
}

TEST_F(LogsOnDisk, AreDeletedOnce) {
  folder.Put("Error Log.txt", "one");
  EXPECT_TRUE(files.Delete(folder.Path("Error Log.txt")));
  EXPECT_FALSE(files.Delete(folder.Path("Error Log.txt")));
  EXPECT_FALSE(files.Delete(folder.Path()));
}

}  // namespace
}  // namespace pellora::libreoffice
