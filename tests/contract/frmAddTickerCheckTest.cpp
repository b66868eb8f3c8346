#include "core/Error.h"
#include "tests/contract/ContractDialog.h"

namespace pellora {
namespace {

using tests::Names;
using tests::UserAtForm;

std::string Empty(const std::string& label) { return "Please fill in the '" + label + "' field "; }
std::string NotANumber(const std::string& label) { return "The value must be a digit.  '" + label + "'"; }

class CheckParametr : public tests::ContractDialog {
 protected:
  using Texts = std::vector<std::pair<std::string, std::string>>;

  /// Shows the page of a type, puts the texts into its boxes and asks for the check. `message` "" expects none.
  bool Check(int index, const Texts& texts, const std::string& message) {
    bool passed = false;
    Show(
        index,
        [&](UserAtForm& hands) {
          for (const auto& [box, text] : texts) hands.Type(box, text);
          form->ComType.SetFocus();
          passed = form->CheckParametr();
          focus = hands.FocusedName();
          tests::Cancel(hands);
        },
        [&] {
          if (!message.empty()) user().ExpectMessage(message);
        });
    return passed;
  }

  std::string focus;
};

TEST_F(CheckParametr, StockWithTickerAndPrimaryExchangePasses) {
  EXPECT_TRUE(Check(kStock, {{"txtSTKSymbol", "XYZ"}, {"txtPrimaryExchange", "NYSE"}}, ""));
  EXPECT_EQ(focus, "ComType");
}

TEST_F(CheckParametr, StockWithoutTickerIsRefusedBeforeItsPrimaryExchange) {
  EXPECT_FALSE(Check(kStock, {{"txtSTKSymbol", ""}, {"txtPrimaryExchange", ""}}, Empty("Ticker")));
  EXPECT_EQ(focus, "txtSTKSymbol");
}

TEST_F(CheckParametr, StockWithoutPrimaryExchangeIsRefused) {
  EXPECT_FALSE(Check(kStock, {{"txtSTKSymbol", "XYZ"}, {"txtPrimaryExchange", ""}}, Empty("Primary Exchange")));
  EXPECT_EQ(focus, "txtPrimaryExchange");
}

TEST_F(CheckParametr, BlanksAreNotEmpty) {
  EXPECT_TRUE(Check(kStock, {{"txtSTKSymbol", " "}, {"txtPrimaryExchange", " "}}, ""));
}

TEST_F(CheckParametr, OptionWithExpiry200712AndMultiplier100Passes) {
  EXPECT_TRUE(Check(kOption, {{"txtOPTSymbol", "XYZ"}, {"txtOPTExpiry", "200712"}, {"txtOPTMultiplier", "100"}}, ""));
}

TEST_F(CheckParametr, OptionChecksTickerThenExpiryThenItsDigitsThenMultiplier) {
  EXPECT_FALSE(Check(kOption, {{"txtOPTSymbol", ""}, {"txtOPTExpiry", ""}, {"txtOPTMultiplier", ""}}, Empty("Ticker")));
  EXPECT_EQ(focus, "txtOPTSymbol");
  EXPECT_FALSE(
      Check(kOption, {{"txtOPTSymbol", "XYZ"}, {"txtOPTExpiry", ""}, {"txtOPTMultiplier", ""}}, Empty("Expiry")));
  EXPECT_EQ(focus, "txtOPTExpiry");
  EXPECT_FALSE(Check(kOption, {{"txtOPTSymbol", "XYZ"}, {"txtOPTExpiry", "Dec07"}, {"txtOPTMultiplier", ""}},
                     NotANumber("Expiry")));
  EXPECT_EQ(focus, "txtOPTExpiry");
  EXPECT_FALSE(Check(kOption, {{"txtOPTSymbol", "XYZ"}, {"txtOPTExpiry", "200712"}, {"txtOPTMultiplier", ""}},
                     NotANumber("Multiplier")));
  EXPECT_EQ(focus, "txtOPTMultiplier");
}

TEST_F(CheckParametr, FuturesWithExpiryDec07PassesOnPurpose) {
  EXPECT_TRUE(Check(kFutures, {{"txtFUTSymbol", "XYZ"}, {"txtFUTExpiry", "Dec07"}, {"txtFUTMultiplier", "50"}}, ""));
}

TEST_F(CheckParametr, FuturesChecksTickerThenExpiryThenMultiplier) {
  EXPECT_FALSE(Check(kFutures, {{"txtFUTSymbol", ""}, {"txtFUTExpiry", ""}}, Empty("Ticker")));
  EXPECT_EQ(focus, "txtFUTSymbol");
  EXPECT_FALSE(
      Check(kFutures, {{"txtFUTSymbol", "X"}, {"txtFUTExpiry", ""}, {"txtFUTMultiplier", "x"}}, Empty("Expiry")));
  EXPECT_EQ(focus, "txtFUTExpiry");
  EXPECT_FALSE(Check(kFutures, {{"txtFUTSymbol", "X"}, {"txtFUTMultiplier", "x"}}, NotANumber("Multiplier")));
  EXPECT_EQ(focus, "txtFUTMultiplier");
}

TEST_F(CheckParametr, AMultiplierOfOneHalfPasses) {
  EXPECT_TRUE(Check(kFutures, {{"txtFUTSymbol", "XYZ"}, {"txtFUTMultiplier", "0.5"}}, ""));
  EXPECT_TRUE(Check(kOption, {{"txtOPTSymbol", "XYZ"}, {"txtOPTMultiplier", "-1e2"}}, ""));
}

TEST_F(CheckParametr, AMultiplierTooLargeForANumberIsRefusedHereAndNeverOverflows) {
  EXPECT_FALSE(Check(kFutures, {{"txtFUTSymbol", "XYZ"}, {"txtFUTMultiplier", "1e400"}}, NotANumber("Multiplier")));
  EXPECT_EQ(focus, "txtFUTMultiplier");
}

TEST_F(CheckParametr, IndexNeedsItsTickerOnly) {
  EXPECT_TRUE(Check(kIndex, {{"txtINDSymbol", "XYZ"}}, ""));
  EXPECT_FALSE(Check(kIndex, {}, Empty("Ticker")));
  EXPECT_EQ(focus, "txtINDSymbol");
}

TEST_F(CheckParametr, FutOptWithAnEmptyExpiryIsToldOfDigitsOnPurpose) {
  EXPECT_FALSE(Check(kFutOpt, {{"txtFOPSymbol", "XYZ"}, {"txtFOPExpiry", ""}}, NotANumber("Expiry")));
  EXPECT_EQ(focus, "txtFOPExpiry");
}

TEST_F(CheckParametr, FutOptChecksItsTickerFirst) {
  EXPECT_FALSE(Check(kFutOpt, {{"txtFOPExpiry", ""}}, Empty("Ticker")));
  EXPECT_EQ(focus, "txtFOPSymbol");
  EXPECT_TRUE(Check(kFutOpt, {{"txtFOPSymbol", "XYZ"}, {"txtFOPExpiry", "200803"}}, ""));
}

TEST_F(CheckParametr, CashWithOnlyASymbolPasses) {
  EXPECT_TRUE(Check(kCash, {{"txtCASHSymbol", "EUR"}}, ""));
  EXPECT_FALSE(Check(kCash, {}, Empty("Ticker")));
  EXPECT_EQ(focus, "txtCASHSymbol");
}

TEST_F(CheckParametr, FutOptWithExpiryDec07IsRefusedThoughFuturesTakeIt) {
  EXPECT_FALSE(Check(kFutOpt, {{"txtFOPSymbol", "XYZ"}, {"txtFOPExpiry", "Dec07"}}, NotANumber("Expiry")));
  EXPECT_EQ(focus, "txtFOPExpiry");
}

TEST_F(CheckParametr, BlanksAloneAreNoNumber) {
  EXPECT_FALSE(Check(kOption, {{"txtOPTSymbol", "XYZ"}, {"txtOPTExpiry", "  "}}, NotANumber("Expiry")));
  EXPECT_EQ(focus, "txtOPTExpiry");
  EXPECT_FALSE(Check(kFutures, {{"txtFUTSymbol", "XYZ"}, {"txtFUTMultiplier", " "}}, NotANumber("Multiplier")));
  EXPECT_EQ(focus, "txtFUTMultiplier");
  EXPECT_FALSE(Check(kFutOpt, {{"txtFOPSymbol", "XYZ"}, {"txtFOPExpiry", " "}}, NotANumber("Expiry")));
  EXPECT_EQ(focus, "txtFOPExpiry");
}

TEST_F(CheckParametr, BlanksAroundANumberAreNoFault) {
  EXPECT_TRUE(Check(kOption, {{"txtOPTSymbol", "XYZ"}, {"txtOPTExpiry", " 200712 "}, {"txtOPTMultiplier", " 1 "}}, ""));
}

TEST_F(CheckParametr, BlanksAreAnExpiryForFuturesOnPurpose) {
  EXPECT_TRUE(Check(kFutures, {{"txtFUTSymbol", "XYZ"}, {"txtFUTExpiry", " "}}, ""));
}

TEST_F(CheckParametr, ListsAreNeverCheckedForAnyType) {
  for (std::size_t index = 0; index < kSecurityTypes.size(); ++index) {
    const auto& type = kSecurityTypes[index];
    const frmAddTicker names(platform.toolkit);
    Texts texts = {
        {(names.*type.symbol).Name(), "XYZ"}, {(names.*type.exchange).Name(), ""}, {(names.*type.currency).Name(), ""}};
    if (type.right) texts.emplace_back((names.*type.right).Name(), "");
    EXPECT_TRUE(Check(static_cast<int>(index), texts, "")) << type.text;
  }
}

TEST_F(CheckParametr, OtherPagesAreNotChecked) {
  Show(kOption, [&](UserAtForm& hands) {
    hands.Type("txtOPTMultiplier", "not a number");
    hands.Choose("ComType", "Cash");
    hands.Type("txtCASHSymbol", "EUR");
    EXPECT_TRUE(form->CheckParametr());
    tests::Cancel(hands);
  });
}

TEST_F(CheckParametr, ATypeThatIsNoneOfTheSixPasses) {
  frmAddTicker unloaded(platform.toolkit);
  EXPECT_TRUE(unloaded.CheckParametr());
}

TEST_F(CheckParametr, ARefusalSelectsTheFaultyTextToBeTypedOver) {
  Show(
      kOption,
      [&](UserAtForm& hands) {
        hands.Type("txtOPTSymbol", "XYZ");
        hands.Type("txtOPTExpiry", "Dec07");
        hands.Click("ButInsert");
        EXPECT_EQ(hands.FocusedName(), "txtOPTExpiry");
        EXPECT_TRUE(form->txtOPTExpiry.AllSelected());
        hands.TypeHere("200712");
        hands.PressEnter();
      },
      [&] { user().ExpectMessage(NotANumber("Expiry")); });
  EXPECT_EQ(form->Tag(), "1");
}

TEST_F(CheckParametr, MessagesAreCriticalWithOneButtonAndTheTitleVantix) {
  Check(kIndex, {}, Empty("Ticker"));
  Check(kFutOpt, {{"txtFOPSymbol", "X"}, {"txtFOPExpiry", ""}}, NotANumber("Expiry"));
  ASSERT_EQ(user().Messages().size(), 2u);
  for (const auto& message : user().Messages()) {
    EXPECT_EQ(message.title, "Vantix");
    EXPECT_TRUE(message.critical);
    EXPECT_EQ(message.buttons, MessageButtons::Ok);
  }
}

TEST_F(CheckParametr, IsReportedUnderItsQualifiedName) {
  frmAddTicker unloaded(platform.toolkit);
  TraceRoutines();
  unloaded.CheckParametr();
  EXPECT_EQ(RoutinesEntered(), Names{"Pellora.frmAddTicker.CheckParametr"});
}

TEST_F(CheckParametr, AFailureInsideIsReportedAndAnswersFalse) {
  // A box that cannot take the focus refuses it.
  bool passed = true;
  Show(
      kIndex,
      [&](UserAtForm& hands) {
        form->txtINDSymbol.Enabled(false);
        passed = form->CheckParametr();
        tests::Cancel(hands);
      },
      [&] {
        user().ExpectMessage(Empty("Ticker"));
        user().ExpectErrorDialog("btnAbort");
      });
  EXPECT_FALSE(passed);
  EXPECT_NE(Find(user().ErrorTexts().at(0), "in Pellora.frmAddTicker.CheckParametr at line"), std::string::npos);
}

}  // namespace
}  // namespace pellora
