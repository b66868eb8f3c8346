#include "platform/libreoffice/forms/Captions.h"

#include "forms/Control.h"
#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

rtl::OUString DoubleTildes(const rtl::OUString& text) { return text.replaceAll("~", "~~"); }

sal_Int32 FindLetter(const rtl::OUString& text, char letter) {
  return text.toAsciiLowerCase().indexOf(rtl::OUString(static_cast<sal_Unicode>(letter)).toAsciiLowerCase());
}

}  // namespace

rtl::OUString NativeCaption(std::string_view caption, char accessKey) {
  const auto shown = Wide(DisplayText(caption));
  if (!accessKey) return DoubleTildes(shown);
  const auto place = FindLetter(shown, accessKey);
  if (place >= 0) return DoubleTildes(shown.copy(0, place)) + "~" + DoubleTildes(shown.copy(place));
  return DoubleTildes(shown) + " (~" + rtl::OUString(static_cast<sal_Unicode>(accessKey)).toAsciiUpperCase() + ")";
}

}  // namespace pellora::libreoffice
