#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {

rtl::OUString Wide(std::string_view text) {
  return rtl::OUString(text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8);
}

std::string Narrow(const rtl::OUString& text) {
  const auto bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

std::string LowerName(std::string_view name) {
  std::string lower(name);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

}  // namespace pellora::libreoffice
