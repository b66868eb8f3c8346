#include "platform/libreoffice/services/TextReader.h"

#include <algorithm>
#include <array>

#include "core/Text.h"

namespace pellora::libreoffice {
namespace {

constexpr std::array<std::string_view, 8> kBlanks = {" ", "\t", "\r", "\n", "\v", "\f", "\xC2\xA0", "\xE2\x80\xAF"};

}  // namespace

bool TextReader::TakeNoCase(std::string_view text) {
  return EqualNoCase(m_rest.substr(0, text.size()), text) && Take(m_rest.substr(0, text.size()));
}

bool TextReader::TakeBlank() {
  return std::any_of(kBlanks.begin(), kBlanks.end(), [this](std::string_view blank) { return Take(blank); });
}

std::string_view TextReader::TakeDigits() {
  const auto digits = m_rest.substr(0, m_rest.find_first_not_of("0123456789"));
  m_rest.remove_prefix(digits.size());
  return digits;
}

}  // namespace pellora::libreoffice
