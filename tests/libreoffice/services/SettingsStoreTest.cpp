// What the settings store relies on, of every registry that a machine may have.

#include <gtest/gtest.h>

#include "platform/headless/Headless.h"
#include "platform/libreoffice/services/SettingsFile.h"
#include "support/CAppSettings.h"
#include "support/mGlobal.h"
#include "tests/libreoffice/services/TemporaryFolder.h"
#include "tests/support/Failure.h"

namespace pellora::libreoffice {
namespace {

constexpr char kStoreKey[] = "Software\\CORVANE\\Vantix\\S";

struct InMemory {
  headless::MemoryRegistry registry;
};

struct InAFile {
  TemporaryFolder folder;
  SettingsFile registry{folder.Path("config/settings")};
};

template <class Kept>
class SettingsStore : public testing::Test {
 protected:
  SettingsStore() {
    mGlobal::InstallPlatform(&platform);
    settings.Init("CORVANE", "Vantix");
  }

  void Save(std::string_view name, Variant value, std::string_view section = "S") {
    settings.SaveSetting(section, name, value);
  }
  Variant Get(std::string_view name) { return settings.GetSetting("S", name, "otherwise"); }
  std::vector<std::string> Keys() {
    std::vector<std::string> keys{"junk"};
    settings.GetAllKeys("S", keys);
    return keys;
  }
  bool HasKey(std::int32_t root, std::string_view path) {
    std::vector<std::string> names;
    return registry.EnumerateValues(root, path, names) == 0;
  }

  headless::HeadlessPlatform around;
  Kept kept;
  Registry& registry = kept.registry;
  Platform platform{around.toolkit, registry, around.shell, around.clock, around.eventLog, around.logFiles, {}};
  CAppSettings settings;
};

using Registries = testing::Types<InMemory, InAFile>;
TYPED_TEST_SUITE(SettingsStore, Registries);

TYPED_TEST(SettingsStore, ReadsBackWhatItSavedInItsKind) {
  this->Save("Number", std::int32_t{5});
  this->Save("Text", "5");
  this->Save("Empty", "");
  this->Save("Yes", true);
  this->Save("Date", Variant::Date(39434));
  this->Save("Lines", "a\r\nb\"\t%0A");
  EXPECT_EQ(this->Get("Number"), Variant(std::int32_t{5}));
  EXPECT_EQ(this->Get("Text"), Variant("5"));
  EXPECT_EQ(this->Get("Empty"), Variant(""));
  EXPECT_EQ(this->Get("Yes"), Variant("True"));
  EXPECT_EQ(this->Get("Date"), Variant("12/18/2007"));
  EXPECT_EQ(this->Get("Lines"), Variant("a\r\nb\"\t%0A"));
}

TYPED_TEST(SettingsStore, ReplacesAValueOfTheNameInAnyCaseAndOfAnyKind) {
  this->Save("B\xC3\xB6rse", "text");
  this->Save("B\xC3\x96RSE", std::int32_t{5});
  EXPECT_EQ(this->Get("b\xC3\xB6rse"), Variant(std::int32_t{5}));
  EXPECT_EQ(this->Keys(), std::vector<std::string>{"B\xC3\xB6rse"});
}

TYPED_TEST(SettingsStore, GivesTheDefaultForWhatIsMissingAndCreatesNothing) {
  EXPECT_EQ(this->Get("Name"), Variant("otherwise"));
  EXPECT_FALSE(this->HasKey(kCurrentUser, kStoreKey));
}

TYPED_TEST(SettingsStore, GivesTheDefaultForAnotherKindOfValue) {
  this->registry.SetValue(kCurrentUser, kStoreKey, "Name", RegistryUnknown{});
  EXPECT_EQ(this->registry.QueryValue(kCurrentUser, kStoreKey, "Name"), RegistryValue(RegistryUnknown{}));
  EXPECT_EQ(this->Get("Name"), Variant("otherwise"));
}

TYPED_TEST(SettingsStore, ListsNamesOfValuesInTheOrderOfWriting) {
  this->Save("B", "1");
  this->Save("x", "1", "S\\Below");
  this->Save("A", std::int32_t{2});
  this->Save("C", "3");
  this->Save("B", "4");
  EXPECT_EQ(this->Keys(), (std::vector<std::string>{"B", "A", "C"}));
}

TYPED_TEST(SettingsStore, LeavesTheListOfASectionWithoutValuesAsItWas) {
  this->Save("x", "1", "S\\Below");
  EXPECT_EQ(this->Keys(), std::vector<std::string>{"junk"});
}

TYPED_TEST(SettingsStore, RefusesTheListOfAMissingSection) {
  EXPECT_EQ(Failure([&] { this->Keys(); }), "0x80044283|Pellora.CAppSetting|Failed getting all the application keys");
}

TYPED_TEST(SettingsStore, KeepsTheRootsApart) {
  this->settings.RootKey(kLocalMachine);
  this->Save("Name", "text");
  EXPECT_TRUE(this->HasKey(kLocalMachine, kStoreKey));
  EXPECT_FALSE(this->HasKey(kCurrentUser, kStoreKey));
}

TYPED_TEST(SettingsStore, DeletesASection) {
  this->Save("Name", "text");
  this->settings.DeleteSetting("S", "");
  EXPECT_FALSE(this->HasKey(kCurrentUser, kStoreKey));
  EXPECT_EQ(this->Get("Name"), Variant("otherwise"));
}

TYPED_TEST(SettingsStore, DeletesTheKeyBelowOnly) {
  this->Save("B", "x", "S\\Below");
  this->settings.DeleteSetting("s", "below");
  EXPECT_FALSE(this->HasKey(kCurrentUser, std::string(kStoreKey) + "\\Below"));
  EXPECT_TRUE(this->HasKey(kCurrentUser, kStoreKey));
}

constexpr char kNotDeleted[] = "0x80044282|Pellora.CAppSetting|Failed deleting the application setting";

TYPED_TEST(SettingsStore, DeletesNoSavedValueOnPurpose) {
  this->Save("Name", "text");
  EXPECT_EQ(Failure([&] { this->settings.DeleteSetting("S", "Name"); }), kNotDeleted);
  EXPECT_EQ(this->Get("Name"), Variant("text"));
}

TYPED_TEST(SettingsStore, DeletesNoKeyWithKeysBelow) {
  this->Save("B", "x", "S\\Below");
  EXPECT_EQ(Failure([&] { this->settings.DeleteSetting("S", ""); }), kNotDeleted);
  EXPECT_TRUE(this->HasKey(kCurrentUser, std::string(kStoreKey) + "\\Below"));
}

TYPED_TEST(SettingsStore, DeletesNothingThatIsMissing) {
  EXPECT_EQ(Failure([&] { this->settings.DeleteSetting("S", ""); }), kNotDeleted);
}

}  // namespace
}  // namespace pellora::libreoffice
