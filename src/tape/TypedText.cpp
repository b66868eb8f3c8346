#include "tape/TypedText.h"

#include <algorithm>
#include <array>

#include "core/Text.h"

namespace pellora {
namespace {

// Truth values as the spreadsheet's languages spell them. A text that is marked without need still reads back as it is,
// so a word too many does no harm.
constexpr std::array<std::string_view, 20> kTruthValues = {
    "TRUE", "FALSE",  "WAHR",   "FALSCH", "VRAI", "FAUX",   "VERDADERO", "FALSO", "VERO",   "VERDADEIRO",
    "WAAR", "ONWAAR", "PRAWDA", "FAŁSZ",  "SANT", "FALSKT", "SAND",      "USANN", "ИСТИНА", "ЛОЖЬ"};

bool HasDigit(std::string_view text) {
  if (text.find_first_of("0123456789") != std::string_view::npos) return true;
  // Full-width digits, U+FF10 to U+FF19, are numbers too where they are typed.
  for (auto at = text.find("\xEF\xBC"); at != std::string_view::npos; at = text.find("\xEF\xBC", at + 1)) {
    if (at + 2 >= text.size()) return false;
    const auto last = static_cast<unsigned char>(text[at + 2]);
    if (last >= 0x90 && last <= 0x99) return true;
  }
  return false;
}

bool IsTruthValue(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return false;
  const auto word = text.substr(first, text.find_last_not_of(' ') - first + 1);
  return std::any_of(kTruthValues.begin(), kTruthValues.end(), [&](auto truth) { return EqualNoCase(word, truth); });
}

bool ReadsAsSomethingElse(std::string_view text) {
  constexpr std::string_view starters = "'=+-@#";
  if (text.empty()) return false;
  if (starters.find(text.front()) != std::string_view::npos) return true;
  // No number and no date has an exclamation mark, and most texts with one are locations.
  if (HasDigit(text) && text.find('!') == std::string_view::npos) return true;
  return IsTruthValue(text);
}

std::size_t CharacterLength(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

}  // namespace

std::string AsTypedText(std::string_view text) {
  return ReadsAsSomethingElse(text) ? "'" + std::string(text) : std::string(text);
}

std::string ReplaceEach(std::string_view text, std::string_view symbols, std::string_view replacement) {
  std::string result(text);
  while (!symbols.empty()) {
    const auto symbol = symbols.substr(0, CharacterLength(symbols.front()));
    result = Replace(result, symbol, replacement);
    symbols.remove_prefix(symbol.size());
  }
  return result;
}

}  // namespace pellora
