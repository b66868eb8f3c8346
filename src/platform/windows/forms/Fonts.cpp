#include "platform/windows/forms/Fonts.h"

#include "core/Error.h"
#include "platform/windows/forms/Dpi.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows {
namespace {

HFONT MakeFont(LOGFONTW font) {
  const auto made = ::CreateFontIndirectW(&font);
  if (!made) throw Error(errors::OutOfMemory);
  return made;
}

LOGFONTW HeadingFont(int dpi) {
  auto font = MessageFont(dpi);
  font.lfHeight = ::MulDiv(font.lfHeight, 115, 100);
  font.lfWeight = FW_SEMIBOLD;
  return font;
}

}  // namespace

Fonts::Fonts(int dpi)
    : m_dpi(dpi),
      m_normal(MakeFont(MessageFont(dpi))),
      m_heading(MakeFont(HeadingFont(dpi))),
      m_dc(::CreateCompatibleDC(nullptr)) {}

Size Fonts::Measure(std::string_view text, TextStyle style) const {
  const auto wide = Wide(text);
  const auto before = ::SelectObject(m_dc.get(), Get(style));
  SIZE extent{};
  TEXTMETRICW metrics{};
  ::GetTextExtentPoint32W(m_dc.get(), wide.data(), static_cast<int>(wide.size()), &extent);
  ::GetTextMetricsW(m_dc.get(), &metrics);
  ::SelectObject(m_dc.get(), before);
  return {static_cast<int>(extent.cx), static_cast<int>(metrics.tmHeight)};
}

}  // namespace pellora::windows
