// What the automation class does when a method fails, and what does not make it fail: the dialogs' own failures are
// reported to the user and stay inside.

#include <optional>

#include "core/TextServices.h"
#include "forms/TextBox.h"
#include "tests/Watching.h"
#include "tests/automation/AutomationTest.h"
#include "workbook/Host.h"

namespace pellora {
namespace {

using headless::UserAtForm;
using tests::ExpectComponentFailure;
using tests::JunkContract;
using tests::kJunkFields;

/// Text services to which no text is a number; the rest is as usual.
class NoNumbers : public TextServices {
 public:
  std::string Upper(std::string_view text) const override { return m_usual.Upper(text); }
  std::optional<double> ParseNumber(std::string_view) const override { return std::nullopt; }
  std::string NumberText(double value) const override { return m_usual.NumberText(value); }
  std::optional<double> ParseDate(std::string_view text) const override { return m_usual.ParseDate(text); }
  std::string DateText(double days) const override { return m_usual.DateText(days); }
  std::string ShortDate(double days) const override { return m_usual.ShortDate(days); }
  std::string LongTime(double days) const override { return m_usual.LongTime(days); }
  std::string ToSystemCodePage(std::string_view text) const override { return m_usual.ToSystemCodePage(text); }
  std::string FromSystemCodePage(std::string_view bytes) const override { return m_usual.FromSystemCodePage(bytes); }

 private:
  const TextServices& m_usual = PortableTextServices();
};

class cPelloraFailures : public tests::AutomationTest {
 protected:
  cPelloraFailures() { mGlobal::InstallPlatform(&watched); }

  bool Reported(const std::string& routine) {
    for (const auto& text : platform.user().ErrorTexts())
      if (text.find("in Pellora." + routine + " at line") != std::string::npos) return true;
    return false;
  }

  tests::WatchingToolkit watching{platform.toolkit};
  Platform watched{watching, platform.registry, platform.shell, platform.clock, platform.eventLog, platform.logFiles,
                   {}};
};

TEST_F(cPelloraFailures, WithoutAPlatformTheMethodsRaiseTheClassesError) {
  cPellora object;
  mGlobal::InstallPlatform(nullptr);
  QuoteFields fields;
  ContractRecord contract;
  ExpectComponentFailure([&] { object.CreateNewProject(fields); }, "Pellora.cPellora.CreateNewProject");
  ExpectComponentFailure([&] { object.AddNewSymbol(contract); }, "Pellora.cPellora.AddNewSymbol");
  ExpectComponentFailure([&] { object.ShowRefEditInterface(); }, "Pellora.cPellora.ShowRefEditInterface");
  mGlobal::InstallPlatform(&watched);
}

TEST_F(cPelloraFailures, FailingInitialisationIsRaisedToTheCreator) {
  mGlobal::InstallPlatform(nullptr);
  ExpectComponentFailure([&] { cPellora object; }, "Pellora.cPellora.Class_Initialize");
  mGlobal::InstallPlatform(&watched);
}

TEST_F(cPelloraFailures, ACallWhileADialogIsOpenIsRefusedAndTheDialogGoesOn) {
  cPellora object;
  AtForm("frmNewProject", [&](UserAtForm& user) {
    QuoteFields fields;
    ExpectComponentFailure([&] { object.CreateNewProject(fields); }, "Pellora.cPellora.CreateNewProject");
    ExpectComponentFailure([&] { object.UnloadfrmMaster(); }, "Pellora.cPellora.UnloadfrmMaster");
    user.Click("chkVolume");
    user.Click("ButCreateProject");
  });
  QuoteFields fields;
  EXPECT_TRUE(object.CreateNewProject(fields));
}

TEST_F(cPelloraFailures, AddNewSymbolWithoutAPlatformLeavesTheContractAlone) {
  cPellora object;
  mGlobal::InstallPlatform(nullptr);
  ContractRecord contract = JunkContract(3);
  ExpectComponentFailure([&] { object.AddNewSymbol(contract); }, "Pellora.cPellora.AddNewSymbol");
  EXPECT_EQ(contract, JunkContract(3));
  mGlobal::InstallPlatform(&watched);
}

TEST_F(cPelloraFailures, AddNewSymbolWhileADialogIsOpenLeavesTheContractAlone) {
  cPellora object;
  ContractRecord contract = JunkContract(3);
  AtForm("frmNewProject", [&](UserAtForm& user) {
    ExpectComponentFailure([&] { object.AddNewSymbol(contract); }, "Pellora.cPellora.AddNewSymbol");
    user.Click("ButCancel");
  });
  QuoteFields fields;
  object.CreateNewProject(fields);
  EXPECT_EQ(contract, JunkContract(3));
}

TEST_F(cPelloraFailures, AddNewSymbolWhoseWindowCannotBeMadeFailsWithTheContractCleared) {
  cPellora object;
  ContractRecord contract = JunkContract(3);
  watching.making = [](Form&) { throw Error(errors::OutOfMemory); };
  ExpectComponentFailure([&] { object.AddNewSymbol(contract); }, "Pellora.cPellora.AddNewSymbol");
  EXPECT_EQ(contract, (ContractRecord{"", "", "", 0, "", 0, "", "", "", 3}));
}

TEST_F(cPelloraFailures, AMultiplierThatDoesNotConvertFailsAfterTheDialogWithTheRestFilled) {
  cPellora object;
  const NoNumbers noNumbers;
  ContractRecord contract = JunkContract(0);
  AtForm("frmAddTicker", [&](UserAtForm& user) {
    user.Choose("ComType", "Option");
    user.Type("txtOPTSymbol", "XYZ");
    user.Click("ButInsert");
    // The dialog's check has passed. The user's locale changes before the method reads the text.
    InstallTextServices(&noNumbers);
  });
  ExpectComponentFailure([&] { object.AddNewSymbol(contract); }, "Pellora.cPellora.AddNewSymbol");
  EXPECT_EQ(contract, (ContractRecord{"XYZ", "OPT", "200801", 0, "PUT", 0, "SMART", "", "USD", 1}));
  InstallTextServices(&PortableTextServices());
}

TEST_F(cPelloraFailures, AfterAFailedMethodTheNextCallWorks) {
  cPellora object;
  QuoteFields fields = kJunkFields;
  watching.making = [](Form&) { throw Error(errors::OutOfMemory); };
  ExpectComponentFailure([&] { object.CreateNewProject(fields); }, "Pellora.cPellora.CreateNewProject");
  EXPECT_EQ(fields, kJunkFields);
  watching.making = nullptr;
  AtForm("frmNewProject", [](UserAtForm& user) { user.Click("ButCancel"); });
  EXPECT_FALSE(object.CreateNewProject(fields));
}

TEST_F(cPelloraFailures, CreateNewProjectKeepsItsDialogsFailuresInside) {
  cPellora object;
  QuoteFields fields;
  AtForm("frmNewProject", [&](UserAtForm& user) {
    user.Click("chkVolume");
    watching.RefuseToHideOnce("frmNewProject");
    user.Click("ButCreateProject");
  });
  platform.user().ExpectErrorDialog("btnIgnore");
  EXPECT_TRUE(object.CreateNewProject(fields));
  EXPECT_TRUE(Reported("frmNewProject.ButCreateProject_Click"));
}

TEST_F(cPelloraFailures, AddNewSymbolKeepsItsDialogsFailuresInside) {
  cPellora object;
  ContractRecord contract = JunkContract(5);
  platform.registry.refuseWrites = 5;
  platform.user().AnswerErrorDialogs("btnIgnore");
  AtForm("frmAddTicker", [](UserAtForm& user) {
    user.Type("txtCASHSymbol", "EUR");
    user.Click("ButInsert");
  });
  EXPECT_EQ(object.AddNewSymbol(contract), 1);
  EXPECT_EQ(contract.Symbol, "EUR");
  EXPECT_TRUE(Reported("frmAddTicker.SaveParamert"));
}

TEST_F(cPelloraFailures, ShowRefEditInterfaceKeepsItsDialogsFailuresInside) {
  cPellora object;  // no spreadsheet application was handed over
  platform.user().AnswerErrorDialogs("btnAbort");
  AtForm("frmAddRibbon", [](UserAtForm& user) { user.CloseBox(); });
  EXPECT_EQ(object.ShowRefEditInterface(), "CLOSE");
  EXPECT_FALSE(platform.user().ErrorTexts().empty());
}

TEST_F(cPelloraFailures, UnloadfrmMasterKeepsItsDialogsFailuresInside) {
  workbook::Host host;
  cPellora object;
  object.ExcelApplication(Variant(host.Application()));
  platform.user().AnswerErrorDialogs("btnIgnore");
  AtForm("frmAddRibbon", [](UserAtForm& user) { user.form().Hide(); });
  object.ShowRefEditInterface();
  platform.registry.refuseWrites = 5;
  EXPECT_NO_THROW(object.UnloadfrmMaster());
  EXPECT_TRUE(Reported("frmAddRibbon.Form_QueryUnload"));
}

}  // namespace
}  // namespace pellora
