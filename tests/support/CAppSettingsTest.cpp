#include "support/CAppSettings.h"

#include <gtest/gtest.h>

#include <new>

#include "platform/headless/Headless.h"
#include "support/mGlobal.h"
#include "tests/support/Failure.h"

namespace pellora {
namespace {

class CAppSettingsStore : public ::testing::Test {
 protected:
  CAppSettingsStore() { settings.Init("CORVANE", "Vantix"); }

  void Save(std::string_view name, Variant value) { settings.SaveSetting("S", name, value); }
  Variant Get(std::string_view name, const Variant& otherwise = "otherwise") {
    return settings.GetSetting("S", name, otherwise);
  }

  headless::HeadlessPlatform platform;
  CAppSettings settings;
};

constexpr char kKey[] = "Software\\CORVANE\\Vantix\\S";

TEST(CAppSettingsDefaults, AreTheCurrentUserAndTheLibrarysNames) {
  const CAppSettings settings;
  EXPECT_EQ(settings.RootKey(), kCurrentUser);
  EXPECT_EQ(settings.MainBranch(), "Software");
  EXPECT_EQ(settings.CompanyName(), "Belmund");
  EXPECT_EQ(settings.AppName(), "Pellora");
}

TEST_F(CAppSettingsStore, InitTakesCompanyThenApplication) {
  EXPECT_EQ(settings.CompanyName(), "CORVANE");
  EXPECT_EQ(settings.AppName(), "Vantix");
}

TEST_F(CAppSettingsStore, InitChecksTheCompanyFirst) {
  EXPECT_EQ(Failure([&] { settings.Init("", ""); }), "0x8004427E|Pellora.CAppSettings|Invalid CompanyName value");
}

TEST_F(CAppSettingsStore, InitKeepsTheCompanyWhenTheApplicationIsRefused) {
  EXPECT_EQ(Failure([&] { settings.Init("Other", ""); }), "0x8004427D|Pellora.CAppSettings|Invalid AppName value");
  EXPECT_EQ(settings.CompanyName(), "Other");
  EXPECT_EQ(settings.AppName(), "Vantix");
}

TEST_F(CAppSettingsStore, EmptyAppNameIsRefused) {
  EXPECT_EQ(Failure([&] { settings.AppName(""); }), "0x8004427D|Pellora.CAppSettings|Invalid AppName value");
  EXPECT_EQ(settings.AppName(), "Vantix");
}

TEST_F(CAppSettingsStore, EmptyCompanyNameIsRefused) {
  EXPECT_EQ(Failure([&] { settings.CompanyName(""); }), "0x8004427E|Pellora.CAppSettings|Invalid CompanyName value");
  EXPECT_EQ(settings.CompanyName(), "CORVANE");
}

TEST_F(CAppSettingsStore, EmptyMainBranchIsRefused) {
  EXPECT_EQ(Failure([&] { settings.MainBranch(""); }), "0x8004427F|Pellora.CAppSettings|Invalid MainBranch value");
  EXPECT_EQ(settings.MainBranch(), "Software");
}

TEST_F(CAppSettingsStore, RootOfClassesIsRefused) {
  EXPECT_EQ(Failure([&] { settings.RootKey(static_cast<std::int32_t>(0x80000000)); }),
            "0x80044280|Pellora.CAppSettings|Invalid root key value");
  EXPECT_EQ(settings.RootKey(), kCurrentUser);
}

TEST_F(CAppSettingsStore, RootsOtherThanTheTwoAreRefused) {
  for (const std::uint32_t root : {0x80000003u, 0x80000005u, 0u, 1u})
    EXPECT_EQ(Failure([&] { settings.RootKey(static_cast<std::int32_t>(root)); }),
              "0x80044280|Pellora.CAppSettings|Invalid root key value");
}

TEST_F(CAppSettingsStore, RootOfTheMachineIsAcceptedAndUsed) {
  settings.RootKey(kLocalMachine);
  Save("Name", "text");
  EXPECT_TRUE(platform.registry.HasKey(kLocalMachine, kKey));
  EXPECT_TRUE(platform.registry.Dump().empty());
}

TEST_F(CAppSettingsStore, SectionIsAKeyBelowBranchCompanyAndApplication) {
  settings.MainBranch("Branch");
  Variant value = "text";
  settings.SaveSetting("Settings\\frmSettings", "Name", value);
  EXPECT_EQ(platform.registry.Dump(),
            (std::map<std::string, RegistryValue>{{"Branch\\CORVANE\\Vantix\\Settings\\frmSettings\\Name", "text"}}));
}

TEST_F(CAppSettingsStore, IntegerIsReadBackAsAnInteger) {
  Save("Name", std::int32_t{5});
  EXPECT_EQ(Get("Name"), Variant(std::int32_t{5}));
}

TEST_F(CAppSettingsStore, TextOfANumberIsReadBackAsText) {
  Save("Name", "5");
  EXPECT_EQ(Get("Name"), Variant("5"));
}

TEST_F(CAppSettingsStore, EmptyTextIsReadBackAsText) {
  Save("Name", "");
  EXPECT_EQ(Get("Name"), Variant(""));
}

TEST_F(CAppSettingsStore, BooleanIsStoredAndReadBackAsText) {
  Save("Yes", true);
  Save("No", false);
  EXPECT_EQ(Get("Yes"), Variant("True"));
  EXPECT_EQ(Get("No"), Variant("False"));
}

TEST_F(CAppSettingsStore, DateIsStoredAsText) {
  Save("Name", Variant::Date(39434));
  EXPECT_EQ(Get("Name"), Variant("12/18/2007"));
}

TEST_F(CAppSettingsStore, OtherKindsAreStoredAsWholeNumbers) {
  Save("Short", std::int16_t{-7});
  Save("Double", 2.5);
  Save("Empty", Variant());
  EXPECT_EQ(Get("Short"), Variant(std::int32_t{-7}));
  EXPECT_EQ(Get("Double"), Variant(std::int32_t{2}));
  EXPECT_EQ(Get("Empty"), Variant(std::int32_t{0}));
}

TEST_F(CAppSettingsStore, SavingANumberReplacesTheCallersByTheOneWrittenOnPurpose) {
  Variant setting = 3.7;
  settings.SaveSetting("S", "Name", setting);
  EXPECT_EQ(setting, Variant(std::int32_t{4}));
}

TEST_F(CAppSettingsStore, SavingATextLeavesTheCallers) {
  Variant setting = true;
  settings.SaveSetting("S", "Name", setting);
  EXPECT_EQ(setting, Variant(true));
}

TEST_F(CAppSettingsStore, RefusedSavingIsAnErrorOfTheSourceWithoutTheLastLetterOnPurpose) {
  platform.registry.refuseWrites = 5;
  EXPECT_EQ(Failure([&] { Save("Name", "text"); }),
            "0x80044281|Pellora.CAppSetting|Failed saving the application setting");
}

TEST_F(CAppSettingsStore, RefusedSavingLeavesTheCallersNumber) {
  platform.registry.refuseWrites = 5;
  Variant setting = 3.7;
  Failure([&] { settings.SaveSetting("S", "Name", setting); });
  EXPECT_EQ(setting, Variant(3.7));
}

TEST_F(CAppSettingsStore, ValueThatIsNoNumberIsTheComponentFailure) {
  for (const auto& value : {Variant::Null(), Variant(1e12), Variant(DispatchPtr())})
    EXPECT_EQ(Failure([&] { Save("Name", value); }), "0x80044284|Pellora.CAppSetting|CAppSettings component failure");
}

TEST_F(CAppSettingsStore, MissingSectionGivesTheDefaultAndIsNotCreated) {
  EXPECT_EQ(Get("Name"), Variant("otherwise"));
  EXPECT_FALSE(platform.registry.HasKey(kCurrentUser, kKey));
}

TEST_F(CAppSettingsStore, MissingValueGivesTheDefaultOfAnyKind) {
  Save("Other", "text");
  EXPECT_EQ(Get("Name", std::int32_t{3}), Variant(std::int32_t{3}));
  EXPECT_EQ(Get("Name", Variant()), Variant());
}

TEST_F(CAppSettingsStore, ValueOfAnotherKindGivesTheDefault) {
  platform.registry.SetValue(kCurrentUser, kKey, "Name", RegistryUnknown{});
  EXPECT_EQ(Get("Name"), Variant("otherwise"));
}

TEST_F(CAppSettingsStore, AllKeysAreTheNamesOfTheValues) {
  Save("B", "1");
  Save("A", std::int32_t{2});
  std::vector<std::string> keys{"old", "older", "oldest"};
  settings.GetAllKeys("S", keys);
  EXPECT_EQ(keys, (std::vector<std::string>{"B", "A"}));
}

TEST_F(CAppSettingsStore, AllKeysAreValuesAndNotKeysBelow) {
  Save("A", "1");
  Variant value = "x";
  settings.SaveSetting("S\\Below", "B", value);
  std::vector<std::string> keys;
  settings.GetAllKeys("S", keys);
  EXPECT_EQ(keys, std::vector<std::string>{"A"});
}

TEST_F(CAppSettingsStore, AllKeysOfASectionWithoutValuesAreLeftAsTheyWere) {
  Variant value = "x";
  settings.SaveSetting("S\\Below", "B", value);
  std::vector<std::string> keys{"junk"};
  settings.GetAllKeys("S", keys);
  EXPECT_EQ(keys, std::vector<std::string>{"junk"});
}

TEST_F(CAppSettingsStore, AllKeysOfAMissingSectionAreRefused) {
  std::vector<std::string> keys{"junk"};
  EXPECT_EQ(Failure([&] { settings.GetAllKeys("S", keys); }),
            "0x80044283|Pellora.CAppSetting|Failed getting all the application keys");
  EXPECT_EQ(keys, std::vector<std::string>{"junk"});
}

TEST_F(CAppSettingsStore, DeletingWithoutANameDeletesTheSection) {
  Save("Name", "text");
  settings.DeleteSetting("S", "");
  EXPECT_FALSE(platform.registry.HasKey(kCurrentUser, kKey));
}

TEST_F(CAppSettingsStore, DeletingWithANameDeletesTheKeyBelow) {
  Variant value = "x";
  settings.SaveSetting("S\\Below", "B", value);
  settings.DeleteSetting("S", "Below");
  EXPECT_FALSE(platform.registry.HasKey(kCurrentUser, std::string(kKey) + "\\Below"));
  EXPECT_TRUE(platform.registry.HasKey(kCurrentUser, kKey));
}

TEST_F(CAppSettingsStore, DeletingDoesNotRemoveASavedValueOnPurpose) {
  Save("Name", "text");
  EXPECT_EQ(Failure([&] { settings.DeleteSetting("S", "Name"); }),
            "0x80044282|Pellora.CAppSetting|Failed deleting the application setting");
  EXPECT_EQ(Get("Name"), Variant("text"));
}

TEST_F(CAppSettingsStore, DeletingAMissingSectionIsRefused) {
  EXPECT_EQ(Failure([&] { settings.DeleteSetting("S", ""); }),
            "0x80044282|Pellora.CAppSetting|Failed deleting the application setting");
}

TEST_F(CAppSettingsStore, WithoutAPlatformEveryOperationIsTheComponentFailure) {
  mGlobal::InstallPlatform(nullptr);
  std::vector<std::string> keys;
  constexpr char kFailure[] = "0x80044284|Pellora.CAppSetting|CAppSettings component failure";
  EXPECT_EQ(Failure([&] { Save("Name", "text"); }), kFailure);
  EXPECT_EQ(Failure([&] { settings.DeleteSetting("S", ""); }), kFailure);
  EXPECT_EQ(Failure([&] { settings.GetAllKeys("S", keys); }), kFailure);
  EXPECT_EQ(Failure([&] { Get("Name"); }), "0x80044284|Pellora.CAppSettings|CAppSettings component failure");
}

/// A registry for which the memory does not suffice.
struct ExhaustedRegistry : headless::MemoryRegistry {
  std::optional<RegistryValue> QueryValue(std::int32_t, std::string_view, std::string_view) override {
    throw std::bad_alloc();
  }
};

TEST_F(CAppSettingsStore, FailureThatIsNoErrorIsTheComponentFailureToo) {
  ExhaustedRegistry registry;
  Platform exhausted{platform.toolkit,  registry, platform.shell, platform.clock, platform.eventLog,
                     platform.logFiles, {}};
  mGlobal::InstallPlatform(&exhausted);
  EXPECT_EQ(Failure([&] { Get("x"); }), "0x80044284|Pellora.CAppSettings|CAppSettings component failure");
  mGlobal::InstallPlatform(&platform.platform);
}

}  // namespace
}  // namespace pellora
