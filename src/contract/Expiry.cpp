#include "contract/Expiry.h"

namespace pellora {
namespace {

std::string Padded(int value, std::size_t digits) {
  const std::string text = std::to_string(value);
  return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

}  // namespace

std::string NextMonth(CalendarDate today) {
  const bool lastMonth = today.month == 12;
  return Padded(lastMonth ? today.year + 1 : today.year, 4) + Padded(lastMonth ? 1 : today.month + 1, 2);
}

}  // namespace pellora
