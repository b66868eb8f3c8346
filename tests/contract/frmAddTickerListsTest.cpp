#include "core/Calendar.h"
#include "tests/contract/ContractDialog.h"

namespace pellora {
namespace {

using tests::Cancel;
using tests::ChoiceLists;
using tests::Names;
using tests::Settings;
using tests::UserAtForm;

const std::string kCurrencies = "USD|EUR|GBP|HKD|AUD|BASE";

TEST_F(ChoiceLists, AnEmptyStoreShowsTheDefaults) {
  const std::string currencies = kCurrencies + " / USD";
  EXPECT_EQ(Shown(), (Settings{
                         {"txtSTKSymbol", ""},
                         {"ComSTKExchange", "SMART|NYSE / SMART"},
                         {"ComSTKCurency", currencies},
                         {"txtPrimaryExchange", "SUPERSOES"},
                         {"txtOPTSymbol", ""},
                         {"ComOPTExchange", "SMART|PHLX|ISE / SMART"},
                         {"ComOPTCurency", currencies},
                         {"txtOPTExpiry", "200801"},
                         {"ComOPTRight", "PUT|CALL / PUT"},
                         {"txtOPTMultiplier", "100"},
                         {"txtFUTSymbol", ""},
                         {"ComFUTExchange", "GLOBEX|NYMEX|LIFFE|CME|CBOT / LIFFE"},
                         {"ComFUTCurency", currencies},
                         {"txtFUTExpiry", "200801"},
                         {"txtFUTMultiplier", "100"},
                         {"txtINDSymbol", ""},
                         {"ComINDExchange", "NASDAQ|CBOE|NYSE|AMEX / NASDAQ"},
                         {"ComIndCurency", currencies},
                         {"txtFOPSymbol", ""},
                         {"ComFOPExchange", "SMART|ECBOT / SMART"},
                         {"ComFOPCurency", currencies},
                         {"txtFOPExpiry", "200801"},
                         {"ComFOPRight", "PUT|CALL / PUT"},
                         {"txtCASHSymbol", ""},
                         {"ComCASHExchange", "IDEAL / IDEAL"},
                         {"ComCASHCurency", currencies},
                     }));
}

TEST_F(ChoiceLists, OpeningTheDialogStoresNothing) {
  Shown();
  EXPECT_TRUE(platform.registry.Dump().empty());
}

TEST_F(ChoiceLists, TheDefaultExpiryIsTheMonthAfterTodays) {
  platform.clock.now = DaysFromDate({2026, 2, 28});
  EXPECT_EQ(ShownIn("txtFUTExpiry"), "202603");
}

TEST_F(ChoiceLists, EveryStoredValueComesBack) {
  const Settings stored = {
      {"ComCurency", "CHF|USD"},   {"ComCurencyText", "CHF"},   {"ComSTKExchange", "A|B"},
      {"ComSTKExchangeText", "B"}, {"txtPrimaryExchange", "P"}, {"ComOPTExchange", "C|D"},
      {"ComOPTExchangeText", "D"}, {"txtOPTExpiry", "209901"},  {"ComOPTRight", "P|C"},
      {"ComOPTRightText", "C"},    {"txtOPTMultiplier", "1"},   {"ComFUTExchange", "E|F"},
      {"ComFUTExchangeText", "F"}, {"txtFUTExpiry", "209902"},  {"txtFUTMultiplier", "2"},
      {"ComINDExchange", "G|H"},   {"ComINDExchangeText", "H"}, {"ComFOPExchange", "I|J"},
      {"ComFOPExchangeText", "J"}, {"txtFOPExpiry", "209903"},  {"ComFOPRight", "X|Y"},
      {"ComFOPRightText", "Y"},    {"ComCASHExchange", "K|L"},  {"ComCASHExchangeText", "L"},
  };
  for (const auto& [key, text] : stored) Store(key, text);
  const auto shown = Shown();
  for (const char* currency : tests::kCurrencyLists) EXPECT_EQ(shown.at(currency), "CHF|USD / CHF") << currency;
  const Settings expected = {
      {"ComSTKExchange", "A|B / B"}, {"txtPrimaryExchange", "P"},   {"ComOPTExchange", "C|D / D"},
      {"txtOPTExpiry", "209901"},    {"ComOPTRight", "P|C / C"},    {"txtOPTMultiplier", "1"},
      {"ComFUTExchange", "E|F / F"}, {"txtFUTExpiry", "209902"},    {"txtFUTMultiplier", "2"},
      {"ComINDExchange", "G|H / H"}, {"ComFOPExchange", "I|J / J"}, {"txtFOPExpiry", "209903"},
      {"ComFOPRight", "X|Y / Y"},    {"ComCASHExchange", "K|L / L"}};
  for (const auto& [name, text] : expected) EXPECT_EQ(shown.at(name), text) << name;
}

TEST_F(ChoiceLists, AStoredNumberIsShownAsText) {
  Variant number = 200812;
  mGlobal::AppSettings->SaveSetting("Settings\\frmSettings", "txtOPTExpiry", number);
  EXPECT_EQ(ShownIn("txtOPTExpiry"), "200812");
}

TEST_F(ChoiceLists, AStoredChoiceThatIsNoLongerInItsListShowsTheFirstItem) {
  Store("ComSTKExchangeText", "GONE");
  EXPECT_EQ(ShownIn("ComSTKExchange"), "SMART|NYSE / SMART");
}

TEST_F(ChoiceLists, AStoredChoiceThatDiffersOnlyInCaseShowsTheListsSpelling) {
  Store("ComSTKExchange", "NYSE|SMART");
  Store("ComSTKExchangeText", "smart");
  EXPECT_EQ(ShownIn("ComSTKExchange"), "NYSE|SMART / SMART");
}

TEST_F(ChoiceLists, AnEmptyStoredListLeavesTheComboEmptyWithoutAnError) {
  Store("ComSTKExchange", "");
  EXPECT_EQ(ShownIn("ComSTKExchange"), " / ");
  EXPECT_TRUE(user().ErrorTexts().empty());
}

TEST_F(ChoiceLists, SavingAnOptionWithEuroMakesEuroEveryTypesCurrency) {
  Show(kOption, [](UserAtForm& hands) {
    hands.Type("txtOPTSymbol", "XYZ");
    hands.Choose("ComOPTCurency", "EUR");
    hands.Click("ButInsert");
  });
  EXPECT_EQ(ShownIn("ComSTKCurency"), kCurrencies + " / EUR");
  EXPECT_EQ(ShownIn("ComCASHCurency"), kCurrencies + " / EUR");
}

TEST_F(ChoiceLists, SavingAStockStoresThis) {
  InsertAt(
      kStock,
      {{"txtSTKSymbol", "S"}, {"ComSTKExchange", "NYSE"}, {"ComSTKCurency", "HKD"}, {"txtPrimaryExchange", "ARCA"}});
  EXPECT_EQ(StoredChoices(), (Settings{{"ComCurencyText", "HKD"},
                                       {"ComCurency", kCurrencies},
                                       {"ComSTKExchangeText", "NYSE"},
                                       {"ComSTKExchange", "SMART|NYSE"},
                                       {"txtPrimaryExchange", "ARCA"}}));
}

TEST_F(ChoiceLists, SavingAnOptionStoresThisAndNeverItsListOfRights) {
  InsertAt(kOption, {{"txtOPTSymbol", "S"},
                     {"ComOPTExchange", "PHLX"},
                     {"ComOPTCurency", "GBP"},
                     {"txtOPTExpiry", "200806"},
                     {"ComOPTRight", "CALL"},
                     {"txtOPTMultiplier", "0.5"}});
  EXPECT_EQ(StoredChoices(), (Settings{{"ComCurencyText", "GBP"},
                                       {"ComCurency", kCurrencies},
                                       {"ComOPTExchangeText", "PHLX"},
                                       {"ComOPTExchange", "SMART|PHLX|ISE"},
                                       {"txtOPTExpiry", "200806"},
                                       {"ComOPTRightText", "CALL"},
                                       {"txtOPTMultiplier", "0.5"}}));
}

TEST_F(ChoiceLists, SavingFuturesStoresThis) {
  InsertAt(kFutures, {{"txtFUTSymbol", "S"},
                      {"ComFUTExchange", "CME"},
                      {"ComFUTCurency", "AUD"},
                      {"txtFUTExpiry", "Jun08"},
                      {"txtFUTMultiplier", "50"}});
  EXPECT_EQ(StoredChoices(), (Settings{{"ComCurencyText", "AUD"},
                                       {"ComCurency", kCurrencies},
                                       {"ComFUTExchangeText", "CME"},
                                       {"ComFUTExchange", "GLOBEX|NYMEX|LIFFE|CME|CBOT"},
                                       {"txtFUTExpiry", "Jun08"},
                                       {"txtFUTMultiplier", "50"}}));
}

TEST_F(ChoiceLists, SavingAnIndexStoresThis) {
  InsertAt(kIndex, {{"txtINDSymbol", "S"}, {"ComINDExchange", "CBOE"}, {"ComIndCurency", "BASE"}});
  EXPECT_EQ(StoredChoices(), (Settings{{"ComCurencyText", "BASE"},
                                       {"ComCurency", kCurrencies},
                                       {"ComINDExchangeText", "CBOE"},
                                       {"ComINDExchange", "NASDAQ|CBOE|NYSE|AMEX"}}));
}

TEST_F(ChoiceLists, SavingAFuturesOptionStoresThisAndNeverItsListOfRights) {
  InsertAt(kFutOpt, {{"txtFOPSymbol", "S"},
                     {"ComFOPExchange", "ECBOT"},
                     {"ComFOPCurency", "EUR"},
                     {"txtFOPExpiry", "200809"},
                     {"ComFOPRight", "CALL"}});
  EXPECT_EQ(StoredChoices(), (Settings{{"ComCurencyText", "EUR"},
                                       {"ComCurency", kCurrencies},
                                       {"ComFOPExchangeText", "ECBOT"},
                                       {"ComFOPExchange", "SMART|ECBOT"},
                                       {"txtFOPExpiry", "200809"},
                                       {"ComFOPRightText", "CALL"}}));
}

TEST_F(ChoiceLists, SavingCashStoresThis) {
  InsertAt(kCash, {{"txtCASHSymbol", "S"}, {"ComCASHExchange", "FREE TEXT"}, {"ComCASHCurency", "EUR"}});
  EXPECT_EQ(StoredChoices(), (Settings{{"ComCurencyText", "EUR"},
                                       {"ComCurency", kCurrencies},
                                       {"ComCASHExchangeText", "FREE TEXT"},
                                       {"ComCASHExchange", "IDEAL"}}));
}

TEST_F(ChoiceLists, OnlyTheSelectedTypesPageIsStored) {
  Show(kOption, [](UserAtForm& hands) {
    hands.Type("txtOPTExpiry", "299901");
    hands.Choose("ComType", "Cash");
    hands.Type("txtCASHSymbol", "EUR");
    hands.Click("ButInsert");
  });
  EXPECT_EQ(StoredChoices().count("txtOPTExpiry"), 0u);
}

class AddCombobox : public ChoiceLists {
 protected:
  frmAddTicker dialog{platform.toolkit};
  ComboBox& combo = dialog.ComSTKExchange;
};

TEST_F(AddCombobox, ReplacesTheItemsAndChoosesTheFirstWithoutASelection) {
  dialog.Add_Combobox(combo, "OLD");
  dialog.Add_Combobox(combo, "A|B|C");
  EXPECT_EQ(combo.Items(), (Names{"A", "B", "C"}));
  EXPECT_EQ(combo.Text(), "A");
  EXPECT_EQ(combo.ListIndex(), 0);
}

TEST_F(AddCombobox, ChoosesTheFirstMatchWithoutRegardToCase) {
  dialog.Add_Combobox(combo, "A|nyse|NYSE", "Nyse");
  EXPECT_EQ(combo.Text(), "nyse");
  EXPECT_EQ(combo.ListIndex(), 1);
}

TEST_F(AddCombobox, MatchesLettersOfEveryScript) {
  dialog.Add_Combobox(combo, "A|B\u00D6RSE", "b\u00F6rse");
  EXPECT_EQ(combo.Text(), "B\u00D6RSE");
}

TEST_F(AddCombobox, ChoosesTheFirstWhenNothingMatches) {
  dialog.Add_Combobox(combo, "A|B", "C");
  EXPECT_EQ(combo.Text(), "A");
}

TEST_F(AddCombobox, AnEmptyListTextLeavesTheComboEmpty) {
  dialog.Add_Combobox(combo, "A|B", "B");
  dialog.Add_Combobox(combo, "", "B");
  EXPECT_EQ(combo.ListCount(), 0);
  EXPECT_EQ(combo.Text(), "");
}

TEST_F(AddCombobox, TheCombosOwnTextMayBeTheSelection) {
  dialog.Add_Combobox(combo, "A|B", "B");
  dialog.Add_Combobox(combo, "C|b|A", combo.Text());
  EXPECT_EQ(combo.Text(), "b");
}

TEST_F(AddCombobox, ListTextHasNoSeparatorBeforeTheFirstOrAfterTheLast) {
  dialog.Add_Combobox(combo, "SMART|NYSE");
  EXPECT_EQ(dialog.ComboBoxToStr(combo), "SMART|NYSE");
}

TEST_F(AddCombobox, ListTextOfOneItemIsTheItemAlone) {
  dialog.Add_Combobox(combo, "IDEAL");
  EXPECT_EQ(dialog.ComboBoxToStr(combo), "IDEAL");
}

TEST_F(AddCombobox, ListTextOfNoItemIsEmpty) { EXPECT_EQ(dialog.ComboBoxToStr(combo), ""); }

}  // namespace
}  // namespace pellora
