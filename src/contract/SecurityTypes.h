#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "contract/frmAddTicker.h"

namespace pellora {

/// What a text box must hold before its contract may be inserted.
enum class FieldRule { NotEmpty, Numeric };

struct FieldCheck {
  TextBox frmAddTicker::*box = nullptr;
  FieldRule rule = FieldRule::NotEmpty;
};

/// One "..." button, the list it edits and the name of its routine.
struct ListButton {
  std::string_view routine;
  CommandButton frmAddTicker::*button;
  ComboBox frmAddTicker::*list;
};

/// A security type: how it is called, and which control of the dialog holds which field of its contract. A null
/// member is a field that the type does not have. The settings of a list or box are stored under its control's name,
/// a list's choice under that name and "Text"; only the currency has keys of its own, shared by all types.
struct SecurityType {
  std::string_view text;
  std::string_view typeSymbol;
  Panel frmAddTicker::*panel;
  TextBox frmAddTicker::*symbol;
  ComboBox frmAddTicker::*exchange;
  ListButton exchangeButton;
  ComboBox frmAddTicker::*currency;
  ListButton currencyButton;
  TextBox frmAddTicker::*primaryExchange;
  TextBox frmAddTicker::*expiry;
  ComboBox frmAddTicker::*right;
  TextBox frmAddTicker::*multiplier;
  std::string_view defaultExchanges;
  std::string_view defaultExchange;
  /// In the order in which they are made; the first that has no box ends them.
  std::array<FieldCheck, 4> checks;
};

/// Positions in `kSecurityTypes`: the indexes of the type list and of the pages.
enum SecurityTypeIndex : std::size_t { kStock, kOption, kFutures, kIndex, kFutOpt, kCash };

extern const std::array<SecurityType, 6> kSecurityTypes;

/// The type of that text, compared exactly; null for none.
const SecurityType* FindSecurityType(std::string_view text);

/// The text of one of a type's boxes or lists; empty for a field that the type does not have.
template <class Box>
std::string FieldText(const frmAddTicker& form, Box frmAddTicker::*field) {
  return field ? (form.*field).Text() : std::string();
}

}  // namespace pellora
