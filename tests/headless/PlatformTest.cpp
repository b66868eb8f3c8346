#include <gtest/gtest.h>

#include "core/Calendar.h"
#include "core/Error.h"
#include "core/TextServices.h"
#include "platform/headless/Headless.h"
#include "support/mGlobal.h"
#include "tests/forms/FormParts.h"

namespace pellora::headless {
namespace {

using test::NumberRaisedBy;
using test::PlainForm;

TEST(HeadlessPlatform, IsTheCurrentPlatformForAsLongAsItLives) {
  {
    HeadlessPlatform platform;
    EXPECT_EQ(&mGlobal::CurrentPlatform(), &platform.platform);
    EXPECT_EQ(&CurrentTextServices(), &PortableTextServices());
  }
  EXPECT_EQ(NumberRaisedBy([] { mGlobal::CurrentPlatform(); }), errors::ObjectNotSet);
}

TEST(HeadlessPlatform, HandsOverItsOwnSeams) {
  HeadlessPlatform platform;
  platform.platform.clock.Now();
  platform.platform.logFiles.Append("a.txt", "one");
  platform.platform.registry.SetValue(kCurrentUser, "Key", "name", std::int32_t{1});
  platform.platform.toolkit.Beep();
  EXPECT_EQ(platform.logFiles.files["a.txt"], "one");
  EXPECT_TRUE(platform.registry.HasKey(kCurrentUser, "Key"));
  EXPECT_EQ(platform.user().Beeps(), 1);
}

TEST(HeadlessPlatformDeathTest, AFormThatOutlivesItEndsTheProgram) {
  EXPECT_DEATH(
      {
        auto platform = std::make_unique<HeadlessPlatform>();
        PlainForm form(platform->toolkit);
        form.Load();
        platform.reset();
      },
      "outlives the platform");
}

TEST(HeadlessToolkit, FormsStandInTheMiddleOfTheDesktop) {
  HeadlessToolkit toolkit;
  PlainForm form(toolkit);
  form.Load();
  const auto place = form.GetPlacement()->normal;
  EXPECT_NEAR(place.left + place.right, toolkit.desktop.Width(), 1);
  EXPECT_NEAR(place.top + place.bottom, toolkit.desktop.Height(), 1);
  EXPECT_EQ(place.Width(), form.WindowPeer()->OuterSize().width);
}

TEST(HeadlessToolkit, ASizableFormTakesTheSizeOfItsPlacement) {
  HeadlessToolkit toolkit;
  PlainForm form(toolkit);
  form.BorderStyle(BorderStyle::Sizable);
  Placement placement;
  placement.normal = {0, 0, 640, 480};
  form.SetPlacement(placement);
  form.Load();
  EXPECT_EQ(form.WindowPeer()->OuterSize(), (Size{640, 480}));
}

TEST(HeadlessToolkit, AMaximisedFormFillsTheDesktop) {
  HeadlessToolkit toolkit;
  PlainForm form(toolkit);
  form.BorderStyle(BorderStyle::Sizable);
  form.SetPlacement({3, {-1, -1}, {-1, -1}, {0, 0, 640, 480}});
  form.Load();
  EXPECT_EQ(form.WindowPeer()->OuterSize(), (Size{1920, 1080}));
}

TEST(HeadlessMeasurer, CharactersAreSixByThirteenScaled) {
  EXPECT_EQ(HeadlessMeasurer(96).Measure("abcd", TextStyle::Normal), (Size{24, 13}));
  EXPECT_EQ(HeadlessMeasurer(192).Measure("abcd", TextStyle::Normal), (Size{48, 26}));
  EXPECT_EQ(HeadlessMeasurer(96).Measure("abcd", TextStyle::Heading), (Size{32, 17}));
}

TEST(HeadlessMeasurer, ACharacterOfSeveralBytesCountsOnce) {
  EXPECT_EQ(HeadlessMeasurer(96).Measure("\xC3\xA4\xE2\x82\xAC", TextStyle::Normal).width, 12);
}

class MemoryRegistryTest : public testing::Test {
 protected:
  std::int32_t Set(std::string_view path, std::string_view name, const RegistryValue& value) {
    return registry.SetValue(kCurrentUser, path, name, value);
  }
  MemoryRegistry registry;
};

TEST_F(MemoryRegistryTest, ValuesAreFoundWithoutRegardToCase) {
  EXPECT_EQ(Set("Software\\One", "Name", std::string("text")), 0);
  EXPECT_EQ(registry.QueryValue(kCurrentUser, "SOFTWARE\\one", "nAME"), RegistryValue(std::string("text")));
  EXPECT_EQ(registry.QueryValue(kLocalMachine, "Software\\One", "Name"), std::nullopt);
}

TEST_F(MemoryRegistryTest, WritingAgainReplacesTheValueInItsPlace) {
  Set("One", "a", std::int32_t{1});
  Set("One", "b", std::int32_t{2});
  Set("One", "A", std::string("three"));
  std::vector<std::string> names{"junk"};
  EXPECT_EQ(registry.EnumerateValues(kCurrentUser, "one", names), 0);
  EXPECT_EQ(names, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(registry.QueryValue(kCurrentUser, "One", "a"), RegistryValue(std::string("three")));
}

TEST_F(MemoryRegistryTest, MissingKeysAreNotFoundAndNotMade) {
  std::vector<std::string> names{"kept"};
  EXPECT_EQ(registry.EnumerateValues(kCurrentUser, "None", names), 2);
  EXPECT_EQ(names, std::vector<std::string>{"kept"});
  EXPECT_EQ(registry.QueryValue(kCurrentUser, "None", "a"), std::nullopt);
  EXPECT_EQ(registry.DeleteKey(kCurrentUser, "None"), 2);
  EXPECT_FALSE(registry.HasKey(kCurrentUser, "None"));
}

TEST_F(MemoryRegistryTest, KeysAboveComeIntoBeingAndStay) {
  Set("One\\Two\\Three", "a", std::int32_t{1});
  EXPECT_TRUE(registry.HasKey(kCurrentUser, "One\\Two"));
  EXPECT_EQ(registry.DeleteKey(kCurrentUser, "One\\Two\\Three"), 0);
  EXPECT_TRUE(registry.HasKey(kCurrentUser, "One\\Two"));
  EXPECT_FALSE(registry.HasKey(kCurrentUser, "One\\Two\\Three"));
}

TEST_F(MemoryRegistryTest, AKeyWithKeysBelowCannotBeDeleted) {
  Set("One\\Two", "a", std::int32_t{1});
  Set("OneMore", "a", std::int32_t{1});
  EXPECT_EQ(registry.DeleteKey(kCurrentUser, "One"), 5);
  EXPECT_EQ(registry.DeleteKey(kCurrentUser, "One\\Two"), 0);
  EXPECT_EQ(registry.DeleteKey(kCurrentUser, "One"), 0);
}

TEST_F(MemoryRegistryTest, DumpTellsTheCurrentUsersValues) {
  Set("One", "b", std::int32_t{2});
  Set("One", "a", std::string("x"));
  registry.SetValue(kLocalMachine, "One", "c", std::int32_t{3});
  const std::map<std::string, RegistryValue> expected{{"One\\a", std::string("x")}, {"One\\b", std::int32_t{2}}};
  EXPECT_EQ(registry.Dump(), expected);
}

TEST_F(MemoryRegistryTest, RefusedWritesChangeNothing) {
  Set("One", "a", std::int32_t{1});
  registry.refuseWrites = 5;
  EXPECT_EQ(Set("One", "a", std::int32_t{2}), 5);
  EXPECT_EQ(Set("Two", "a", std::int32_t{2}), 5);
  EXPECT_EQ(registry.DeleteKey(kCurrentUser, "One"), 5);
  EXPECT_EQ(registry.QueryValue(kCurrentUser, "One", "a"), RegistryValue(std::int32_t{1}));
  EXPECT_FALSE(registry.HasKey(kCurrentUser, "Two"));
}

TEST(RecordingShell, WritesEveryCallDown) {
  RecordingShell shell;
  EXPECT_EQ(shell.Execute("open", "a.txt", "-x", "c:\\"), 42);
  EXPECT_TRUE(shell.RunAndWait("p.exe", "-y", ""));
  EXPECT_EQ(shell.ShowProperties("a.txt", 1), 42);
  EXPECT_EQ(shell.calls, (std::vector<std::string>{"open|a.txt|-x|c:\\", "run|p.exe|-y|", "properties|a.txt||"}));
}

TEST(RecordingShell, AnswersWhatItIsTold) {
  RecordingShell shell;
  shell.result = 31;
  shell.canRun = false;
  shell.filesExist = false;
  shell.verbs = {"print"};
  EXPECT_EQ(shell.Execute("open", "a.txt", "", ""), 31);
  EXPECT_FALSE(shell.RunAndWait("p.exe", "", ""));
  EXPECT_FALSE(shell.FileExists("a.txt"));
  EXPECT_EQ(shell.DocumentVerbs("a.txt"), std::vector<std::string>{"print"});
}

TEST(MemoryLogFiles, AppendAndDelete) {
  MemoryLogFiles files;
  EXPECT_TRUE(files.Append("a", "1"));
  EXPECT_TRUE(files.Append("a", "2"));
  EXPECT_EQ(files.files["a"], "12");
  EXPECT_TRUE(files.Delete("a"));
  EXPECT_FALSE(files.Delete("a"));
}

TEST(MemoryLogFiles, RefuseWhenTold) {
  MemoryLogFiles files;
  files.files["a"] = "1";
  files.refuses = true;
  EXPECT_FALSE(files.Append("a", "2"));
  EXPECT_FALSE(files.Delete("a"));
  EXPECT_EQ(files.files["a"], "1");
}

TEST(MemoryEventLog, KeepsEntriesUnlessItRefuses) {
  MemoryEventLog log;
  EXPECT_TRUE(log.Available());
  EXPECT_TRUE(log.WriteError("Vantix", "text"));
  log.refuses = true;
  EXPECT_FALSE(log.WriteError("Vantix", "more"));
  EXPECT_EQ(log.entries, std::vector<std::string>{"Vantix|text"});
}

TEST(FakeClock, StandsWhereItIsSet) {
  FakeClock clock;
  const auto begin = clock.Now();
  EXPECT_EQ(TimeFromDays(begin).hour, 9);
  EXPECT_EQ(TimeFromDays(begin).minute, 30);
  EXPECT_EQ(DateFromDays(begin).year, 2007);
  clock.now = 2.5;
  EXPECT_EQ(clock.Now(), 2.5);
}

}  // namespace
}  // namespace pellora::headless
