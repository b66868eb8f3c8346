#include "contract/SecurityTypes.h"

namespace pellora {
namespace {

using Dialog = frmAddTicker;
constexpr FieldRule NotEmpty = FieldRule::NotEmpty;
constexpr FieldRule Numeric = FieldRule::Numeric;

}  // namespace

// The checks differ from type to type on purpose: a futures expiry may be any text, a futures option's must be a
// number, and an option's is asked for first and then tested.
constinit const std::array<SecurityType, 6> kSecurityTypes = {{
    {.text = "Stock",
     .typeSymbol = "STK",
     .panel = &Dialog::C1ESTK,
     .symbol = &Dialog::txtSTKSymbol,
     .exchange = &Dialog::ComSTKExchange,
     .exchangeButton = {"ButSTKExchange_Click", &Dialog::ButSTKExchange, &Dialog::ComSTKExchange},
     .currency = &Dialog::ComSTKCurency,
     .currencyButton = {"ButSTKCurency_Click", &Dialog::ButSTKCurency, &Dialog::ComSTKCurency},
     .primaryExchange = &Dialog::txtPrimaryExchange,
     .expiry = nullptr,
     .right = nullptr,
     .multiplier = nullptr,
     .defaultExchanges = "SMART|NYSE",
     .defaultExchange = "SMART",
     .checks = {{{&Dialog::txtSTKSymbol, NotEmpty}, {&Dialog::txtPrimaryExchange, NotEmpty}}}},
    {.text = "Option",
     .typeSymbol = "OPT",
     .panel = &Dialog::C1EOPT,
     .symbol = &Dialog::txtOPTSymbol,
     .exchange = &Dialog::ComOPTExchange,
     .exchangeButton = {"ButOPTExchange_Click", &Dialog::ButOPTExchange, &Dialog::ComOPTExchange},
     .currency = &Dialog::ComOPTCurency,
     .currencyButton = {"ButOPTCurency_Click", &Dialog::ButOPTCurency, &Dialog::ComOPTCurency},
     .primaryExchange = nullptr,
     .expiry = &Dialog::txtOPTExpiry,
     .right = &Dialog::ComOPTRight,
     .multiplier = &Dialog::txtOPTMultiplier,
     .defaultExchanges = "SMART|PHLX|ISE",
     .defaultExchange = "SMART",
     .checks = {{{&Dialog::txtOPTSymbol, NotEmpty},
                 {&Dialog::txtOPTExpiry, NotEmpty},
                 {&Dialog::txtOPTExpiry, Numeric},
                 {&Dialog::txtOPTMultiplier, Numeric}}}},
    {.text = "Futures",
     .typeSymbol = "FUT",
     .panel = &Dialog::C1EFUT,
     .symbol = &Dialog::txtFUTSymbol,
     .exchange = &Dialog::ComFUTExchange,
     .exchangeButton = {"ButFUTExchange_Click", &Dialog::ButFUTExchange, &Dialog::ComFUTExchange},
     .currency = &Dialog::ComFUTCurency,
     .currencyButton = {"ButFUTCurency_Click", &Dialog::ButFUTCurency, &Dialog::ComFUTCurency},
     .primaryExchange = nullptr,
     .expiry = &Dialog::txtFUTExpiry,
     .right = nullptr,
     .multiplier = &Dialog::txtFUTMultiplier,
     .defaultExchanges = "GLOBEX|NYMEX|LIFFE|CME|CBOT",
     .defaultExchange = "LIFFE",
     .checks = {{{&Dialog::txtFUTSymbol, NotEmpty},
                 {&Dialog::txtFUTExpiry, NotEmpty},
                 {&Dialog::txtFUTMultiplier, Numeric}}}},
    {.text = "Index",
     .typeSymbol = "IND",
     .panel = &Dialog::C1EIND,
     .symbol = &Dialog::txtINDSymbol,
     .exchange = &Dialog::ComINDExchange,
     .exchangeButton = {"ButINDExchange_Click", &Dialog::ButINDExchange, &Dialog::ComINDExchange},
     .currency = &Dialog::ComIndCurency,
     .currencyButton = {"ButINDCurency_Click", &Dialog::ButINDCurency, &Dialog::ComIndCurency},
     .primaryExchange = nullptr,
     .expiry = nullptr,
     .right = nullptr,
     .multiplier = nullptr,
     .defaultExchanges = "NASDAQ|CBOE|NYSE|AMEX",
     .defaultExchange = "NASDAQ",
     .checks = {{{&Dialog::txtINDSymbol, NotEmpty}}}},
    {.text = "FutOpt",
     .typeSymbol = "FOP",
     .panel = &Dialog::C1EFOP,
     .symbol = &Dialog::txtFOPSymbol,
     .exchange = &Dialog::ComFOPExchange,
     .exchangeButton = {"ButFOPExchange_Click", &Dialog::ButFOPExchange, &Dialog::ComFOPExchange},
     .currency = &Dialog::ComFOPCurency,
     .currencyButton = {"ButFOPCurency_Click", &Dialog::ButFOPCurency, &Dialog::ComFOPCurency},
     .primaryExchange = nullptr,
     .expiry = &Dialog::txtFOPExpiry,
     .right = &Dialog::ComFOPRight,
     .multiplier = nullptr,
     .defaultExchanges = "SMART|ECBOT",
     .defaultExchange = "SMART",
     .checks = {{{&Dialog::txtFOPSymbol, NotEmpty}, {&Dialog::txtFOPExpiry, Numeric}}}},
    {.text = "Cash",
     .typeSymbol = "CASH",
     .panel = &Dialog::C1ECash,
     .symbol = &Dialog::txtCASHSymbol,
     .exchange = &Dialog::ComCASHExchange,
     .exchangeButton = {"ButCASHExchange_Click", &Dialog::ButCASHExchange, &Dialog::ComCASHExchange},
     .currency = &Dialog::ComCASHCurency,
     .currencyButton = {"ButCASHCurency_Click", &Dialog::ButCASHCurency, &Dialog::ComCASHCurency},
     .primaryExchange = nullptr,
     .expiry = nullptr,
     .right = nullptr,
     .multiplier = nullptr,
     .defaultExchanges = "IDEAL",
     .defaultExchange = "IDEAL",
     .checks = {{{&Dialog::txtCASHSymbol, NotEmpty}}}},
}};

const SecurityType* FindSecurityType(std::string_view text) {
  for (const auto& type : kSecurityTypes)
    if (type.text == text) return &type;
  return nullptr;
}

}  // namespace pellora
