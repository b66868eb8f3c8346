// One call at a time in the whole process: what a call meets while another one, of whichever object, is under way.

#include <memory>

#include "forms/CheckBox.h"
#include "tests/Watching.h"
#include "tests/automation/AutomationTest.h"
#include "workbook/Host.h"

namespace pellora {
namespace {

using headless::UserAtForm;
using tests::ExpectComponentFailure;
using tests::JunkContract;
using tests::kJunkFields;
using Names = std::vector<std::string>;

class cPelloraCalls : public tests::AutomationTest {
 protected:
  // Shows the first object's dialog of a new project, plays the part in it and cancels it.
  void DuringADialog(std::function<void()> part) {
    AtForm("frmNewProject", [part](UserAtForm& user) {
      part();
      user.Click("ButCancel");
    });
    QuoteFields fields;
    object.CreateNewProject(fields);
  }

  cPellora object;
};

TEST_F(cPelloraCalls, ASecondObjectsMethodsAreRefusedWhileADialogIsOpen) {
  cPellora second;
  DuringADialog([&] {
    QuoteFields fields = kJunkFields;
    ContractRecord contract = JunkContract(3);
    ExpectComponentFailure([&] { second.CreateNewProject(fields); }, "Pellora.cPellora.CreateNewProject");
    ExpectComponentFailure([&] { second.AddNewSymbol(contract); }, "Pellora.cPellora.AddNewSymbol");
    ExpectComponentFailure([&] { second.ShowRefEditInterface(); }, "Pellora.cPellora.ShowRefEditInterface");
    ExpectComponentFailure([&] { second.UnloadfrmMaster(); }, "Pellora.cPellora.UnloadfrmMaster");
    EXPECT_EQ(fields, kJunkFields);
    EXPECT_EQ(contract, JunkContract(3));
  });
}

TEST_F(cPelloraCalls, ASecondObjectsCallBringsTheOpenDialogForward) {
  cPellora second;
  DuringADialog([&] { ExpectComponentFailure([&] { second.UnloadfrmMaster(); }, "Pellora.cPellora.UnloadfrmMaster"); });
  EXPECT_EQ(platform.toolkit.broughtToFront, Names{"frmNewProject"});
}

TEST_F(cPelloraCalls, ASecondObjectIsAcceptedOnceTheDialogIsClosed) {
  cPellora second;
  DuringADialog([] {});
  EXPECT_NO_THROW(second.UnloadfrmMaster());
}

TEST_F(cPelloraCalls, AnEditorOverADialogComesForwardInItsPlace) {
  AtForm("frmAddTicker", [](UserAtForm& user) {
    user.Click("ButSTKExchange");
    user.Click("ButCancel");
  });
  AtForm("frmModifyList", [&](UserAtForm& user) {
    ExpectComponentFailure([&] { object.UnloadfrmMaster(); }, "Pellora.cPellora.UnloadfrmMaster");
    user.Click("ButCancel");
  });
  ContractRecord contract;
  object.AddNewSymbol(contract);
  EXPECT_EQ(platform.toolkit.broughtToFront, Names{"frmModifyList"});
}

TEST_F(cPelloraCalls, TheDialogItselfComesForwardAgainAfterItsEditorHasClosed) {
  AtForm("frmAddTicker", [&](UserAtForm& user) {
    user.Click("ButSTKExchange");
    ExpectComponentFailure([&] { object.UnloadfrmMaster(); }, "Pellora.cPellora.UnloadfrmMaster");
    user.Click("ButCancel");
  });
  AtForm("frmModifyList", [](UserAtForm& user) { user.Click("ButCancel"); });
  ContractRecord contract;
  object.AddNewSymbol(contract);
  EXPECT_EQ(platform.toolkit.broughtToFront, Names{"frmAddTicker"});
}

TEST_F(cPelloraCalls, AnErrorReportedBeforeTheDialogIsUpComesForward) {
  AtForm("frmErrorMessage", [&](UserAtForm& user) {
    platform.toolkit.broughtToFront.clear();
    ExpectComponentFailure([&] { object.UnloadfrmMaster(); }, "Pellora.cPellora.UnloadfrmMaster");
    user.Click("btnAbort");
  });
  AtForm("frmAddTicker", [](UserAtForm& user) { user.Click("ButCancel"); });
  // A type that does not exist is reported while the dialog is filled.
  ContractRecord contract = JunkContract(6);
  object.AddNewSymbol(contract);
  EXPECT_EQ(platform.toolkit.broughtToFront, Names{"frmErrorMessage"});
}

TEST_F(cPelloraCalls, ASecondObjectIsRefusedUnderAnErrorThatAPropertyReports) {
  workbook::Host host;
  object.ExcelApplication(Variant(host.Application()));
  platform.user().AnswerErrorDialogs("btnIgnore");
  AtForm("frmAddRibbon", [](UserAtForm& user) { user.Click("ButCancel"); });
  object.ShowRefEditInterface();
  platform.user().AnswerErrorDialogs("");
  cPellora second;
  AtForm("frmErrorMessage", [&](UserAtForm& user) {
    ExpectComponentFailure([&] { second.UnloadfrmMaster(); }, "Pellora.cPellora.UnloadfrmMaster");
    user.Click("btnAbort");
  });
  // The last column has no room for a tape of two.
  object.RefEditInputs("Sheet1!XFD1");
}

TEST_F(cPelloraCalls, AnObjectIsMadeAndReleasedWhileADialogIsOpen) {
  DuringADialog([] { EXPECT_NO_THROW(cPellora()); });
}

TEST_F(cPelloraCalls, ADialogReportsItsErrorsAfterAnotherObjectWasMadeAndReleasedDuringIt) {
  tests::WatchingToolkit watching(platform.toolkit);
  Platform watched{watching, platform.registry, platform.shell, platform.clock, platform.eventLog, platform.logFiles,
                   {}};
  mGlobal::InstallPlatform(&watched);
  AtForm("frmNewProject", [&](UserAtForm& user) {
    { cPellora other; }
    user.Click("chkVolume");
    watching.RefuseToHideOnce("frmNewProject");
    user.Click("ButCreateProject");
  });
  platform.user().ExpectErrorDialog("btnIgnore");
  QuoteFields fields;
  object.CreateNewProject(fields);
  mGlobal::InstallPlatform(&platform.platform);
}

TEST_F(cPelloraCalls, TheServicesOfACallAreGoneWithItsObject) {
  auto last = std::make_unique<cPellora>();
  AtForm("frmNewProject", [](UserAtForm& user) {
    { cPellora other; }
    user.Click("ButCancel");
  });
  QuoteFields fields;
  last->CreateNewProject(fields);
  last.reset();
  EXPECT_FALSE(mGlobal::ErrorHandler);
  EXPECT_FALSE(mGlobal::AppSettings);
  EXPECT_FALSE(mGlobal::Call::ErrorHandler());
}

TEST_F(cPelloraCalls, NothingIsUnderWayAfterACallThatFailed) {
  cPellora second;
  mGlobal::InstallPlatform(nullptr);
  QuoteFields fields;
  ExpectComponentFailure([&] { object.CreateNewProject(fields); }, "Pellora.cPellora.CreateNewProject");
  mGlobal::InstallPlatform(&platform.platform);
  EXPECT_FALSE(mGlobal::Call::UnderWay());
  EXPECT_NO_THROW(second.UnloadfrmMaster());
}

}  // namespace
}  // namespace pellora
