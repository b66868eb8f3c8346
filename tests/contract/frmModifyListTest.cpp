#include "contract/frmModifyList.h"

#include "core/Error.h"
#include "tests/DialogChecks.h"
#include "tests/DialogTest.h"
#include "tests/Watching.h"

namespace pellora {
namespace {

using headless::UserAtForm;
using tests::Cancel;
using Names = std::vector<std::string>;

class frmModifyListTest : public tests::DialogTest {
 protected:
  frmModifyListTest() {
    form.frmAppSettings(mGlobal::AppSettings);
    form.Caption("Edit currencies list");
  }

  void Show(const std::string& listText, std::function<void(UserAtForm&)> part) {
    form.InpList(listText);
    user().ExpectForm("frmModifyList", std::move(part));
    form.Show();
  }

  const Names& Entries() const { return form.lstParametr.Items(); }
  std::string Selected() const {
    const int index = form.lstParametr.ListIndex();
    return index < 0 ? "none" : form.lstParametr.List(index);
  }

  tests::WatchingToolkit watching{platform.toolkit};
  frmModifyList form{watching};
};

TEST_F(frmModifyListTest, ControlsCarryTheirCaptions) {
  EXPECT_EQ(form.ButAdd.Caption(), "Add");
  EXPECT_EQ(form.ButDelete.Caption(), "Delete");
  EXPECT_EQ(form.ButUp.Caption(), "Up");
  EXPECT_EQ(form.ButDown.Caption(), "Down");
  EXPECT_EQ(form.ButSave.Caption(), "Save");
  EXPECT_EQ(form.ButCancel.Caption(), "Cancel");
}

TEST_F(frmModifyListTest, UpAndDownShowArrows) {
  EXPECT_EQ(form.ButUp.Picture(), ButtonPicture::ArrowUp);
  EXPECT_EQ(form.ButDown.Picture(), ButtonPicture::ArrowDown);
}

TEST_F(frmModifyListTest, ShowsTheEntriesInOrderWithNoneSelected) {
  Show("USD|EUR|GBP", [&](UserAtForm& hands) {
    EXPECT_EQ(Entries(), (Names{"USD", "EUR", "GBP"}));
    EXPECT_EQ(Selected(), "none");
    EXPECT_EQ(hands.FocusedName(), "txtInput");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, AnEmptyListTextShowsNoEntries) {
  Show("", [&](UserAtForm& hands) {
    EXPECT_TRUE(Entries().empty());
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, ASecondActivationAddsNothing) {
  Show("USD|EUR", [&](UserAtForm& hands) {
    form.PeerActivate();
    EXPECT_EQ(Entries(), (Names{"USD", "EUR"}));
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, ActivatingAgainKeepsWhatWasEdited) {
  Show("USD|EUR", [&](UserAtForm& hands) {
    hands.Choose("lstParametr", "EUR");
    hands.Click("ButDelete");
    form.PeerActivate();
    EXPECT_EQ(Entries(), Names{"USD"});
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, TheNextOpeningShowsTheNextListText) {
  Show("USD|EUR", Cancel);
  Show("SMART", [&](UserAtForm& hands) {
    EXPECT_EQ(Entries(), Names{"SMART"});
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, AddAppendsSelectsTheNewEntryAndWaitsForTheNext) {
  Show("USD|EUR", [&](UserAtForm& hands) {
    hands.Type("txtInput", "CHF");
    hands.Click("ButAdd");
    EXPECT_EQ(Entries(), (Names{"USD", "EUR", "CHF"}));
    EXPECT_EQ(Selected(), "CHF");
    EXPECT_EQ(form.txtInput.Text(), "");
    EXPECT_EQ(hands.FocusedName(), "txtInput");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, AddingNyseToAListThatHoldsNYSESelectsItAndAddsNothing) {
  Show("SMART|NYSE|AMEX", [&](UserAtForm& hands) {
    hands.Type("txtInput", "nyse");
    hands.Click("ButAdd");
    EXPECT_EQ(Entries(), (Names{"SMART", "NYSE", "AMEX"}));
    EXPECT_EQ(Selected(), "NYSE");
    EXPECT_EQ(form.txtInput.Text(), "nyse");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, AddingWhatMatchesTwoEntriesStopsAtTheFirst) {
  Show("A|nyse|NYSE", [&](UserAtForm& hands) {
    hands.Type("txtInput", "NYSE");
    hands.Click("ButAdd");
    EXPECT_EQ(Entries(), (Names{"A", "nyse", "NYSE"}));
    EXPECT_EQ(Selected(), "nyse");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, AddingWithAnEmptyInputDoesNothing) {
  Show("USD", [&](UserAtForm& hands) {
    hands.Click("ButAdd");
    EXPECT_EQ(Entries(), Names{"USD"});
    EXPECT_EQ(Selected(), "none");
    EXPECT_EQ(hands.FocusedName(), "ButAdd");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, BlanksAreAnEntryLikeAnyOther) {
  Show("USD", [&](UserAtForm& hands) {
    hands.Type("txtInput", " ");
    hands.Click("ButAdd");
    EXPECT_EQ(Entries(), (Names{"USD", " "}));
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, ABarSeparatesSeveralEntriesSoThatNoneContainsIt) {
  Show("USD", [&](UserAtForm& hands) {
    hands.Type("txtInput", "EUR|usd||CHF|eur");
    hands.Click("ButAdd");
    EXPECT_EQ(Entries(), (Names{"USD", "EUR", "CHF"}));
    EXPECT_EQ(Selected(), "CHF");
    EXPECT_EQ(form.txtInput.Text(), "");
    hands.Click("ButSave");
  });
  EXPECT_EQ(form.InpList(), "USD|EUR|CHF");
}

TEST_F(frmModifyListTest, ABarAloneAddsNothing) {
  Show("USD", [&](UserAtForm& hands) {
    hands.Type("txtInput", "|");
    hands.Click("ButAdd");
    EXPECT_EQ(Entries(), Names{"USD"});
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, DeleteRemovesTheSelectedEntryAndSelectsTheLast) {
  Show("A|B|C", [&](UserAtForm& hands) {
    hands.Choose("lstParametr", "A");
    hands.Click("ButDelete");
    EXPECT_EQ(Entries(), (Names{"B", "C"}));
    EXPECT_EQ(Selected(), "C");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, DeleteWithoutASelectionSelectsTheLastEntry) {
  Show("A|B", [&](UserAtForm& hands) {
    hands.Click("ButDelete");
    EXPECT_EQ(Entries(), (Names{"A", "B"}));
    EXPECT_EQ(Selected(), "B");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, DeleteInAnEmptyListDoesNothing) {
  Show("", [&](UserAtForm& hands) {
    hands.Click("ButDelete");
    EXPECT_EQ(Selected(), "none");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, DeletingTheOnlyEntryAndSavingGivesAnEmptyListText) {
  Show("IDEAL", [](UserAtForm& hands) {
    hands.Choose("lstParametr", "IDEAL");
    hands.Click("ButDelete");
    hands.Click("ButSave");
  });
  EXPECT_EQ(form.InpList(), "");
  EXPECT_EQ(form.Tag(), "1");
}

TEST_F(frmModifyListTest, UpMovesTheEntryOnePlaceAndKeepsItSelected) {
  Show("A|B|C", [&](UserAtForm& hands) {
    hands.Choose("lstParametr", "C");
    hands.Click("ButUp");
    EXPECT_EQ(Entries(), (Names{"A", "C", "B"}));
    EXPECT_EQ(form.lstParametr.ListIndex(), 1);
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, DownMovesTheEntryOnePlaceAndKeepsItSelected) {
  Show("A|B|C", [&](UserAtForm& hands) {
    hands.Choose("lstParametr", "A");
    hands.Click("ButDown");
    EXPECT_EQ(Entries(), (Names{"B", "A", "C"}));
    EXPECT_EQ(form.lstParametr.ListIndex(), 1);
    hands.Click("ButDown");
    EXPECT_EQ(Entries(), (Names{"B", "C", "A"}));
    EXPECT_EQ(form.lstParametr.ListIndex(), 2);
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, UpOnTheFirstAndDownOnTheLastChangeNothing) {
  Show("A|B", [&](UserAtForm& hands) {
    hands.Choose("lstParametr", "A");
    hands.Click("ButUp");
    EXPECT_EQ(Selected(), "A");
    hands.Choose("lstParametr", "B");
    hands.Click("ButDown");
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(Entries(), (Names{"A", "B"}));
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, UpAndDownWithoutASelectionChangeNothing) {
  Show("A|B", [&](UserAtForm& hands) {
    hands.Click("ButUp");
    hands.Click("ButDown");
    EXPECT_EQ(Entries(), (Names{"A", "B"}));
    EXPECT_EQ(Selected(), "none");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, SaveGivesTheEntriesInTheirOrder) {
  Show("A|B|C", [](UserAtForm& hands) {
    hands.Choose("lstParametr", "C");
    hands.Click("ButUp");
    hands.Click("ButSave");
  });
  EXPECT_EQ(form.InpList(), "A|C|B");
  EXPECT_EQ(form.Tag(), "1");
}

TEST_F(frmModifyListTest, CancelAfterChangesKeepsTheListText) {
  Show("A|B", [](UserAtForm& hands) {
    hands.Type("txtInput", "C");
    hands.Click("ButAdd");
    hands.Click("ButCancel");
  });
  EXPECT_EQ(form.InpList(), "A|B");
  EXPECT_EQ(form.Tag(), "2");
}

TEST_F(frmModifyListTest, SaveAndCancelSignalBeforeTheyHide) {
  std::string tag;
  watching.hiding = [&](Form& hidden) { tag = hidden.Tag(); };
  Show("A", [](UserAtForm& hands) { hands.Click("ButSave"); });
  EXPECT_EQ(tag, "1");
  Show("A", Cancel);
  EXPECT_EQ(tag, "2");
}

TEST_F(frmModifyListTest, TheCloseBoxLeavesTheTagEmptyAndSavesThePlacement) {
  Show("A|B", [](UserAtForm& hands) { hands.CloseBox(); });
  EXPECT_EQ(form.Tag(), "");
  EXPECT_EQ(platform.registry.Dump().size(), 9u);
}

TEST_F(frmModifyListTest, ThePlacementIsSavedWhenTheHiddenFormIsUnloaded) {
  Show("A|B", [](UserAtForm& hands) { hands.Click("ButSave"); });
  EXPECT_TRUE(platform.registry.Dump().empty());
  form.Unload();
  EXPECT_EQ(platform.registry.Dump().count("Software\\CORVANE\\Vantix\\Windows settings\\frmModifyList\\WindowState"),
            1u);
}

TEST_F(frmModifyListTest, TabRunsAsOneReads) {
  Show("A", [&](UserAtForm& hands) {
    EXPECT_EQ(tests::NamesOf(form.TabOrder()),
              (Names{"txtInput", "ButAdd", "lstParametr", "ButDelete", "ButUp", "ButDown", "ButSave", "ButCancel"}));
    EXPECT_EQ(tests::NamelessControls(form), "");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, AccessKeysAreUniqueAndInTheCaptions) {
  Show("A", [&](UserAtForm& hands) {
    EXPECT_EQ(tests::AccessKeyFaults(form), "");
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, NothingOverlapsAtAnyScaleOrSize) {
  for (const int dpi : {96, 120, 144, 192}) {
    platform.toolkit.dpi = dpi;
    frmModifyList fresh(platform.toolkit);
    fresh.frmAppSettings(mGlobal::AppSettings);
    user().ExpectForm("frmModifyList", [&](UserAtForm& hands) {
      EXPECT_EQ(tests::LayoutFaults(fresh), "") << dpi;
      hands.Resize({900, 700});
      EXPECT_EQ(tests::LayoutFaults(fresh), "") << dpi;
      hands.Resize({10, 10});
      EXPECT_EQ(tests::LayoutFaults(fresh), "") << dpi;
      Cancel(hands);
    });
    fresh.Show();
  }
}

TEST_F(frmModifyListTest, TheListTakesTheRoomOfAnEnlargedWindow) {
  frmModifyList fresh(platform.toolkit);
  fresh.frmAppSettings(mGlobal::AppSettings);
  user().ExpectForm("frmModifyList", [&](UserAtForm& hands) {
    const auto before = fresh.lstParametr.Bounds();
    const auto button = fresh.ButSave.Bounds();
    hands.Resize({900, 700});
    EXPECT_GT(fresh.lstParametr.Bounds().Height(), before.Height());
    EXPECT_GT(fresh.lstParametr.Bounds().Width(), before.Width());
    EXPECT_EQ(fresh.ButSave.Bounds().Height(), button.Height());
    Cancel(hands);
  });
  fresh.Show();
}

TEST_F(frmModifyListTest, EnterAddsWhatIsTypedAndSavesWhenNothingIs) {
  Show("A", [&](UserAtForm& hands) {
    hands.TypeHere("B");
    hands.PressEnter();
    EXPECT_TRUE(form.Shown());
    hands.TypeHere("C");
    hands.PressEnter();
    hands.PressEnter();
  });
  EXPECT_EQ(form.Tag(), "1");
  EXPECT_EQ(form.InpList(), "A|B|C");
}

TEST_F(frmModifyListTest, EnterOnAnEntryThatIsThereSelectsTheTypedTextToBeTypedOver) {
  Show("A", [&](UserAtForm& hands) {
    hands.TypeHere("a");
    hands.PressEnter();
    EXPECT_TRUE(form.Shown());
    EXPECT_TRUE(form.txtInput.AllSelected());
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, TheListIsEditedByKeysAlone) {
  Show("A|B|C", [&](UserAtForm& hands) {
    hands.PressAccessKey('E');
    hands.PressKey({Key::Down});
    hands.PressKey({Key::Down, true});
    EXPECT_EQ(Entries(), (Names{"B", "A", "C"}));
    hands.PressKey({.key = Key::Down, .alt = true});
    EXPECT_EQ(Entries(), (Names{"B", "C", "A"}));
    hands.PressKey({Key::Up, true});
    EXPECT_EQ(Entries(), (Names{"B", "A", "C"}));
    hands.PressKey({Key::Delete});
    EXPECT_EQ(Entries(), (Names{"B", "C"}));
    hands.PressEnter();
  });
  EXPECT_EQ(form.InpList(), "B|C");
}

TEST_F(frmModifyListTest, DeleteInTheInputBoxLeavesTheListAlone) {
  Show("A|B", [&](UserAtForm& hands) {
    hands.Choose("lstParametr", "A");
    form.txtInput.SetFocus();
    hands.PressKey({Key::Delete});
    EXPECT_EQ(Entries(), (Names{"A", "B"}));
    Cancel(hands);
  });
}

TEST_F(frmModifyListTest, EscapeCancels) {
  Show("A", [](UserAtForm& hands) { hands.PressEscape(); });
  EXPECT_EQ(form.Tag(), "2");
}

TEST_F(frmModifyListTest, EveryRoutineIsReportedUnderItsQualifiedName) {
  TraceRoutines();
  Show("A|B", [](UserAtForm& hands) {
    hands.Type("txtInput", "C");
    for (const char* button : {"ButAdd", "ButUp", "ButDown", "ButDelete", "ButSave"}) hands.Click(button);
  });
  form.Unload();
  form.InpList();
  Show("A", Cancel);
  const std::string prefix = "Pellora.frmModifyList.";
  Names expected;
  for (const char* routine :
       {"InpList", "Form_Load", "Form_Activate", "ButAdd_Click", "ButUp_Click", "ButDown_Click", "ButDelete_Click",
        "ButSave_Click", "Form_Unload", "InpList", "InpList", "Form_Load", "Form_Activate", "ButCancel_Click"})
    expected.push_back(prefix + routine);
  EXPECT_EQ(RoutinesEntered(), expected);
}

TEST_F(frmModifyListTest, WithoutAStoreTheFailureIsReportedAndTheListCanStillBeEdited) {
  frmModifyList orphan(platform.toolkit);
  orphan.InpList("A");
  user().ExpectErrorDialog("btnAbort");
  user().ExpectForm("frmModifyList", [](UserAtForm& hands) { hands.Click("ButSave"); });
  orphan.Show();
  EXPECT_EQ(orphan.InpList(), "A");
  EXPECT_NE(Find(user().ErrorTexts().at(0), "in Pellora.frmModifyList.Form_Load at line"), std::string::npos);
}

class frmModifyListFailures : public frmModifyListTest {
 protected:
  /// Plays `part` in the dialog, which has two entries, and ignores the failures it meets; answers how many were
  /// reported in that routine.
  int Failures(const std::string& routine, std::function<void(UserAtForm&)> part) {
    user().AnswerErrorDialogs("btnIgnore");
    Show("A|B", std::move(part));
    int count = 0;
    for (const auto& text : user().ErrorTexts())
      count += Find(text, "in Pellora.frmModifyList." + routine + " at line") != std::string::npos;
    return count;
  }

  /// The same for a button that meets a list box that refuses every change.
  int FailuresOf(const std::string& button) {
    return Failures(button + "_Click", [&](UserAtForm& hands) {
      hands.Choose("lstParametr", button == "ButUp" ? "B" : "A");
      hands.Type("txtInput", "C");
      tests::Refuse(form.lstParametr);
      hands.Click(button);
      EXPECT_TRUE(form.Shown());
      Cancel(hands);
    });
  }
};

TEST_F(frmModifyListFailures, ButAdd_ClickStaysInside) { EXPECT_GT(FailuresOf("ButAdd"), 0); }
TEST_F(frmModifyListFailures, ButDelete_ClickStaysInside) { EXPECT_GT(FailuresOf("ButDelete"), 0); }
TEST_F(frmModifyListFailures, ButUp_ClickStaysInside) { EXPECT_GT(FailuresOf("ButUp"), 0); }
TEST_F(frmModifyListFailures, ButDown_ClickStaysInside) { EXPECT_GT(FailuresOf("ButDown"), 0); }

TEST_F(frmModifyListFailures, ButSave_ClickStaysInside) {
  EXPECT_EQ(Failures("ButSave_Click",
                     [&](UserAtForm& hands) {
                       watching.RefuseToHideOnce("frmModifyList");
                       hands.Click("ButSave");
                     }),
            1);
  EXPECT_EQ(form.Tag(), "1");
}

TEST_F(frmModifyListFailures, ButCancel_ClickStaysInside) {
  EXPECT_EQ(Failures("ButCancel_Click",
                     [&](UserAtForm& hands) {
                       watching.RefuseToHideOnce("frmModifyList");
                       Cancel(hands);
                     }),
            1);
  EXPECT_EQ(form.Tag(), "2");
}

TEST_F(frmModifyListFailures, Form_ActivateStaysInside) {
  EXPECT_EQ(Failures("Form_Activate",
                     [&](UserAtForm& hands) {
                       tests::Refuse(form.lstParametr);
                       form.InpList("C");
                       form.PeerActivate();
                       EXPECT_EQ(Entries(), Names{"C"});
                       Cancel(hands);
                     }),
            2);
}

TEST_F(frmModifyListFailures, Form_UnloadStaysInside) {
  EXPECT_EQ(Failures("Form_Unload",
                     [&](UserAtForm& hands) {
                       platform.registry.refuseWrites = 5;
                       hands.CloseBox();
                     }),
            1);
}

}  // namespace
}  // namespace pellora
