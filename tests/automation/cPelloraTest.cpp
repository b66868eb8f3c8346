#include "forms/CheckBox.h"
#include "forms/ComboBox.h"
#include "forms/CommandButton.h"
#include "forms/TextBox.h"
#include "tests/automation/AutomationTest.h"
#include "workbook/Host.h"

namespace pellora {
namespace {

using headless::UserAtForm;
using tests::Caught;
using tests::ExpectComponentFailure;
using tests::JunkContract;
using tests::kJunkFields;

class cPelloraTest : public tests::AutomationTest {};

// An object with the members it is told, and nothing behind them.
class Answering : public Dispatch {
 public:
  explicit Answering(std::string missing) : m_missing(std::move(missing)) {}
  Variant Invoke(std::string_view, CallKind, std::span<const Variant>) override { return {}; }
  bool Has(std::string_view name) override { return name != m_missing; }

 private:
  std::string m_missing;
};

TEST_F(cPelloraTest, CreatingItMakesTheSharedServicesWithTheirSettings) {
  cPellora object;
  ASSERT_TRUE(mGlobal::ErrorHandler);
  EXPECT_EQ(mGlobal::ErrorHandler->ErrorHandlerActions(), 8);
  EXPECT_EQ(mGlobal::ErrorHandler->ErrorLogFile(), "Error Log.txt");
  EXPECT_TRUE(mGlobal::ErrorHandler->CallStackEnabled());
  EXPECT_FALSE(mGlobal::ErrorHandler->TracingEnabled());
  EXPECT_EQ(mGlobal::ErrorHandler->TracingFlags(), 2);
  EXPECT_EQ(mGlobal::ErrorHandler->TracingLogFile(), "Tracing Log.txt");
  EXPECT_EQ(mGlobal::ErrorHandler->SupportMail(), "");
  ASSERT_TRUE(mGlobal::AppSettings);
  EXPECT_EQ(mGlobal::AppSettings->CompanyName(), "CORVANE");
  EXPECT_EQ(mGlobal::AppSettings->AppName(), "Vantix");
}

TEST_F(cPelloraTest, ReleasingItReleasesTheSharedServices) {
  { cPellora object; }
  EXPECT_FALSE(mGlobal::ErrorHandler);
  EXPECT_FALSE(mGlobal::AppSettings);
}

TEST_F(cPelloraTest, ASecondObjectReplacesTheSharedServices) {
  cPellora first;
  const auto* handler = mGlobal::ErrorHandler.get();
  cPellora second;
  EXPECT_NE(mGlobal::ErrorHandler.get(), handler);
}

TEST_F(cPelloraTest, AnObjectWorksOnAfterALaterOneWasReleased) {
  cPellora first;
  { cPellora second; }
  AtForm("frmNewProject", [](UserAtForm& user) { user.Click("ButCancel"); });
  QuoteFields fields;
  EXPECT_FALSE(first.CreateNewProject(fields));
  EXPECT_TRUE(mGlobal::ErrorHandler);
}

TEST_F(cPelloraTest, ReplacingAnObjectKeepsTheNewOnesServices) {
  auto object = std::make_unique<cPellora>();
  object = std::make_unique<cPellora>();
  EXPECT_TRUE(mGlobal::ErrorHandler);
}

TEST_F(cPelloraTest, ExcelApplicationAcceptsWhateverAnswersTheMembersInUse) {
  cPellora object;
  const DispatchPtr application = std::make_shared<Answering>("");
  object.ExcelApplication(Variant(application));
  EXPECT_EQ(object.ExcelApplication(), application);
  EXPECT_EQ(object.m_ObjExcelApplication(), application);
}

TEST_F(cPelloraTest, TheFieldAndThePropertyAreTheSame) {
  cPellora object;
  const DispatchPtr application = std::make_shared<Answering>("");
  object.m_ObjExcelApplication(Variant(application));
  EXPECT_EQ(object.ExcelApplication(), application);
}

TEST_F(cPelloraTest, ExcelApplicationCanBeSetToNothing) {
  cPellora object;
  object.ExcelApplication(Variant(DispatchPtr(std::make_shared<Answering>(""))));
  object.ExcelApplication(Variant(DispatchPtr()));
  EXPECT_EQ(object.ExcelApplication(), nullptr);
}

TEST_F(cPelloraTest, AnythingElseAsApplicationIsTypeMismatchAndKeepsTheOldOne) {
  cPellora object;
  const DispatchPtr application = std::make_shared<Answering>("");
  object.ExcelApplication(Variant(application));
  for (const char* member :
       {"Range", "Intersect", "Columns", "ActiveSheet", "ActiveWorkbook", "Worksheets", "ScreenUpdating"})
    EXPECT_EQ(
        Caught([&] { object.ExcelApplication(Variant(DispatchPtr(std::make_shared<Answering>(member)))); }).Number(),
        13)
        << member;
  for (const Variant& value : {Variant(), Variant::Null(), Variant("Excel"), Variant(5), Variant::Missing()})
    EXPECT_EQ(Caught([&] { object.ExcelApplication(value); }).Number(), 13);
  EXPECT_EQ(object.ExcelApplication(), application);
}

TEST_F(cPelloraTest, RefEditInputsBeforeTheTapeDialogExistsFailsAsItIs) {
  cPellora object;
  EXPECT_EQ(Caught([&] { object.RefEditInputs(); }).Number(), 91);
  EXPECT_EQ(Caught([&] { object.RefEditInputs("Desk!B3"); }).Number(), 91);
}

TEST_F(cPelloraTest, UnloadfrmMasterBeforeAnyShowingDoesNothing) {
  cPellora object;
  EXPECT_NO_THROW(object.UnloadfrmMaster());
}

TEST_F(cPelloraTest, CreateNewProjectCancelledLeavesTheArgumentsAlone) {
  cPellora object;
  QuoteFields fields = kJunkFields;
  AtForm("frmNewProject", [](UserAtForm& user) {
    user.Click("chkVolume");
    user.Click("ButCancel");
  });
  EXPECT_FALSE(object.CreateNewProject(fields));
  EXPECT_EQ(fields, kJunkFields);
}

TEST_F(cPelloraTest, CreateNewProjectClosedByTheTitleBarLeavesTheArgumentsAlone) {
  cPellora object;
  QuoteFields fields = kJunkFields;
  AtForm("frmNewProject", [](UserAtForm& user) { user.CloseBox(); });
  EXPECT_FALSE(object.CreateNewProject(fields));
  EXPECT_EQ(fields, kJunkFields);
}

TEST_F(cPelloraTest, CreateNewProjectWithOnlyVolumeTicked) {
  cPellora object;
  QuoteFields fields = kJunkFields;
  AtForm("frmNewProject", [](UserAtForm& user) {
    user.Click("chkVolume");
    user.Click("ButCreateProject");
  });
  EXPECT_TRUE(object.CreateNewProject(fields));
  QuoteFields expected;
  expected.Volume = 1;
  EXPECT_EQ(fields, expected);
}

TEST_F(cPelloraTest, AGreyedBoxComesThroughAsTwo) {
  cPellora object;
  QuoteFields fields = kJunkFields;
  AtForm("frmNewProject", [](UserAtForm& user) {
    user.Get<CheckBox>("chkVolume").Value(2);
    user.Click("ButCreateProject");
  });
  EXPECT_TRUE(object.CreateNewProject(fields));
  QuoteFields expected;
  expected.Volume = 2;
  EXPECT_EQ(fields, expected);
}

TEST_F(cPelloraTest, CreateNewProjectStartsWithNothingTickedEveryTime) {
  cPellora object;
  QuoteFields fields;
  AtForm("frmNewProject", [](UserAtForm& user) {
    user.Click("ButCheckAll");
    user.Click("ButCreateProject");
  });
  EXPECT_TRUE(object.CreateNewProject(fields));
  AtForm("frmNewProject", [](UserAtForm& user) {
    user.Click("chkLow");
    user.Click("ButCreateProject");
  });
  EXPECT_TRUE(object.CreateNewProject(fields));
  QuoteFields expected;
  expected.LowTick = 1;
  EXPECT_EQ(fields, expected);
}

struct BoxField {
  const char* box;
  std::int16_t QuoteFields::*field;
};

class EachQuoteField : public cPelloraTest, public testing::WithParamInterface<BoxField> {};

TEST_P(EachQuoteField, ComesFromItsOwnBox) {
  cPellora object;
  QuoteFields fields = kJunkFields;
  AtForm("frmNewProject", [](UserAtForm& user) {
    user.Click(GetParam().box);
    user.Click("ButCreateProject");
  });
  EXPECT_TRUE(object.CreateNewProject(fields));
  QuoteFields expected;
  expected.*GetParam().field = 1;
  EXPECT_EQ(fields, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, EachQuoteField,
    testing::Values(BoxField{"chkAskPrice", &QuoteFields::AskPrice}, BoxField{"chkAskSize", &QuoteFields::AskSize},
                    BoxField{"chkBidPrice", &QuoteFields::BidPrice}, BoxField{"chkBidSize", &QuoteFields::BidSize},
                    BoxField{"chkClose", &QuoteFields::ClosePrice}, BoxField{"chkHigh", &QuoteFields::HighTick},
                    BoxField{"chkLastPrice", &QuoteFields::LastPrice}, BoxField{"chkLastSize", &QuoteFields::LastSize},
                    BoxField{"chkLow", &QuoteFields::LowTick}, BoxField{"chkVolume", &QuoteFields::Volume}),
    [](const auto& info) { return std::string(info.param.box); });

TEST_F(cPelloraTest, AddNewSymbolCancelledClearsAllButTheType) {
  cPellora object;
  ContractRecord contract = JunkContract(3);
  AtForm("frmAddTicker", [](UserAtForm& user) {
    user.Type("txtINDSymbol", "XYZ");
    user.Click("ButCancel");
  });
  EXPECT_EQ(object.AddNewSymbol(contract), 2);
  EXPECT_EQ(contract, (ContractRecord{"", "", "", 0, "", 0, "", "", "", 3}));
}

TEST_F(cPelloraTest, AddNewSymbolClosedByTheTitleBarIsCancelled) {
  cPellora object;
  ContractRecord contract = JunkContract(5);
  AtForm("frmAddTicker", [](UserAtForm& user) { user.CloseBox(); });
  EXPECT_EQ(object.AddNewSymbol(contract), 2);
  EXPECT_EQ(contract, (ContractRecord{"", "", "", 0, "", 0, "", "", "", 5}));
}

TEST_F(cPelloraTest, AddNewSymbolForAnOptionHasNoStrikeThoughItsTypeNeedsOne) {
  cPellora object;
  ContractRecord contract = JunkContract(1);
  AtForm("frmAddTicker", [](UserAtForm& user) {
    user.Type("txtOPTSymbol", "XYZ");
    user.Type("txtOPTExpiry", "200806");
    user.Type("txtOPTMultiplier", "12.5");
    user.Choose("ComOPTRight", "CALL");
    user.Click("ButInsert");
  });
  EXPECT_EQ(object.AddNewSymbol(contract), 1);
  EXPECT_EQ(contract, (ContractRecord{"XYZ", "OPT", "200806", 0, "CALL", 12.5, "SMART", "", "USD", 1}));
}

TEST_F(cPelloraTest, AddNewSymbolForAStockHasAPrimaryExchangeAndNoMultiplier) {
  cPellora object;
  ContractRecord contract = JunkContract(0);
  AtForm("frmAddTicker", [](UserAtForm& user) {
    user.Type("txtSTKSymbol", "XYZ");
    user.Click("ButInsert");
  });
  EXPECT_EQ(object.AddNewSymbol(contract), 1);
  EXPECT_EQ(contract, (ContractRecord{"XYZ", "STK", "", 0, "", 0, "SMART", "SUPERSOES", "USD", 0}));
}

TEST_F(cPelloraTest, AddNewSymbolForFuturesFillsExpiryAndMultiplier) {
  cPellora object;
  ContractRecord contract = JunkContract(2);
  AtForm("frmAddTicker", [](UserAtForm& user) {
    user.Type("txtFUTSymbol", "XY");
    user.Type("txtFUTExpiry", "Dec07");
    user.Click("ButInsert");
  });
  EXPECT_EQ(object.AddNewSymbol(contract), 1);
  EXPECT_EQ(contract, (ContractRecord{"XY", "FUT", "Dec07", 0, "", 100, "LIFFE", "", "USD", 2}));
}

TEST_F(cPelloraTest, AddNewSymbolForAFuturesOptionHasARightAndNoMultiplier) {
  cPellora object;
  ContractRecord contract = JunkContract(4);
  AtForm("frmAddTicker", [](UserAtForm& user) {
    user.Type("txtFOPSymbol", "XY");
    user.Click("ButInsert");
  });
  EXPECT_EQ(object.AddNewSymbol(contract), 1);
  EXPECT_EQ(contract, (ContractRecord{"XY", "FOP", "200801", 0, "PUT", 0, "SMART", "", "USD", 4}));
}

TEST_F(cPelloraTest, AddNewSymbolInsertAndNewAnswersFourAndTheNextCallPreselectsTheType) {
  cPellora object;
  ContractRecord contract = JunkContract(0);
  AtForm("frmAddTicker", [](UserAtForm& user) {
    user.Choose("ComType", "Cash");
    user.Type("txtCASHSymbol", "EUR");
    user.Click("ButInsertNew");
  });
  EXPECT_EQ(object.AddNewSymbol(contract), 4);
  EXPECT_EQ(contract, (ContractRecord{"EUR", "CASH", "", 0, "", 0, "IDEAL", "", "USD", 5}));

  std::string preselected;
  AtForm("frmAddTicker", [&](UserAtForm& user) {
    preselected = user.Get<ComboBox>("ComType").Text();
    user.Click("ButCancel");
  });
  EXPECT_EQ(object.AddNewSymbol(contract), 2);
  EXPECT_EQ(preselected, "Cash");
}

TEST_F(cPelloraTest, AddNewSymbolStartsWithoutATickerEveryTime) {
  cPellora object;
  ContractRecord contract = JunkContract(5);
  AtForm("frmAddTicker", [](UserAtForm& user) {
    user.Type("txtCASHSymbol", "EUR");
    user.Click("ButInsertNew");
  });
  EXPECT_EQ(object.AddNewSymbol(contract), 4);
  std::string ticker = "not seen";
  AtForm("frmAddTicker", [&](UserAtForm& user) {
    ticker = user.Get<TextBox>("txtCASHSymbol").Text();
    user.Click("ButCancel");
  });
  EXPECT_EQ(object.AddNewSymbol(contract), 2);
  EXPECT_EQ(ticker, "");
}

TEST_F(cPelloraTest, AddNewSymbolForATypeThatDoesNotExistAnswersOneWithTheRestCleared) {
  for (const std::int16_t type : {6, 32767}) {
    cPellora object;
    ContractRecord contract = JunkContract(type);
    platform.user().ExpectErrorDialog("btnAbort");
    AtForm("frmAddTicker", [](UserAtForm& user) {
      EXPECT_EQ(user.Get<ComboBox>("ComType").Text(), "");
      user.Click("ButInsert");
    });
    EXPECT_EQ(object.AddNewSymbol(contract), 1);
    EXPECT_EQ(contract, (ContractRecord{"", "", "", 0, "", 0, "", "", "", -1}));
    EXPECT_NE(platform.user().ErrorTexts().back().find("Error: 380, (Invalid property value)"), std::string::npos);
  }
}

TEST_F(cPelloraTest, TheTapeDialogIsKeptBetweenShowingsAndReleasedByUnloadfrmMaster) {
  workbook::Host host;
  cPellora object;
  object.ExcelApplication(Variant(host.Application()));
  platform.user().AnswerErrorDialogs("btnIgnore");

  Form* first = nullptr;
  AtForm("frmAddRibbon", [&](UserAtForm& user) {
    first = &user.form();
    user.CloseBox();
  });
  EXPECT_EQ(object.ShowRefEditInterface(), "CLOSE");
  Form* second = nullptr;
  AtForm("frmAddRibbon", [&](UserAtForm& user) {
    second = &user.form();
    user.Click("ButCancel");
  });
  EXPECT_EQ(object.ShowRefEditInterface(), "CLOSE");
  EXPECT_EQ(first, second);

  object.UnloadfrmMaster();
  EXPECT_EQ(Caught([&] { object.RefEditInputs(); }).Number(), 91);
  EXPECT_EQ(platform.toolkit.formPeers, 0);
}

TEST_F(cPelloraTest, PickingALocationAnswersDataBeginningAndTheDialogComesBackWithIt) {
  workbook::Host host;
  cPellora object;
  object.ExcelApplication(Variant(host.Application()));
  platform.user().AnswerErrorDialogs("btnIgnore");
  AtForm("frmAddRibbon", [](UserAtForm& user) {
    // Without quotes the button cannot be used; a workbook's own code may show it all the same.
    user.Get<CommandButton>("ButGetAddress").Enabled(true);
    user.Click("ButGetAddress");
  });
  EXPECT_EQ(object.ShowRefEditInterface(), "DATABEGINNING");
  object.RefEditInputs("Sheet1!B3");
  std::string location;
  AtForm("frmAddRibbon", [&](UserAtForm& user) {
    location = user.Get<TextBox>("txtAddress").Text();
    user.Click("ButCancel");
  });
  EXPECT_EQ(object.ShowRefEditInterface(), "CLOSE");
  EXPECT_EQ(location, "Sheet1!B3:C22");
}

TEST_F(cPelloraTest, AfterUnloadfrmMasterTheTapeDialogIsMadeAnew) {
  workbook::Host host;
  cPellora object;
  object.ExcelApplication(Variant(host.Application()));
  platform.user().AnswerErrorDialogs("btnIgnore");
  AtForm("frmAddRibbon", [](UserAtForm& user) {
    user.Get<TextBox>("txtName").Text("kept until unloaded");
    user.Click("ButCancel");
  });
  object.ShowRefEditInterface();
  object.UnloadfrmMaster();
  std::string name;
  AtForm("frmAddRibbon", [&](UserAtForm& user) {
    name = user.Get<TextBox>("txtName").Text();
    user.Click("ButCancel");
  });
  object.ShowRefEditInterface();
  EXPECT_EQ(name, "");
}

TEST_F(cPelloraTest, TheTapeDialogIsNotReleasedUnderAnErrorThatItReports) {
  workbook::Host host;
  cPellora object;
  object.ExcelApplication(Variant(host.Application()));
  platform.user().AnswerErrorDialogs("btnIgnore");
  AtForm("frmAddRibbon", [](UserAtForm& user) { user.Click("ButCancel"); });
  object.ShowRefEditInterface();
  platform.user().AnswerErrorDialogs("");
  AtForm("frmErrorMessage", [&](UserAtForm& user) {
    ExpectComponentFailure([&] { object.UnloadfrmMaster(); }, "Pellora.cPellora.UnloadfrmMaster");
    user.Click("btnAbort");
  });
  // The last column has no room for a tape of two.
  object.RefEditInputs("Sheet1!XFD1");
  EXPECT_NO_THROW(object.UnloadfrmMaster());
}

TEST_F(cPelloraTest, AnotherThreadIsRefusedWhileAnObjectLives) {
  cPellora object;
  std::thread([] { ExpectComponentFailure([] { cPellora other; }, "Pellora.cPellora.Class_Initialize"); }).join();
  QuoteFields fields;
  std::thread([&] {
    ExpectComponentFailure([&] { object.CreateNewProject(fields); }, "Pellora.cPellora.CreateNewProject");
  }).join();
}

TEST_F(cPelloraTest, AnotherThreadMayFollowWhenNoObjectLives) {
  { cPellora object; }
  std::thread([] { EXPECT_NO_THROW(cPellora()); }).join();
}

TEST_F(cPelloraTest, RefEditInputsReachTheTapeDialog) {
  workbook::Host host;
  cPellora object;
  object.ExcelApplication(Variant(host.Application()));
  platform.user().AnswerErrorDialogs("btnIgnore");
  AtForm("frmAddRibbon", [&](UserAtForm& user) { user.CloseBox(); });
  object.ShowRefEditInterface();
  object.RefEditInputs("Sheet1!B3");
  EXPECT_EQ(object.RefEditInputs(), "Sheet1!B3");
}

TEST_F(cPelloraTest, WhereWindowsBelongToNoThreadAnObjectIsUsedFromAny) {
  platform.platform.oneThread = false;
  cPellora object;
  std::thread([&] { EXPECT_NO_THROW(object.UnloadfrmMaster()); }).join();
}

}  // namespace
}  // namespace pellora
