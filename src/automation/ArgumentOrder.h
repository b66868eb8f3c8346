#pragma once

#include <array>
#include <cstddef>

#include "automation/cPellora.h"

/// The order in which callers give the members of `cPellora` their arguments: every platform's shell fills the records
/// from its own kind of arguments, and those from the records, by these tables.
namespace pellora {

/// The arguments of `CreateNewProject`.
inline constexpr std::array kQuoteFieldOrder = {
    &QuoteFields::AskPrice,   &QuoteFields::AskSize,  &QuoteFields::BidPrice,  &QuoteFields::BidSize,
    &QuoteFields::ClosePrice, &QuoteFields::HighTick, &QuoteFields::LastPrice, &QuoteFields::LastSize,
    &QuoteFields::LowTick,    &QuoteFields::Volume,
};

/// A text of a contract with its place among the arguments of `AddNewSymbol`, counted from 0.
struct ContractText {
  std::string ContractRecord::*text;
  std::size_t place;
};

inline constexpr std::array kContractTextOrder = {
    ContractText{&ContractRecord::Symbol, 0},       ContractText{&ContractRecord::TypeSymbol, 1},
    ContractText{&ContractRecord::Expiry, 2},       ContractText{&ContractRecord::Right, 4},
    ContractText{&ContractRecord::Exchange, 6},     ContractText{&ContractRecord::PrimaryExchange, 7},
    ContractText{&ContractRecord::TypeCurrency, 8},
};

/// The places of its other arguments.
inline constexpr std::size_t kStrikePlace = 3, kMultiplierPlace = 5, kComTypeListIndexPlace = 9;

}  // namespace pellora
