#include "support/CFormRestore.h"

#include <gtest/gtest.h>

#include "forms/Form.h"
#include "forms/Label.h"
#include "platform/headless/Headless.h"
#include "support/CAppSettings.h"
#include "support/mGlobal.h"
#include "tests/support/Failure.h"

namespace pellora {
namespace {

using headless::UserAtForm;

class Window : public Form {
 public:
  Window(Toolkit& toolkit, pellora::BorderStyle style) : Form(toolkit, "frmAddTicker") {
    BorderStyle(style);
    Layout(Column({LayoutNode(label).MinWidth(200).MinHeight(100)}));
  }
  using Form::BorderStyle;

 private:
  Label label{*this, "label", ""};
};

constexpr char kFormKey[] = "Software\\CORVANE\\Vantix\\Windows settings\\frmAddTicker";
constexpr const char* kNames[] = {"WindowState",   "MinPosX",      "MinPosY",        "MaxPosX",        "MaxPosY",
                                  "NormalPosLeft", "NormalPosTop", "NormalPosRight", "NormalPosBottom"};

class CFormRestorePlacement : public ::testing::Test {
 protected:
  CFormRestorePlacement() {
    store->Init("CORVANE", "Vantix");
    restore.Init(store, true);
    form.Load();
    fixedForm.Load();
  }
  ~CFormRestorePlacement() override { EXPECT_EQ(platform.user().Verify(), ""); }

  void Saved(const std::vector<std::string>& values) {
    for (std::size_t i = 0; i < values.size(); ++i)
      platform.registry.SetValue(kCurrentUser, kFormKey, kNames[i], values[i]);
  }
  void SavedWithCommand(int command) {
    Saved({std::to_string(command), "-1", "-1", "-1", "-1", "10", "20", "510", "420"});
  }
  static Rect NormalOf(const Form& of) { return of.GetPlacement()->normal; }

  headless::HeadlessPlatform platform;
  std::shared_ptr<CAppSettings> store = std::make_shared<CAppSettings>();
  CFormRestore restore;
  Window form{platform.toolkit, BorderStyle::Sizable};
  Window fixedForm{platform.toolkit, BorderStyle::FixedDialog};
};

TEST(CFormRestoreDefaults, AreCentredAndPossiblyMinimised) {
  const CFormRestore restore;
  EXPECT_EQ(restore.AppSettings(), nullptr);
  EXPECT_TRUE(restore.CenteredByDefault());
  EXPECT_FALSE(restore.NeverStartMinimized());
  EXPECT_EQ(restore.KeyName(), "Windows settings");
}

TEST_F(CFormRestorePlacement, FormThatWasNeverShownTakesTheSavedCornerAndNoSize) {
  Saved({"1", "-1", "-1", "-1", "-1", "10", "20", "10", "20"});
  Window unloaded(platform.toolkit, BorderStyle::FixedDialog);
  restore.GetPosition(unloaded);
  EXPECT_EQ(NormalOf(unloaded), (Rect{10, 20, 10, 20}));
}

TEST_F(CFormRestorePlacement, InitWithoutAStoreIsRefused) {
  EXPECT_EQ(Failure([&] { restore.Init(nullptr, false); }),
            "0x8004449A|Pellora.CFormRestore|Invalid AppSettings object");
  EXPECT_EQ(restore.AppSettings(), store);
  EXPECT_TRUE(restore.CenteredByDefault());
}

TEST_F(CFormRestorePlacement, MissingStoreIsRefused) {
  EXPECT_EQ(Failure([&] { restore.AppSettings(nullptr); }),
            "0x8004449A|Pellora.CFormRestore|Invalid AppSettings object");
  EXPECT_EQ(restore.AppSettings(), store);
}

TEST_F(CFormRestorePlacement, EmptyKeyNameIsRefused) {
  EXPECT_EQ(Failure([&] { restore.KeyName(""); }), "0x8004449B|Pellora.CFormRestore|Invalid KeyName value");
  EXPECT_EQ(restore.KeyName(), "Windows settings");
}

TEST_F(CFormRestorePlacement, BothOperationsNeedAStore) {
  CFormRestore without;
  constexpr char kFailure[] = "0x80044499|Pellora.CFormRestore|Object not properly initialized";
  EXPECT_EQ(Failure([&] { without.GetPosition(form); }), kFailure);
  EXPECT_EQ(Failure([&] { without.SavePosition(form); }), kFailure);
}

TEST_F(CFormRestorePlacement, StoreThatCannotBeWrittenIsTheComponentFailure) {
  platform.registry.refuseWrites = 5;
  EXPECT_EQ(Failure([&] { restore.SavePosition(form); }),
            "0x8004449C|Pellora.CFormRestore|CFormRestore component failure");
}

TEST_F(CFormRestorePlacement, StoreThatCannotBeReadIsTheComponentFailure) {
  mGlobal::InstallPlatform(nullptr);
  EXPECT_EQ(Failure([&] { restore.GetPosition(form); }),
            "0x8004449C|Pellora.CFormRestore|CFormRestore component failure");
}

TEST_F(CFormRestorePlacement, PlacementIsSavedAsDecimalTexts) {
  form.SetPlacement(
      {.showCommand = 3, .minimised = {-32000, -32001}, .maximised = {-8, -9}, .normal = {10, 20, 510, 420}});
  restore.SavePosition(form);
  std::map<std::string, RegistryValue> expected;
  const char* const values[] = {"3", "-32000", "-32001", "-8", "-9", "10", "20", "510", "420"};
  for (std::size_t i = 0; i < std::size(values); ++i) expected[std::string(kFormKey) + "\\" + kNames[i]] = values[i];
  EXPECT_EQ(platform.registry.Dump(), expected);
}

TEST_F(CFormRestorePlacement, KeyNameIsTheParentOfTheFormsSection) {
  restore.KeyName("Elsewhere");
  restore.SavePosition(form);
  EXPECT_TRUE(platform.registry.HasKey(kCurrentUser, "Software\\CORVANE\\Vantix\\Elsewhere\\frmAddTicker"));
  EXPECT_FALSE(platform.registry.HasKey(kCurrentUser, kFormKey));
}

TEST_F(CFormRestorePlacement, NothingIsSavedWhenThePlatformDoesNotTellThePlacement) {
  platform.toolkit.refusesPlacement = true;
  restore.SavePosition(form);
  EXPECT_TRUE(platform.registry.Dump().empty());
}

TEST_F(CFormRestorePlacement, SavedPlacementComesBack) {
  const Placement placement{
      .showCommand = 1, .minimised = {-1, -2}, .maximised = {-3, -4}, .normal = {10, 20, 510, 420}};
  form.SetPlacement(placement);
  restore.SavePosition(form);
  form.SetPlacement({});
  restore.GetPosition(form);
  EXPECT_EQ(form.GetPlacement(), placement);
}

TEST_F(CFormRestorePlacement, FormNeverSavedOpensCentred) {
  form.SetPlacement({.normal = {0, 0, 500, 401}});
  restore.GetPosition(form);
  // 1920 x 1080: (1920 - 500) / 2, and 339.5 to the even neighbour.
  EXPECT_EQ(NormalOf(form), (Rect{710, 340, 1210, 741}));
}

TEST_F(CFormRestorePlacement, HalvesOfCentringGoToTheEvenNeighbour) {
  form.SetPlacement({.normal = {0, 0, 501, 403}});
  restore.GetPosition(form);
  // 709.5 to 710, 338.5 to 338.
  EXPECT_EQ(NormalOf(form), (Rect{710, 338, 1211, 741}));
}

TEST_F(CFormRestorePlacement, CentringTakesTheShowCommandFromTheWindowState) {
  const std::pair<WindowState, int> rows[] = {
      {WindowState::Normal, 1}, {WindowState::Minimized, 2}, {WindowState::Maximized, 3}};
  for (const auto& [state, command] : rows) {
    form.SetPlacement({.normal = {0, 0, 500, 400}});
    form.WindowState(state);
    restore.GetPosition(form);
    EXPECT_EQ(form.GetPlacement()->showCommand, command);
  }
}

TEST_F(CFormRestorePlacement, FormThatIsNotNormalIsNotMovedToTheCentre) {
  form.SetPlacement({.showCommand = 3, .normal = {1, 2, 501, 402}});
  restore.GetPosition(form);
  EXPECT_EQ(NormalOf(form), (Rect{1, 2, 501, 402}));
}

TEST_F(CFormRestorePlacement, FormNeverSavedStaysWhereItIsWhenItIsNotToBeCentred) {
  restore.CenteredByDefault(false);
  form.SetPlacement({.normal = {1, 2, 501, 402}});
  restore.GetPosition(form);
  EXPECT_EQ(NormalOf(form), (Rect{1, 2, 501, 402}));
}

TEST_F(CFormRestorePlacement, CentringPassesOverAPlatformThatDoesNotTellThePlacement) {
  platform.toolkit.refusesPlacement = true;
  EXPECT_EQ(Failure([&] { restore.GetPosition(form); }), "none");
}

struct CommandRow {
  int saved;
  WindowState state;
  int applied;
};

TEST_F(CFormRestorePlacement, SavedCommandsBecomeWindowStates) {
  const CommandRow rows[] = {
      {1, WindowState::Normal, 1},    {5, WindowState::Normal, 5},    {9, WindowState::Normal, 9},
      {2, WindowState::Minimized, 2}, {6, WindowState::Minimized, 6}, {7, WindowState::Minimized, 7},
      {3, WindowState::Maximized, 3}, {4, WindowState::Normal, 1},    {11, WindowState::Normal, 1},
      {0, WindowState::Normal, 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.saved);
    form.WindowState(row.state == WindowState::Normal ? WindowState::Maximized : WindowState::Normal);
    SavedWithCommand(row.saved);
    restore.GetPosition(form);
    EXPECT_EQ(form.WindowState(), row.state);
    EXPECT_EQ(form.GetPlacement()->showCommand, row.applied);
  }
}

TEST_F(CFormRestorePlacement, CommandsThatShowInAnyStateKeepTheFormHidden) {
  for (const int saved : {8, 10}) {
    form.WindowState(WindowState::Maximized);
    SavedWithCommand(saved);
    restore.GetPosition(form);
    EXPECT_EQ(form.WindowState(), WindowState::Maximized);
    EXPECT_EQ(form.GetPlacement()->showCommand, 0);
  }
}

TEST_F(CFormRestorePlacement, FormSavedMinimisedReopensNormalWhenItNeverStartsMinimised) {
  restore.NeverStartMinimized(true);
  for (const int saved : {2, 6, 7}) {
    form.WindowState(WindowState::Minimized);
    SavedWithCommand(saved);
    restore.GetPosition(form);
    EXPECT_EQ(form.WindowState(), WindowState::Normal);
    EXPECT_EQ(form.GetPlacement()->showCommand, 1);
  }
}

TEST_F(CFormRestorePlacement, NeverStartingMinimisedLeavesOtherCommands) {
  restore.NeverStartMinimized(true);
  SavedWithCommand(3);
  restore.GetPosition(form);
  EXPECT_EQ(form.GetPlacement()->showCommand, 3);
}

TEST_F(CFormRestorePlacement, FormOnScreenHasOnlyMinimisedCommandsChanged) {
  const std::pair<int, int> rows[] = {{1, 1}, {2, 1}, {6, 1}, {7, 1}, {3, 3}, {8, 8}, {10, 10}, {4, 4}};
  restore.NeverStartMinimized(true);
  platform.user().ExpectForm("frmAddTicker", [&](UserAtForm&) {
    for (const auto& [saved, applied] : rows) {
      SavedWithCommand(saved);
      restore.GetPosition(form);
      EXPECT_EQ(form.GetPlacement()->showCommand, applied) << saved;
    }
    EXPECT_EQ(form.WindowState(), WindowState::Normal);
    form.Hide();
  });
  form.Show();
}

TEST_F(CFormRestorePlacement, FormOnScreenMayBeMinimisedOtherwise) {
  platform.user().ExpectForm("frmAddTicker", [&](UserAtForm&) {
    SavedWithCommand(6);
    restore.GetPosition(form);
    EXPECT_EQ(form.GetPlacement()->showCommand, 6);
    form.Hide();
  });
  form.Show();
}

/// Restores its placement while it loads, as the library's forms do.
class RestoringWindow : public Window {
 public:
  RestoringWindow(Toolkit& toolkit, CFormRestore& restore)
      : Window(toolkit, pellora::BorderStyle::Sizable), m_restore(restore) {}

 protected:
  void OnLoad() override { m_restore.GetPosition(*this); }

 private:
  CFormRestore& m_restore;
};

TEST_F(CFormRestorePlacement, FormThatLoadsForItsShowingIsNotYetOnScreen) {
  SavedWithCommand(3);
  RestoringWindow loading(platform.toolkit, restore);
  platform.user().ExpectForm("frmAddTicker", [](UserAtForm& user) { user.form().Hide(); });
  loading.Show();
  EXPECT_EQ(loading.WindowState(), WindowState::Maximized);
}

TEST_F(CFormRestorePlacement, SizableFormGetsItsSavedSize) {
  SavedWithCommand(1);
  restore.GetPosition(form);
  EXPECT_EQ(NormalOf(form), (Rect{10, 20, 510, 420}));
}

TEST_F(CFormRestorePlacement, FixedFormKeepsItsDesignedSize) {
  const auto size = fixedForm.WindowPeer()->OuterSize();
  SavedWithCommand(1);
  restore.GetPosition(fixedForm);
  EXPECT_EQ(NormalOf(fixedForm), (Rect{10, 20, 10 + size.width, 20 + size.height}));
}

TEST_F(CFormRestorePlacement, GarbageCountsAsTheNumbersAtItsBeginning) {
  Saved({"1x", "a", " 7", "-3.6", "", "12abc", "1e2", "600.4", "500 pixels"});
  restore.GetPosition(form);
  const auto placement = *form.GetPlacement();
  EXPECT_EQ(placement.showCommand, 1);
  EXPECT_EQ(placement.minimised, (Point{0, 7}));
  EXPECT_EQ(placement.maximised, (Point{-4, 0}));
  EXPECT_EQ(placement.normal, (Rect{12, 100, 600, 500}));
}

TEST_F(CFormRestorePlacement, NumbersOutOfEveryRangeAreHarmless) {
  Saved({"1e300", "-1e300", "99999999999", "inf", "nan", "99999999999", "99999999999", "x", "x"});
  EXPECT_EQ(Failure([&] { restore.GetPosition(form); }), "none");
  EXPECT_GT(NormalOf(form).Width(), 0);
}

TEST_F(CFormRestorePlacement, SavedRectangleWithoutAnAreaLeavesTheSize) {
  const auto size = form.WindowPeer()->OuterSize();
  Saved({"1", "-1", "-1", "-1", "-1", "30", "40", "30", "40"});
  restore.GetPosition(form);
  EXPECT_EQ(NormalOf(form), (Rect{30, 40, 30 + size.width, 40 + size.height}));
}

TEST_F(CFormRestorePlacement, NumberInTheRegistryIsAsGoodAsItsText) {
  SavedWithCommand(1);
  platform.registry.SetValue(kCurrentUser, kFormKey, "NormalPosLeft", std::int32_t{77});
  restore.GetPosition(form);
  EXPECT_EQ(NormalOf(form).left, 77);
}

TEST_F(CFormRestorePlacement, NegativeWindowStateMeansNothingWasSaved) {
  SavedWithCommand(-1);
  form.SetPlacement({.normal = {0, 0, 500, 400}});
  restore.GetPosition(form);
  EXPECT_EQ(NormalOf(form), (Rect{710, 340, 1210, 740}));
}

}  // namespace
}  // namespace pellora
