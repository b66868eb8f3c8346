#include "platform/libreoffice/services/NumberReading.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

#include "core/Error.h"
#include "platform/libreoffice/services/TextReader.h"

namespace pellora::libreoffice {
namespace {

/// Far beyond every number, whatever the digits before it.
constexpr std::int64_t kLargestExponent = std::int64_t{1} << 40;
constexpr std::string_view kApostrophe = "'";
constexpr std::string_view kCurvedApostrophe = "\xE2\x80\x99";

bool IsOneBlank(std::string_view text) {
  TextReader reader(text);
  return reader.TakeBlank() && reader.AtEnd();
}

/// Reads one number. What may stand around the digits (sign, currency, parentheses) may stand once.
class NumberReader {
 public:
  NumberReader(std::string_view text, const LocaleFacts& facts) : m_text(text), m_facts(facts) {}

  std::optional<double> Read() {
    while (TakeBefore()) continue;
    if (m_text.Take("&")) return ReadOfBase();
    if (!ReadDigits()) return std::nullopt;
    ReadExponent();
    while (TakeAfter()) continue;
    if (!m_text.AtEnd() || m_open) return std::nullopt;
    return Signed(Value());
  }

 private:
  bool TakeBefore() { return m_text.TakeBlank() || TakeSign() || TakeCurrency() || TakeOpening(); }
  bool TakeAfter() { return m_text.TakeBlank() || TakeSign() || TakeCurrency() || TakeClosing(); }

  bool TakeSign() {
    if (m_sign || !(m_text.Rest().starts_with('+') || m_text.Rest().starts_with('-'))) return false;
    m_sign = true;
    m_negative = m_negative || m_text.Rest().front() == '-';
    return m_text.Take(m_text.Rest().substr(0, 1));
  }
  bool TakeCurrency() {
    if (m_currency) return false;
    const auto& all = m_facts.currencies;
    m_currency = std::any_of(all.begin(), all.end(), [this](const auto& name) { return m_text.TakeNoCase(name); });
    return m_currency;
  }
  bool TakeOpening() {
    if (m_parentheses || !m_text.Take("(")) return false;
    m_parentheses = m_open = m_negative = true;
    return true;
  }
  bool TakeClosing() {
    if (!m_open || !m_text.Take(")")) return false;
    m_open = false;
    return true;
  }

  bool TakeGroupSeparator() {
    const std::string& separator = m_facts.groupSeparator;
    if (IsOneBlank(separator)) return m_text.TakeBlank();
    if (separator == kApostrophe || separator == kCurvedApostrophe)
      return m_text.Take(kApostrophe) || m_text.Take(kCurvedApostrophe);
    return m_text.Take(separator);
  }
  bool TakeDecimalSeparator() { return m_text.Take(m_facts.decimalSeparator.empty() ? "." : m_facts.decimalSeparator); }

  /// Separators of groups stand between digits or after them, never first.
  bool ReadDigits() {
    for (;;) {
      m_digits += m_text.TakeDigits();
      if (TakeDecimalSeparator()) break;
      if (m_digits.empty() || !TakeGroupSeparator()) return !m_digits.empty();
    }
    const auto whole = m_digits.size();
    m_scale = static_cast<std::int64_t>(whole);
    m_digits += m_text.TakeDigits();
    m_scale -= static_cast<std::int64_t>(m_digits.size());
    return !m_digits.empty();
  }

  /// An "e" without digits after it is none; a currency may begin with it.
  void ReadExponent() {
    TextReader ahead = m_text;
    if (!ahead.TakeNoCase("e")) return;
    const bool negative = ahead.Take("-");
    if (!negative) ahead.Take("+");
    const auto digits = ahead.TakeDigits();
    if (digits.empty()) return;
    m_text = ahead;
    std::int64_t exponent = kLargestExponent;
    std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    exponent = std::min(exponent, kLargestExponent);
    m_scale += negative ? -exponent : exponent;
  }

  double Value() const {
    const auto first = m_digits.find_first_not_of('0');
    if (first == std::string::npos) return 0;
    const std::string number = m_digits + "e" + std::to_string(m_scale);
    double value = 0;
    if (std::from_chars(number.data(), number.data() + number.size(), value).ec == std::errc()) return value;
    // Out of range: too large when the first digit stands before the point, too small otherwise.
    if (static_cast<std::int64_t>(m_digits.size() - first) + m_scale > 0) throw Error(errors::Overflow);
    return 0;
  }
  double Signed(double value) const { return m_negative && value != 0 ? -value : value; }

  /// After the "&": 32 bits, the highest of which is the sign; signs and parentheses before it have no meaning.
  std::optional<double> ReadOfBase() {
    const int base = m_text.TakeNoCase("h") ? 16 : m_text.TakeNoCase("o") ? 8 : 0;
    if (base == 0 || m_sign || m_currency || m_parentheses) return std::nullopt;
    const auto digits = m_text.Rest();
    std::uint32_t bits = 0;
    const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), bits, base);
    if (fault == std::errc::result_out_of_range) throw Error(errors::Overflow);
    if (fault != std::errc()) return std::nullopt;
    TextReader after(digits.substr(static_cast<std::size_t>(end - digits.data())));
    after.TakeBlanks();
    return after.AtEnd() ? std::optional<double>(static_cast<std::int32_t>(bits)) : std::nullopt;
  }

  TextReader m_text;
  const LocaleFacts& m_facts;
  bool m_sign = false, m_negative = false, m_currency = false, m_parentheses = false, m_open = false;
  std::string m_digits;
  /// The number is the digits times ten to this power.
  std::int64_t m_scale = 0;
};

}  // namespace

std::optional<double> ReadNumber(std::string_view text, const LocaleFacts& facts) {
  return NumberReader(text, facts).Read();
}

}  // namespace pellora::libreoffice
