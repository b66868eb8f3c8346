// What the contract dialog does when something below it fails: every failure is reported under its routine, and none
// leaves an event handler.

#include "core/Error.h"
#include "tests/Watching.h"
#include "tests/contract/ContractDialog.h"

namespace pellora {
namespace {

using tests::Cancel;
using tests::ContractDialog;
using tests::Refuse;
using tests::UserAtForm;

class frmAddTickerFailures : public ContractDialog {
 protected:
  frmAddTickerFailures() { toolkit = &watching; }

  /// How many failures were reported in that routine.
  int ReportedIn(const std::string& routine) {
    int count = 0;
    for (const auto& text : user().ErrorTexts())
      count += Find(text, "in Pellora.frmAddTicker." + routine + " at line") != std::string::npos;
    return count;
  }

  tests::WatchingToolkit watching{platform.toolkit};
};

TEST_F(frmAddTickerFailures, WithoutAStoreEveryFailureIsReportedAndTheDialogStillOpens) {
  user().AnswerErrorDialogs("btnIgnore");
  frmAddTicker orphan(platform.toolkit);
  user().ExpectForm("frmAddTicker", [&](UserAtForm& hands) {
    EXPECT_EQ(orphan.ComType.Text(), "Stock");
    EXPECT_EQ(hands.FocusedName(), "txtSTKSymbol");
    Cancel(hands);
  });
  orphan.Show();
  EXPECT_EQ(orphan.Tag(), "2");
  EXPECT_NE(Find(user().ErrorTexts().at(0), "Invalid AppSettings object"), std::string::npos);
}

TEST_F(frmAddTickerFailures, ARefusedWriteIsReportedAndIgnoringItStillInserts) {
  Show(kIndex, [&](UserAtForm& hands) {
    hands.Type("txtINDSymbol", "XYZ");
    platform.registry.refuseWrites = 5;
    user().AnswerErrorDialogs("btnIgnore");
    hands.Click("ButInsert");
  });
  EXPECT_EQ(form->Tag(), "1");
  EXPECT_EQ(user().ErrorTexts().size(), 5u) << "four choices and the placement";
  EXPECT_NE(Find(user().ErrorTexts().at(0), "Failed saving the application setting"), std::string::npos);
  EXPECT_NE(Find(user().ErrorTexts().at(0), "in Pellora.frmAddTicker.SaveParamert at line"), std::string::npos);
}

TEST_F(frmAddTickerFailures, ARefusedWriteThatIsTriedAgainIsMadeOnce) {
  Show(
      kIndex,
      [&](UserAtForm& hands) {
        hands.Type("txtINDSymbol", "XYZ");
        platform.registry.refuseWrites = 5;
        hands.Click("ButInsert");
      },
      [&] {
        user().ExpectForm("frmErrorMessage", [&](UserAtForm& hands) {
          platform.registry.refuseWrites = 0;
          hands.Click("btnRetry");
        });
      });
  EXPECT_EQ(form->Tag(), "1");
  EXPECT_EQ(StoredChoices().size(), 4u);
}

// Abort leaves the routine that failed and no other: saving is left, then keeping the placement fails in its turn.
TEST_F(frmAddTickerFailures, AbortingEveryRefusedWriteLeavesTheDialogOpen) {
  Show(kIndex, [&](UserAtForm& hands) {
    hands.Type("txtINDSymbol", "XYZ");
    platform.registry.refuseWrites = 5;
    user().AnswerErrorDialogs("btnAbort");
    hands.Click("ButInsert");
    EXPECT_TRUE(form->Shown());
    EXPECT_EQ(form->Tag(), "");
    Cancel(hands);
  });
  ASSERT_EQ(user().ErrorTexts().size(), 2u);
  EXPECT_NE(Find(user().ErrorTexts().at(1), "CFormRestore"), std::string::npos);
}

TEST_F(frmAddTickerFailures, Form_LoadWithATypeThatDoesNotExistStaysInside) {
  user().AnswerErrorDialogs("btnAbort");
  Show(6, Cancel);
  EXPECT_EQ(ReportedIn("Form_Load"), 1);
  EXPECT_NE(Find(user().ErrorTexts().at(0), "Error: 380, (Invalid property value)"), std::string::npos);
}

TEST_F(frmAddTickerFailures, ComType_ClickStaysInside) {
  Show(
      kStock,
      [&](UserAtForm& hands) {
        Refuse(form->CIndexType);
        hands.Choose("ComType", "Cash");
        EXPECT_TRUE(form->Shown());
        Cancel(hands);
      },
      [&] { user().ExpectErrorDialog("btnAbort"); });
  EXPECT_EQ(ReportedIn("ComType_Click"), 1);
}

TEST_F(frmAddTickerFailures, ButInsert_ClickStaysInside) {
  Show(
      kCash,
      [&](UserAtForm& hands) {
        hands.Type("txtCASHSymbol", "EUR");
        watching.RefuseToHideOnce("frmAddTicker");
        hands.Click("ButInsert");
      },
      [&] { user().ExpectErrorDialog("btnAbort"); });
  EXPECT_EQ(ReportedIn("ButInsert_Click"), 1);
  EXPECT_EQ(form->Tag(), "") << "an aborted insert is none";
}

TEST_F(frmAddTickerFailures, ButInsertNew_ClickStaysInside) {
  Show(
      kCash,
      [&](UserAtForm& hands) {
        hands.Type("txtCASHSymbol", "EUR");
        watching.RefuseToHideOnce("frmAddTicker");
        hands.Click("ButInsertNew");
      },
      [&] { user().ExpectErrorDialog("btnIgnore"); });
  EXPECT_EQ(ReportedIn("ButInsertNew_Click"), 1);
  EXPECT_EQ(form->Tag(), "4");
}

TEST_F(frmAddTickerFailures, ButCancel_ClickStaysInside) {
  Show(
      kCash,
      [&](UserAtForm& hands) {
        watching.RefuseToHideOnce("frmAddTicker");
        Cancel(hands);
      },
      [&] { user().ExpectErrorDialog("btnAbort"); });
  EXPECT_EQ(ReportedIn("ButCancel_Click"), 1);
  EXPECT_EQ(form->Tag(), "2");
}

TEST_F(frmAddTickerFailures, EachListButtonStaysInsideWhenTheEditorCannotBeMade) {
  watching.making = [](Form& made) {
    if (made.Name() == "frmModifyList") throw Error(errors::OutOfMemory);
  };
  user().AnswerErrorDialogs("btnAbort");
  for (std::size_t index = 0; index < kSecurityTypes.size(); ++index) {
    const auto& type = kSecurityTypes[index];
    Show(static_cast<int>(index), [&](UserAtForm& hands) {
      hands.Click(((*form).*type.exchangeButton.button).Name());
      hands.Click(((*form).*type.currencyButton.button).Name());
      EXPECT_TRUE(form->Shown());
      Cancel(hands);
    });
  }
  EXPECT_EQ(ReportedIn("RunfrmModifyList"), 12);
}

TEST_F(frmAddTickerFailures, LoadParamertStaysInside) {
  frmAddTicker orphan(platform.toolkit);
  user().ExpectErrorDialog("btnAbort");
  EXPECT_NO_THROW(orphan.LoadParamert());
  EXPECT_EQ(ReportedIn("LoadParamert"), 1);
}

TEST_F(frmAddTickerFailures, SaveParamertStaysInside) {
  Show(
      kCash,
      [&](UserAtForm& hands) {
        platform.registry.refuseWrites = 5;
        EXPECT_NO_THROW(form->SaveParamert());
        Cancel(hands);
      },
      [&] { user().ExpectErrorDialog("btnAbort"); });
  EXPECT_EQ(ReportedIn("SaveParamert"), 1);
}

TEST_F(frmAddTickerFailures, Add_ComboboxStaysInside) {
  frmAddTicker dialog(platform.toolkit);
  Refuse(dialog.ComSTKExchange);
  user().ExpectErrorDialog("btnAbort");
  EXPECT_NO_THROW(dialog.Add_Combobox(dialog.ComSTKExchange, "A|B"));
  EXPECT_EQ(ReportedIn("Add_Combobox"), 1);
}

TEST_F(frmAddTickerFailures, RunfrmModifyListStaysInsideWhenTheListCannotBeRefilled) {
  Show(
      kStock,
      [&](UserAtForm& hands) {
        Refuse(form->ComSTKExchange);
        EXPECT_NO_THROW(form->RunfrmModifyList(form->ComSTKExchange, "Edit"));
        Cancel(hands);
      },
      [&] {
        user().ExpectForm("frmModifyList", [](UserAtForm& hands) { hands.Click("ButSave"); });
        user().ExpectErrorDialog("btnAbort");
      });
  EXPECT_EQ(ReportedIn("Add_Combobox"), 1);
}

TEST_F(frmAddTickerFailures, CheckParametrAnswersFalseAfterAnIgnoredFailureToo) {
  bool passed = true;
  Show(
      kCash,
      [&](UserAtForm& hands) {
        Refuse(form->txtCASHSymbol);
        EXPECT_NO_THROW(passed = form->CheckParametr());
        Cancel(hands);
      },
      [&] {
        user().ExpectMessage("Please fill in the 'Ticker' field ");
        user().ExpectErrorDialog("btnIgnore");  // the focus
        user().ExpectErrorDialog("btnIgnore");  // the selection
      });
  EXPECT_FALSE(passed);
  EXPECT_EQ(ReportedIn("CheckParametr"), 2);
}

}  // namespace
}  // namespace pellora
