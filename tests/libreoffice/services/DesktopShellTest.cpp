#include "platform/libreoffice/services/DesktopShell.h"

#include <gtest/gtest.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>

#include "platform/headless/Headless.h"
#include "platform/libreoffice/services/Links.h"
#include "support/CShell.h"
#include "support/mGlobal.h"
#include "tests/libreoffice/services/TemporaryFolder.h"
#include "tests/support/Failure.h"

namespace pellora::libreoffice {
namespace {

using namespace std::chrono_literals;
using Links = std::vector<std::string>;

constexpr std::int32_t kSuccess = 33;
constexpr char kWriteWords[] =
    "#!/bin/sh\nfor word in \"$@\"; do echo \"<$word>\"; done > \"$(dirname \"$0\")/words\"\n";

class DesktopShellAtWork : public testing::Test {
 protected:
  std::int32_t Open(std::string_view file, std::string_view parameters = {}, std::string_view directory = {}) {
    return shell.Execute("open", file, parameters, directory);
  }
  /// What a program writes that is not waited for.
  std::string ContentInTime(std::string_view name) const {
    for (int i = 0; i < 1000 && folder.Content(name).empty(); ++i) std::this_thread::sleep_for(5ms);
    return folder.Content(name);
  }

  TemporaryFolder folder;
  Links opened;
  bool opens = true;
  DesktopShell shell{[this](const std::string& link) {
    opened.push_back(link);
    return opens;
  }};
};

TEST_F(DesktopShellAtWork, OpensLinksAsTheyAre) {
  EXPECT_EQ(Open("mailto:a@b.c?subject=x%20y"), kSuccess);
  EXPECT_EQ(shell.Execute("", "https://b.c/?q=1", "", ""), kSuccess);
  EXPECT_EQ(opened, (Links{"mailto:a@b.c?subject=x%20y", "https://b.c/?q=1"}));
}

TEST_F(DesktopShellAtWork, OpensDocumentsAndFoldersAsLinks) {
  const std::string document = folder.Put("my book.ods", "x");
  EXPECT_EQ(Open(document), kSuccess);
  EXPECT_EQ(Open(folder.Path()), kSuccess);
  EXPECT_EQ(opened, (Links{"file://" + folder.Path("my%20book.ods"), "file://" + folder.Path()}));
}

TEST_F(DesktopShellAtWork, AFileWhoseNameLooksLikeALinkIsTheFile) {
  const auto before = std::filesystem::current_path();
  folder.Put("mailto:me", "x");
  std::filesystem::current_path(folder.Path());
  Open("mailto:me");
  std::filesystem::current_path(before);
  EXPECT_EQ(opened, Links{"file://" + folder.Path("mailto%3Ame")});
}

TEST_F(DesktopShellAtWork, NothingSetUpIsTold) {
  opens = false;
  EXPECT_EQ(Open("mailto:a@b.c"), 31);
  EXPECT_EQ(Open(folder.Path()), 31);
}

TEST(DesktopShell, AnOpenerThatThrowsOrIsNoneCountsAsNothingSetUp) {
  DesktopShell throwing([](const std::string&) -> bool { throw std::runtime_error("no desktop"); });
  EXPECT_EQ(throwing.Execute("open", "mailto:", "", ""), 31);
  EXPECT_EQ(DesktopShell(nullptr).Execute("open", "mailto:", "", ""), 31);
}

TEST_F(DesktopShellAtWork, WhatIsNotThereIsToldAndNotOpened) {
  folder.Put("file", "x");
  EXPECT_EQ(Open(folder.Path("missing.ods")), 2);
  EXPECT_EQ(Open(""), 2);
  EXPECT_EQ(Open(std::string(5000, 'x')), 2);
  EXPECT_EQ(Open(folder.Path("nowhere/missing.ods")), 3);
  EXPECT_EQ(Open(folder.Path("file/missing.ods")), 3);
  EXPECT_EQ(opened, Links{});
}

TEST_F(DesktopShellAtWork, ExploresFoldersOnly) {
  EXPECT_EQ(shell.Execute("explore", folder.Path(), "", ""), kSuccess);
  EXPECT_EQ(shell.Execute("explore", folder.Path("missing"), "", ""), 2);
  EXPECT_EQ(shell.Execute("explore", folder.Put("file", "x"), "", ""), 3);
  EXPECT_EQ(opened, Links{"file://" + folder.Path()});
}

TEST_F(DesktopShellAtWork, OtherVerbsAreSetUpForNothing) {
  const std::string document = folder.Put("book.ods", "x");
  for (const char* verb : {"print", "edit", "properties", "runas"})
    EXPECT_EQ(shell.Execute(verb, document, "", ""), 31) << verb;
  EXPECT_EQ(opened, Links{});
}

TEST_F(DesktopShellAtWork, StartsAProgramWithItsWordsWithoutWaiting) {
  const std::string program = folder.PutProgram("program", kWriteWords);
  EXPECT_EQ(Open(program, "a \"b c\" $HOME ;*"), kSuccess);
  EXPECT_EQ(ContentInTime("words"), "<a>\n<b c>\n<$HOME>\n<;*>\n");
  EXPECT_EQ(opened, Links{});
}

TEST_F(DesktopShellAtWork, LeavesNoDeadProgramsBehind) {
  for (int i = 0; i < 5; ++i) Open("/bin/true");
  siginfo_t child;
  const auto anyIsLeft = [&] { return waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0; };
  for (int i = 0; i < 1000 && anyIsLeft(); ++i) {
    std::this_thread::sleep_for(5ms);
    Open("mailto:");
  }
  EXPECT_FALSE(anyIsLeft());
}

TEST_F(DesktopShellAtWork, ADocumentThatIsMarkedAsAProgramIsOpenedAsADocument) {
  const std::string document = folder.PutProgram("report.pdf", "%PDF-1.4");
  EXPECT_EQ(Open(document), kSuccess);
  EXPECT_EQ(opened, Links{"file://" + document});
}

TEST_F(DesktopShellAtWork, RunsAProgramToItsEnd) {
  const std::string program = folder.PutProgram("program", "#!/bin/sh\nsleep 0.2\npwd > \"$1\"\n");
  EXPECT_TRUE(shell.RunAndWait(program, folder.Path("out"), "/"));
  EXPECT_EQ(folder.Content("out"), "/\n");
}

TEST_F(DesktopShellAtWork, RunsAProgramNamedFromTheCurrentDirectoryInAnother) {
  const auto before = std::filesystem::current_path();
  folder.PutProgram("program", "#!/bin/sh\npwd > \"$1\"\n");
  std::filesystem::current_path(folder.Path());
  const bool ran = shell.RunAndWait("./program", folder.Path("out"), "/");
  std::filesystem::current_path(before);
  EXPECT_TRUE(ran);
  EXPECT_EQ(folder.Content("out"), "/\n");
}

TEST_F(DesktopShellAtWork, WaitsThroughSignals) {
  struct sigaction ignored {
  }, before{};
  ignored.sa_handler = [](int) {};
  sigaction(SIGALRM, &ignored, &before);
  const itimerval often{{0, 10000}, {0, 10000}}, never{};
  setitimer(ITIMER_REAL, &often, nullptr);
  const std::string program = folder.PutProgram("program", "#!/bin/sh\nsleep 0.2\necho done > \"$1\"\n");
  const bool ran = shell.RunAndWait(program, folder.Path("out"), "");
  setitimer(ITIMER_REAL, &never, nullptr);
  sigaction(SIGALRM, &before, nullptr);
  EXPECT_TRUE(ran);
  EXPECT_EQ(folder.Content("out"), "done\n");
}

TEST_F(DesktopShellAtWork, ProgramsDoNotInheritIgnoredSignals) {
  const auto before = std::signal(SIGPIPE, SIG_IGN);
  const std::string program =
      folder.PutProgram("program", "#!/bin/sh\n( sleep 0.05; echo x; echo alive > \"$1\" ) | true\n");
  shell.RunAndWait(program, folder.Path("out"), "");
  std::signal(SIGPIPE, before);
  EXPECT_EQ(folder.Content("out"), "");
}

TEST_F(DesktopShellAtWork, DoesNotRunWhatIsNoProgram) {
  EXPECT_FALSE(shell.RunAndWait(folder.Path("missing"), "", ""));
  EXPECT_FALSE(shell.RunAndWait(folder.Put("text", "echo"), "", ""));
  EXPECT_FALSE(shell.RunAndWait(folder.PutProgram("report.pdf", "%PDF-1.4"), "", ""));
  EXPECT_FALSE(shell.RunAndWait("/bin/true", "", folder.Path("missing")));
}

TEST_F(DesktopShellAtWork, KnowsWhatExists) {
  EXPECT_TRUE(shell.FileExists(folder.Path()));
  EXPECT_TRUE(shell.FileExists(folder.Put("there", "")));
  EXPECT_FALSE(shell.FileExists(folder.Path("missing")));
  EXPECT_FALSE(shell.FileExists(folder.Path("there") + std::string("\0x", 2)));
  EXPECT_FALSE(shell.FileExists(""));
}

TEST_F(DesktopShellAtWork, DocumentsAreOpenedAndShowNoProperties) {
  EXPECT_EQ(shell.DocumentVerbs("book.ods"), std::vector<std::string>{"open"});
  EXPECT_EQ(shell.ShowProperties(folder.Path(), 0), 31);
  EXPECT_EQ(shell.ShowProperties(folder.Path("missing"), 0), 2);
}

// The messages that users read for it.
class CShellOnTheDesktop : public DesktopShellAtWork {
 protected:
  CShellOnTheDesktop() { mGlobal::InstallPlatform(&platform); }

  headless::HeadlessPlatform around;
  Platform platform{around.toolkit, around.registry, shell, around.clock, around.eventLog, around.logFiles, {}};
  CShell component;
};

TEST_F(CShellOnTheDesktop, TellsItsRefusalsInTheUsualWords) {
  opens = false;
  const std::string document = folder.Put("book.ods", "x");
  EXPECT_EQ(Failure([&] { component.OpenDocument(document); }),
            "0x80044683|Pellora.CShell|No association for file extension");
  EXPECT_EQ(Failure([&] { component.ExploreFolder(folder.Path("a/b")); }), "0x8004467A|Pellora.CShell|Path not found");
  EXPECT_EQ(Failure([&] { component.ShowProperties(document, 0); }),
            "0x80044686|Pellora.CShell|Cannot show properties");
  EXPECT_EQ(Failure([&] { component.LaunchProgram(document, "", true, ""); }),
            "0x80044685|Pellora.CShell|Cannot create process");
}

TEST_F(CShellOnTheDesktop, AMailWithoutAProgramForItIsNoError) {
  opens = false;
  EXPECT_EQ(Failure([&] { component.CreateNewMailMessage("a@b.c", "", "B\xC3\xB6rse", "50% off"); }), "none");
  EXPECT_EQ(opened, Links{"mailto:a@b.c?subject=B%C3%B6rse&body=50%25%20off"});
}

}  // namespace
}  // namespace pellora::libreoffice
