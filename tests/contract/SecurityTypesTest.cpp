#include "contract/SecurityTypes.h"

#include "tests/contract/ContractDialog.h"

namespace pellora {
namespace {

class SecurityTypes : public tests::ContractDialog {
 protected:
  template <class Box>
  std::string NameOf(Box frmAddTicker::*field) {
    return field ? (dialog.*field).Name() : "-";
  }
  frmAddTicker dialog{platform.toolkit};
};

TEST_F(SecurityTypes, NameTheirSymbolsAndControls) {
  using Row = std::array<std::string, 9>;
  const std::array<Row, 6> expected = {
      Row{"Stock", "STK", "txtSTKSymbol", "-", "-", "-", "ComSTKExchange", "txtPrimaryExchange", "ComSTKCurency"},
      Row{"Option", "OPT", "txtOPTSymbol", "txtOPTExpiry", "ComOPTRight", "txtOPTMultiplier", "ComOPTExchange", "-",
          "ComOPTCurency"},
      Row{"Futures", "FUT", "txtFUTSymbol", "txtFUTExpiry", "-", "txtFUTMultiplier", "ComFUTExchange", "-",
          "ComFUTCurency"},
      Row{"Index", "IND", "txtINDSymbol", "-", "-", "-", "ComINDExchange", "-", "ComIndCurency"},
      Row{"FutOpt", "FOP", "txtFOPSymbol", "txtFOPExpiry", "ComFOPRight", "-", "ComFOPExchange", "-", "ComFOPCurency"},
      Row{"Cash", "CASH", "txtCASHSymbol", "-", "-", "-", "ComCASHExchange", "-", "ComCASHCurency"}};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const auto& type = kSecurityTypes[i];
    EXPECT_EQ((Row{std::string(type.text), std::string(type.typeSymbol), NameOf(type.symbol), NameOf(type.expiry),
                   NameOf(type.right), NameOf(type.multiplier), NameOf(type.exchange), NameOf(type.primaryExchange),
                   NameOf(type.currency)}),
              expected[i]);
  }
}

TEST_F(SecurityTypes, StandInTheOrderOfThePages) {
  const tests::Names panels = {"C1ESTK", "C1EOPT", "C1EFUT", "C1EIND", "C1EFOP", "C1ECash"};
  for (std::size_t i = 0; i < kSecurityTypes.size(); ++i) {
    EXPECT_EQ(dialog.CIndexType.PageAt(static_cast<int>(i)).Caption(), kSecurityTypes[i].text);
    EXPECT_EQ(NameOf(kSecurityTypes[i].panel), panels[i]);
    EXPECT_EQ((dialog.*kSecurityTypes[i].panel).Parent(), &dialog.CIndexType.PageAt(static_cast<int>(i)));
  }
}

TEST_F(SecurityTypes, AreFoundByTheirExactTextOnly) {
  EXPECT_EQ(FindSecurityType("FutOpt"), &kSecurityTypes[kFutOpt]);
  EXPECT_EQ(FindSecurityType("futopt"), nullptr);
  EXPECT_EQ(FindSecurityType(""), nullptr);
}

TEST_F(SecurityTypes, AFieldThatATypeDoesNotHaveReadsEmpty) {
  dialog.txtOPTExpiry.Text("200801");
  EXPECT_EQ(FieldText(dialog, kSecurityTypes[kOption].expiry), "200801");
  EXPECT_EQ(FieldText(dialog, kSecurityTypes[kStock].expiry), "");
}

}  // namespace
}  // namespace pellora
