#pragma once

#include <algorithm>
#include <com/sun/star/awt/FontDescriptor.hpp>
#include <com/sun/star/awt/XFont.hpp>

#include "forms/Peers.h"
#include "platform/libreoffice/forms/Window.h"

namespace pellora::libreoffice {

/// The two fonts of a form on its display, and the measures of texts in them. The normal one is what the office
/// program uses in its own dialogs.
class Fonts : public TextMeasurer {
 public:
  /// For the display of a window. Raises when the toolkit does not say what it draws with.
  explicit Fonts(const uno::Reference<awt::XWindowPeer>& window);

  /// As the toolkit's windows take it: the height in points.
  const awt::FontDescriptor& Get(TextStyle style) const { return Chosen(style).described; }
  Size Measure(std::string_view text, TextStyle style) const override;
  int Dpi() const override { return m_dpi; }
  int CheckGlyph() const override { return m_checkGlyph; }
  /// Desktops draw them in different sizes; never less than usual.
  void CheckGlyph(int pixels) { m_checkGlyph = std::max(pixels, Scale(20)); }

 private:
  struct Font {
    awt::FontDescriptor described;
    uno::Reference<awt::XFont> measured;
    int height = 0;
  };
  const Font& Chosen(TextStyle style) const { return style == TextStyle::Heading ? m_heading : m_normal; }

  int m_dpi = 96;
  int m_checkGlyph = 20;
  Font m_normal;
  Font m_heading;
};

}  // namespace pellora::libreoffice
