#include "platform/libreoffice/forms/Fonts.h"

#include <cmath>
#include <com/sun/star/awt/DeviceInfo.hpp>
#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/awt/SimpleFontMetric.hpp>
#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XStyleSettings.hpp>
#include <com/sun/star/awt/XStyleSettingsSupplier.hpp>

#include "core/Error.h"
#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

constexpr double kMetresPerInch = 0.0254;
constexpr int kPointsPerInch = 72;

int DpiOf(const uno::Reference<awt::XDevice>& device) {
  const auto dpi = static_cast<int>(std::lround(device->getInfo().PixelPerMeterX * kMetresPerInch));
  return dpi > 0 ? dpi : 96;
}

awt::FontDescriptor HeadingOf(awt::FontDescriptor font) {
  font.Height = static_cast<sal_Int16>(font.Height + std::max(1, font.Height * 15 / 100));
  font.Weight = awt::FontWeight::BOLD;
  return font;
}

/// The device measures in pixels, so there the height has to be in pixels too.
uno::Reference<awt::XFont> DeviceFont(const uno::Reference<awt::XDevice>& device, awt::FontDescriptor font, int dpi) {
  font.Height = static_cast<sal_Int16>((font.Height * dpi + kPointsPerInch / 2) / kPointsPerInch);
  return device->getFont(font);
}

}  // namespace

Fonts::Fonts(const uno::Reference<awt::XWindowPeer>& window) try {
  const uno::Reference<awt::XDevice> device(window, uno::UNO_QUERY_THROW);
  const uno::Reference<awt::XStyleSettingsSupplier> styles(window, uno::UNO_QUERY_THROW);
  m_dpi = DpiOf(device);
  m_normal.described = styles->getStyleSettings()->getApplicationFont();
  m_heading.described = HeadingOf(m_normal.described);
  for (auto* font : {&m_normal, &m_heading}) {
    font->measured = DeviceFont(device, font->described, m_dpi);
    const auto metric = font->measured->getFontMetric();
    font->height = metric.Ascent + metric.Descent;
  }
} catch (const uno::Exception&) {
  throw Error(errors::OutOfMemory);
}

Size Fonts::Measure(std::string_view text, TextStyle style) const {
  const auto& font = Chosen(style);
  Size size{0, font.height};
  WhileThere([&] { size.width = static_cast<int>(font.measured->getStringWidth(Wide(text))); });
  return size;
}

}  // namespace pellora::libreoffice
