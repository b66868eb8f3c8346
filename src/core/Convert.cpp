#include "core/Convert.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "core/Error.h"
#include "core/Text.h"
#include "core/TextServices.h"

namespace pellora {
namespace {

constexpr std::int32_t kInvalidUseOfNull = 94;

[[noreturn]] void RaiseNotConvertible(const Variant& value) {
  throw Error(value.Is(Variant::Type::Null) ? kInvalidUseOfNull : errors::TypeMismatch);
}

template <class Whole>
Whole ToWhole(const Variant& value) {
  const double rounded = std::nearbyint(ToDouble(value));
  if (!(rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
        rounded <= static_cast<double>(std::numeric_limits<Whole>::max())))
    throw Error(errors::Overflow);
  return static_cast<Whole>(rounded);
}

}  // namespace

std::string ToText(const Variant& value) {
  switch (value.Kind()) {
    case Variant::Type::Empty: return {};
    case Variant::Type::Boolean: return value.Boolean() ? "True" : "False";
    case Variant::Type::Integer: return std::to_string(value.Integer());
    case Variant::Type::Long: return std::to_string(value.Long());
    case Variant::Type::Double: return CurrentTextServices().NumberText(value.Double());
    case Variant::Type::Date: return CurrentTextServices().DateText(value.DateDays());
    case Variant::Type::String: return value.String();
    default: RaiseNotConvertible(value);
  }
}

double ToDouble(const Variant& value) {
  switch (value.Kind()) {
    case Variant::Type::Empty: return 0;
    case Variant::Type::Boolean: return value.Boolean() ? -1 : 0;
    case Variant::Type::Integer: return value.Integer();
    case Variant::Type::Long: return value.Long();
    case Variant::Type::Double: return value.Double();
    case Variant::Type::Date: return value.DateDays();
    case Variant::Type::String: return TextToDouble(value.String());
    default: RaiseNotConvertible(value);
  }
}

std::int32_t ToLong(const Variant& value) { return ToWhole<std::int32_t>(value); }
std::int16_t ToInteger(const Variant& value) { return ToWhole<std::int16_t>(value); }

bool ToBoolean(const Variant& value) {
  if (value.Is(Variant::Type::String)) {
    if (EqualAsciiNoCase(value.String(), "True")) return true;
    if (EqualAsciiNoCase(value.String(), "False")) return false;
  }
  return ToDouble(value) != 0;
}

DispatchPtr ToObject(const Variant& value) {
  if (!value.Is(Variant::Type::Object)) throw Error(errors::ObjectRequired);
  return value.Object();
}

double TextToDouble(std::string_view text) {
  const auto number = CurrentTextServices().ParseNumber(text);
  if (!number) throw Error(errors::TypeMismatch);
  return *number;
}

bool IsNumeric(std::string_view text) {
  try {
    return CurrentTextServices().ParseNumber(text).has_value();
  } catch (const Error&) {
    // Too large to convert, but a number all the same would be wrong: the platform's test answers false too.
    return false;
  }
}

double Val(std::string_view text) {
  std::string dense;
  for (const char c : text)
    if (c != ' ' && c != '\t' && c != '\r' && c != '\n') dense += c;
  std::string_view rest = dense;
  if (!rest.empty() && rest.front() == '+') rest.remove_prefix(1);
  double value = 0;
  // from_chars also knows "inf" and "nan", which are no numbers here.
  const auto first = rest.find_first_not_of('-');
  if (first == std::string_view::npos || !(rest[first] == '.' || (rest[first] >= '0' && rest[first] <= '9'))) return 0;
  const auto [end, fault] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
  return fault == std::errc{} && end != rest.data() ? value : 0;
}

}  // namespace pellora
