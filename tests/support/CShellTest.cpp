#include "support/CShell.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "platform/headless/Headless.h"
#include "support/mGlobal.h"
#include "tests/support/Failure.h"

namespace pellora {
namespace {

using Calls = std::vector<std::string>;

class CShellOperations : public ::testing::Test {
 protected:
  /// What an operation fails with when the shell answers a result.
  std::string FailureFor(std::int32_t result, const std::function<void()>& operation) {
    platform.shell.result = result;
    return Failure(operation);
  }
  Calls& calls() { return platform.shell.calls; }

  headless::HeadlessPlatform platform;
  CShell shell;
};

struct Row {
  std::int32_t result;
  const char* failure;
};

constexpr Row kTable[] = {
    {2, "0x80044679|Pellora.CShell|File not found"},
    {3, "0x8004467A|Pellora.CShell|Path not found"},
    {5, "0x80044679|Pellora.CShell|File not found"},
    {8, "0x8004467C|Pellora.CShell|Out of memory"},
    {11, "0x80044684|Pellora.CShell|Invalid EXE file or error in EXE image"},
    {26, "0x8004467E|Pellora.CShell|A sharing violation occurred"},
    {27, "0x8004467F|Pellora.CShell|Incomplete or invalid file association"},
    {28, "0x80044680|Pellora.CShell|DDE timeout"},
    {29, "0x80044681|Pellora.CShell|DDE transaction failed"},
    {30, "0x80044682|Pellora.CShell|DDE busy"},
    {31, "0x80044683|Pellora.CShell|No association for file extension"},
    {32, "0x8004467D|Pellora.CShell|DLL not found"},
};

std::string TableFailure(std::int32_t result) {
  for (const auto& row : kTable)
    if (row.result == result) return row.failure;
  return "none";
}

constexpr char kNotFound[] = "0x80044679|Pellora.CShell|File not found";

TEST_F(CShellOperations, FilesFoldersAndProgramsFailByTheWholeTable) {
  const std::function<void()> operations[] = {
      [this] { shell.ExploreFolder("C:\\x"); }, [this] { shell.OpenFolder("C:\\x"); },
      [this] { shell.OpenDocument("C:\\x.txt"); }, [this] { shell.LaunchProgram("C:\\x.exe", "", false, ""); }};
  for (const auto& operation : operations)
    for (std::int32_t result = -1; result <= 50; ++result)
      EXPECT_EQ(FailureFor(result, operation), TableFailure(result)) << result;
}

TEST_F(CShellOperations, LinksAndMailsFailByFiveRowsOfTheTable) {
  const std::set<std::int32_t> ofLinks{8, 26, 28, 29, 30};
  const std::function<void()> operations[] = {[this] { shell.OpenUrl("mailto:a"); },
                                              [this] { shell.CreateNewMailMessage("a", "", "", ""); }};
  for (const auto& operation : operations)
    for (std::int32_t result = -1; result <= 50; ++result)
      EXPECT_EQ(FailureFor(result, operation), ofLinks.contains(result) ? TableFailure(result) : "none") << result;
}

TEST_F(CShellOperations, OpeningAMailLinkWithoutAMailProgramRaisesNothing) {
  EXPECT_EQ(FailureFor(31, [this] { shell.OpenUrl("mailto:a"); }), "none");
}

TEST_F(CShellOperations, ExploringAMissingFolderFailsAsTheShellSays) {
  EXPECT_EQ(FailureFor(2, [this] { shell.ExploreFolder("C:\\x"); }), kNotFound);
  EXPECT_EQ(FailureFor(3, [this] { shell.ExploreFolder("C:\\x"); }), "0x8004467A|Pellora.CShell|Path not found");
}

TEST_F(CShellOperations, ExploreFolderExplores) {
  shell.ExploreFolder("C:\\x y");
  EXPECT_EQ(calls(), Calls{"explore|C:\\x y||"});
}

TEST_F(CShellOperations, OpenFolderOpens) {
  shell.OpenFolder("C:\\x y");
  EXPECT_EQ(calls(), Calls{"open|C:\\x y||"});
}

TEST_F(CShellOperations, OpenUrlOpensTheUrlAsItIs) {
  shell.OpenUrl("https://example.com/?a=1&b=%20");
  EXPECT_EQ(calls(), Calls{"open|https://example.com/?a=1&b=%20||"});
}

TEST_F(CShellOperations, MailHasEachPartThatIsGiven) {
  shell.CreateNewMailMessage("a@x", "c@x", "the subject", "the body");
  EXPECT_EQ(calls(), Calls{"open|mailto:a@x?subject=the subject&cc=c@x&body=the body||"});
}

TEST_F(CShellOperations, MailToARecipientAloneHasNoSeparators) {
  shell.CreateNewMailMessage("a@x", "", "", "");
  EXPECT_EQ(calls(), Calls{"open|mailto:a@x||"});
}

TEST_F(CShellOperations, MailWithACopyAndNoSubjectHasTheCopyDirectlyAfterTheRecipientOnPurpose) {
  shell.CreateNewMailMessage("a@x", "c@x", "", "");
  EXPECT_EQ(calls(), Calls{"open|mailto:a@x&cc=c@x||"});
}

TEST_F(CShellOperations, MailWithABodyAloneHasItDirectlyAfterTheRecipient) {
  shell.CreateNewMailMessage("a@x", "", "", "b");
  EXPECT_EQ(calls(), Calls{"open|mailto:a@x&body=b||"});
}

TEST_F(CShellOperations, MissingProgramIsRefusedBeforeAnythingIsStarted) {
  platform.shell.filesExist = false;
  for (const bool wait : {false, true})
    EXPECT_EQ(Failure([&] { shell.LaunchProgram("C:\\x.exe", "", wait, ""); }), kNotFound);
  EXPECT_TRUE(calls().empty());
}

TEST_F(CShellOperations, ProgramIsOpenedWithItsParametersAndDirectory) {
  shell.LaunchProgram("C:\\x.exe", "/a b", false, "C:\\d");
  EXPECT_EQ(calls(), Calls{"open|C:\\x.exe|/a b|C:\\d"});
}

TEST_F(CShellOperations, ProgramToWaitForIsRun) {
  shell.LaunchProgram("C:\\x.exe", "/a b", true, "C:\\d");
  EXPECT_EQ(calls(), Calls{"run|C:\\x.exe|/a b|C:\\d"});
}

TEST_F(CShellOperations, ProgramToWaitForThatCannotBeCreatedIsAnError) {
  platform.shell.canRun = false;
  EXPECT_EQ(Failure([&] { shell.LaunchProgram("C:\\x.exe", "", true, ""); }),
            "0x80044685|Pellora.CShell|Cannot create process");
}

TEST_F(CShellOperations, MissingDocumentIsRefused) {
  platform.shell.filesExist = false;
  EXPECT_EQ(Failure([&] { shell.OpenDocument("C:\\x.txt"); }), kNotFound);
  EXPECT_TRUE(calls().empty());
}

TEST_F(CShellOperations, DocumentIsOpenedByTheOpenVerb) {
  platform.shell.verbs = {"print", "edit"};
  shell.OpenDocument("C:\\x.txt");
  EXPECT_EQ(calls(), Calls{"open|C:\\x.txt||"});
}

TEST_F(CShellOperations, DocumentWhoseOpenVerbHasAnAccessKeyIsOpenedByThat) {
  platform.shell.verbs = {"print", "&Open"};
  shell.OpenDocument("C:\\x.txt");
  EXPECT_EQ(calls(), Calls{"&Open|C:\\x.txt||"});
}

TEST_F(CShellOperations, PropertiesAreShown) {
  shell.ShowProperties("C:\\x.txt", 7);
  EXPECT_EQ(calls(), Calls{"properties|C:\\x.txt||"});
}

TEST_F(CShellOperations, PropertiesOfAMissingFileAreRefused) {
  platform.shell.filesExist = false;
  EXPECT_EQ(Failure([&] { shell.ShowProperties("C:\\x.txt", 0); }), kNotFound);
  EXPECT_TRUE(calls().empty());
}

TEST_F(CShellOperations, PropertiesBelowThirtyThreeCannotBeShown) {
  const auto show = [this] { shell.ShowProperties("C:\\x.txt", 0); };
  for (const std::int32_t result : {0, 2, 31, 32})
    EXPECT_EQ(FailureFor(result, show), "0x80044686|Pellora.CShell|Cannot show properties");
  EXPECT_EQ(FailureFor(33, show), "none");
}

TEST_F(CShellOperations, WithoutAPlatformEveryOperationIsTheComponentFailure) {
  mGlobal::InstallPlatform(nullptr);
  const std::function<void()> operations[] = {
      [this] { shell.ExploreFolder("x"); },    [this] { shell.OpenFolder("x"); },
      [this] { shell.OpenDocument("x"); },     [this] { shell.LaunchProgram("x", "", false, ""); },
      [this] { shell.OpenUrl("x"); },          [this] { shell.CreateNewMailMessage("x", "", "", ""); },
      [this] { shell.ShowProperties("x", 0); }};
  for (const auto& operation : operations)
    EXPECT_EQ(Failure(operation), "0x80044687|Pellora.CShell|CShell component failure");
}

}  // namespace
}  // namespace pellora
