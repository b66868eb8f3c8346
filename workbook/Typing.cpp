#include "workbook/Typing.h"

#include <charconv>
#include <optional>

#include "core/Calendar.h"
#include "core/Convert.h"
#include "core/Error.h"
#include "core/Text.h"
#include "core/TextServices.h"
#include "workbook/Refusal.h"
#include "workbook/Showing.h"

namespace pellora::workbook {
namespace {

constexpr std::size_t kLongestText = 32767;

std::optional<double> TypedNumber(std::string_view text) {
  const bool percent = text.size() > 1 && text.back() == '%';
  if (percent) text.remove_suffix(1);
  try {
    auto number = CurrentTextServices().ParseNumber(text);
    if (number && percent) *number /= 100;
    return number;
  } catch (const Error&) {
    // Too large for a number: it stays a text.
    return std::nullopt;
  }
}

// A date in the order year, month, day, which every locale understands.
std::optional<double> IsoDate(std::string_view text) {
  int year = 0, month = 0, day = 0;
  const auto part = [&](std::size_t at, std::size_t length, int& value) {
    const char* const end = text.data() + at + length;
    return std::from_chars(text.data() + at, end, value).ptr == end;
  };
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  if (!part(0, 4, year) || !part(5, 2, month) || !part(8, 2, day)) return std::nullopt;
  const CalendarDate date{year, month, day};
  return IsDate(date) ? std::optional(DaysFromDate(date)) : std::nullopt;
}

Variant Read(std::string_view text) {
  if (text.empty()) return {};
  if (text.front() == '\'') return std::string(text.substr(1));
  if (EqualAsciiNoCase(text, "TRUE")) return true;
  if (EqualAsciiNoCase(text, "FALSE")) return false;
  if (const auto number = TypedNumber(text)) return *number;
  if (const auto days = IsoDate(text)) return Variant::Date(*days);
  if (const auto days = CurrentTextServices().ParseDate(text)) return Variant::Date(*days);
  if (const auto code = ErrorCodeOf(text)) return Variant::CellError(code);
  return std::string(text);
}

}  // namespace

void TypeInto(Cell& cell, std::string_view text) {
  if (text.size() > kLongestText && ToUtf16(text).size() > kLongestText) Refuse("The text is too long for a cell");
  const bool formula = text.size() > 1 && text.front() == '=';
  cell.formula = formula ? std::string(text) : std::string();
  cell.value = formula ? Variant() : Read(text);
}

void PutInto(Cell& cell, const Variant& value) {
  using Type = Variant::Type;
  if (value.Is(Type::String)) return TypeInto(cell, value.String());
  if (value.Is(Type::Object)) Refuse();
  if (value.Is(Type::Array)) throw Error(errors::TypeMismatch);
  cell.formula.clear();
  const bool nothing = value.Is(Type::Null) || value.Is(Type::Missing);
  const bool whole = value.Is(Type::Integer) || value.Is(Type::Long);
  cell.value = nothing ? Variant() : whole ? Variant(ToDouble(value)) : value;
}

}  // namespace pellora::workbook
