#include "project/frmNewProject.h"

#include <array>

#include "core/Error.h"
#include "tests/DialogChecks.h"
#include "tests/DialogTest.h"
#include "tests/Watching.h"

namespace pellora {
namespace {

using headless::UserAtForm;
using Names = std::vector<std::string>;

class frmNewProjectTest : public tests::DialogTest {
 protected:
  /// Shows the form to a user who plays `part`; `then` names the dialogs and messages that come out of it.
  void Show(
      std::function<void(UserAtForm&)> part, const std::function<void()>& then = [] {}) {
    user().ExpectForm("frmNewProject", std::move(part));
    then();
    form.Show();
  }

  std::vector<CheckBox*> Boxes() {
    return {&form.chkLastPrice, &form.chkLastSize, &form.chkBidPrice, &form.chkBidSize, &form.chkAskPrice,
            &form.chkAskSize,   &form.chkHigh,     &form.chkLow,      &form.chkVolume,  &form.chkClose};
  }
  int Ticked() {
    int count = 0;
    for (const auto* box : Boxes()) count += box->Value() != 0;
    return count;
  }

  /// How many failures were reported in that routine.
  int ReportedIn(const std::string& routine) {
    int count = 0;
    for (const auto& text : user().ErrorTexts())
      count += Find(text, "in Pellora.frmNewProject." + routine + " at line") != std::string::npos;
    return count;
  }

  tests::WatchingToolkit watching{platform.toolkit};
  frmNewProject form{watching};
};

const std::string kNothingSelected = "You must select at least one value!";

TEST_F(frmNewProjectTest, CaptionKeepsItsTrailingBlank) {
  EXPECT_EQ(form.Caption(), "Choose market data fields for project ");
}

TEST_F(frmNewProjectTest, ControlsCarryTheirCaptions) {
  const std::vector<std::pair<std::string, std::string>> captions = {
      {"chkLastPrice", "Last Price"},
      {"chkLastSize", "Last Size"},
      {"chkBidPrice", "Bid Price"},
      {"chkBidSize", "Bid Size"},
      {"chkAskPrice", "Ask Price"},
      {"chkAskSize", "Ask Size"},
      {"chkHigh", "High"},
      {"chkLow", "Low"},
      {"chkVolume", "Volume"},
      {"chkClose", "Close"},
      {"ButCreateProject", "Create project"},
      {"ButCancel", "Cancel"},
      {"ButCheckAll", "Check all"},
      {"ButUncheckAll", "Uncheck all"},
  };
  EXPECT_EQ(form.Children().size(), captions.size());
  for (const auto& [name, caption] : captions) {
    ASSERT_NE(form.FindControl(name), nullptr) << name;
    EXPECT_EQ(form.FindControl(name)->Caption(), caption);
  }
}

TEST_F(frmNewProjectTest, OpensWithNothingTickedAndTheFocusInTheFirstBox) {
  Show([&](UserAtForm& hands) {
    EXPECT_EQ(Ticked(), 0);
    EXPECT_EQ(hands.FocusedName(), "chkLastPrice");
    hands.Click("ButCancel");
  });
}

TEST_F(frmNewProjectTest, TabGoesDownTheLeftColumnThenTheRightThenTheButtons) {
  Show([&](UserAtForm& hands) {
    EXPECT_EQ(
        tests::NamesOf(form.TabOrder()),
        (Names{"chkLastPrice", "chkLastSize", "chkBidPrice", "chkBidSize", "chkAskPrice", "chkAskSize", "chkHigh",
               "chkLow", "chkVolume", "chkClose", "ButCheckAll", "ButUncheckAll", "ButCreateProject", "ButCancel"}));
    hands.Click("ButCancel");
  });
}

TEST_F(frmNewProjectTest, LeftColumnAndRightColumnAreSideBySide) {
  Show([&](UserAtForm& hands) {
    EXPECT_EQ(form.chkLastPrice.Bounds().left, form.chkAskSize.Bounds().left);
    EXPECT_EQ(form.chkHigh.Bounds().left, form.chkClose.Bounds().left);
    EXPECT_GT(form.chkHigh.Bounds().left, form.chkLastPrice.Bounds().right - 1);
    EXPECT_EQ(form.chkHigh.Bounds().top, form.chkLastPrice.Bounds().top);
    hands.Click("ButCancel");
  });
}

TEST_F(frmNewProjectTest, CreateProjectWithNothingTickedIsRefusedAndLeavesTheDialogOpen) {
  form.Tag("before");
  Show(
      [&](UserAtForm& hands) {
        hands.Click("ButCreateProject");
        EXPECT_TRUE(form.Shown());
        hands.CloseBox();
      },
      [&] { user().ExpectMessage(kNothingSelected); });
  EXPECT_EQ(form.Tag(), "before");
}

TEST_F(frmNewProjectTest, TheRefusalIsCriticalWithOneButtonAndTheTitleVantix) {
  Show(
      [&](UserAtForm& hands) {
        hands.Click("ButCreateProject");
        hands.CloseBox();
      },
      [&] { user().ExpectMessage(kNothingSelected); });
  const auto& message = user().Messages().at(0);
  EXPECT_EQ(message.title, "Vantix");
  EXPECT_TRUE(message.critical);
  EXPECT_EQ(message.buttons, MessageButtons::Ok);
}

TEST_F(frmNewProjectTest, CheckAllThenCreateProjectConfirmsAllTen) {
  Show([&](UserAtForm& hands) {
    hands.Click("ButCheckAll");
    hands.Click("ButCreateProject");
  });
  EXPECT_EQ(form.Tag(), "1");
  for (const auto* box : Boxes()) EXPECT_EQ(box->Value(), 1) << box->Name();
}

TEST_F(frmNewProjectTest, UncheckAllAfterCheckAllLeavesNoneTicked) {
  Show([&](UserAtForm& hands) {
    hands.Click("ButCheckAll");
    hands.Click("ButUncheckAll");
    EXPECT_EQ(Ticked(), 0);
    hands.Click("ButCancel");
  });
}

TEST_F(frmNewProjectTest, AnySingleBoxIsEnough) {
  for (auto* box : Boxes()) {
    frmNewProject fresh(platform.toolkit);
    user().ExpectForm("frmNewProject", [&](UserAtForm& hands) {
      hands.Click(box->Name());
      hands.Click("ButCreateProject");
    });
    fresh.Show();
    EXPECT_EQ(fresh.Tag(), "1") << box->Name();
  }
}

TEST_F(frmNewProjectTest, AGreyedBoxCountsAsSelected) {
  form.chkVolume.Value(2);
  Show([](UserAtForm& hands) { hands.Click("ButCreateProject"); });
  EXPECT_EQ(form.Tag(), "1");
  EXPECT_EQ(form.chkVolume.Value(), 2);
}

TEST_F(frmNewProjectTest, CancelAfterTickingSignalsTwo) {
  Show([](UserAtForm& hands) {
    hands.Click("chkHigh");
    hands.Click("ButCancel");
  });
  EXPECT_EQ(form.Tag(), "2");
}

TEST_F(frmNewProjectTest, TheCloseBoxLeavesTheTagEmpty) {
  Show([](UserAtForm& hands) {
    hands.Click("ButCheckAll");
    hands.CloseBox();
  });
  EXPECT_EQ(form.Tag(), "");
}

TEST_F(frmNewProjectTest, BoxesCanBeReadAfterTheDialogHasHidden) {
  Show([](UserAtForm& hands) {
    hands.Click("chkVolume");
    hands.Click("ButCreateProject");
  });
  EXPECT_EQ(platform.toolkit.formPeers, 0);
  EXPECT_EQ(form.chkVolume.Value(), 1);
  EXPECT_EQ(Ticked(), 1);
}

TEST_F(frmNewProjectTest, WorksWithKeysAlone) {
  Show([&](UserAtForm& hands) {
    hands.PressSpace();
    hands.PressAccessKey('V');
    hands.PressEnter();
  });
  EXPECT_EQ(form.Tag(), "1");
  EXPECT_EQ(form.chkLastPrice.Value(), 1);
  EXPECT_EQ(form.chkVolume.Value(), 1);
  EXPECT_EQ(Ticked(), 2);
}

TEST_F(frmNewProjectTest, EscapeCancels) {
  Show([](UserAtForm& hands) { hands.PressEscape(); });
  EXPECT_EQ(form.Tag(), "2");
}

TEST_F(frmNewProjectTest, AccessKeysAreUniqueAndInTheCaptions) {
  Show([&](UserAtForm& hands) {
    EXPECT_EQ(tests::AccessKeyFaults(form), "");
    hands.Click("ButCancel");
  });
}

TEST_F(frmNewProjectTest, NothingOverlapsAtAnyScale) {
  for (const int dpi : {96, 120, 144, 192}) {
    platform.toolkit.dpi = dpi;
    frmNewProject fresh(platform.toolkit);
    user().ExpectForm("frmNewProject", [&](UserAtForm& hands) {
      EXPECT_EQ(tests::LayoutFaults(fresh), "") << dpi;
      hands.Click("ButCancel");
    });
    fresh.Show();
  }
}

TEST_F(frmNewProjectTest, CheckUncheckSetsTheBoxesInTheOrderOfTheInterface) {
  Names changed;
  for (auto* box : Boxes()) box->Click = [&changed, box] { changed.push_back(box->Name()); };
  std::int16_t value = 1;
  form.CheckUncheck(value);
  EXPECT_EQ(changed, (Names{"chkAskPrice", "chkAskSize", "chkBidPrice", "chkBidSize", "chkClose", "chkHigh",
                            "chkLastPrice", "chkLastSize", "chkLow", "chkVolume"}));
  EXPECT_EQ(value, 1);
}

TEST_F(frmNewProjectTest, EveryRoutineIsReportedUnderItsQualifiedName) {
  Show([&](UserAtForm& hands) {
    TraceRoutines();
    hands.Click("ButCheckAll");
    hands.Click("ButUncheckAll");
    hands.Click("chkLow");
    hands.Click("ButCreateProject");
  });
  form.ButCancel_Click();
  EXPECT_EQ(RoutinesEntered(),
            (Names{"Pellora.frmNewProject.ButCheckAll_Click", "Pellora.frmNewProject.CheckUncheck",
                   "Pellora.frmNewProject.ButUncheckAll_Click", "Pellora.frmNewProject.CheckUncheck",
                   "Pellora.frmNewProject.ButCreateProject_Click", "Pellora.frmNewProject.ButCancel_Click"}));
}

TEST_F(frmNewProjectTest, AFailureInAHandlerIsReportedAndLeavesTheDialogOpen) {
  form.chkClose.Click = [] { throw Error(errors::TypeMismatch); };
  Show(
      [&](UserAtForm& hands) {
        hands.Click("ButCheckAll");
        EXPECT_TRUE(form.Shown());
        hands.Click("ButCancel");
      },
      [&] { user().ExpectErrorDialog("btnAbort"); });
  EXPECT_EQ(ReportedIn("CheckUncheck"), 1);
}

TEST_F(frmNewProjectTest, AnIgnoredFailureGoesOnWithTheNextBox) {
  form.chkClose.Click = [] { throw Error(errors::TypeMismatch); };
  Show(
      [](UserAtForm& hands) {
        hands.Click("ButCheckAll");
        hands.Click("ButCancel");
      },
      [&] { user().ExpectErrorDialog("btnIgnore"); });
  EXPECT_EQ(Ticked(), 10);
}

TEST_F(frmNewProjectTest, BothButtonsHideBeforeTheySignal) {
  std::string tag = "not hidden";
  watching.hiding = [&](Form& hidden) { tag = hidden.Tag(); };
  form.Tag("before");
  Show([](UserAtForm& hands) {
    hands.Click("chkLow");
    hands.Click("ButCreateProject");
  });
  EXPECT_EQ(tag, "before");
  EXPECT_EQ(form.Tag(), "1");
  Show([](UserAtForm& hands) { hands.Click("ButCancel"); });
  EXPECT_EQ(tag, "1") << "what the first showing left";
  EXPECT_EQ(form.Tag(), "2");
}

TEST_F(frmNewProjectTest, CheckUncheckKeepsItsFailureInside) {
  tests::Refuse(form.chkBidSize);
  user().ExpectErrorDialog("btnAbort");
  std::int16_t value = 1;
  EXPECT_NO_THROW(form.CheckUncheck(value));
  EXPECT_EQ(ReportedIn("CheckUncheck"), 1);
}

TEST_F(frmNewProjectTest, ButUncheckAll_ClickKeepsAFailureInside) {
  Show(
      [&](UserAtForm& hands) {
        hands.Click("ButCheckAll");
        tests::Refuse(form.chkBidSize);
        hands.Click("ButUncheckAll");
        EXPECT_TRUE(form.Shown());
        hands.CloseBox();
      },
      [&] { user().ExpectErrorDialog("btnIgnore"); });
  EXPECT_EQ(ReportedIn("CheckUncheck"), 1);
}

TEST_F(frmNewProjectTest, ButCreateProject_ClickKeepsItsFailureInside) {
  Show(
      [&](UserAtForm& hands) {
        hands.Click("chkLow");
        watching.RefuseToHideOnce("frmNewProject");
        hands.Click("ButCreateProject");
      },
      [&] { user().ExpectErrorDialog("btnAbort"); });
  EXPECT_EQ(ReportedIn("ButCreateProject_Click"), 1);
  EXPECT_EQ(form.Tag(), "") << "an aborted confirmation is none";
}

TEST_F(frmNewProjectTest, ButCancel_ClickKeepsItsFailureInside) {
  Show(
      [&](UserAtForm& hands) {
        watching.RefuseToHideOnce("frmNewProject");
        hands.Click("ButCancel");
      },
      [&] { user().ExpectErrorDialog("btnIgnore"); });
  EXPECT_EQ(ReportedIn("ButCancel_Click"), 1);
  EXPECT_EQ(form.Tag(), "2");
}

}  // namespace
}  // namespace pellora
