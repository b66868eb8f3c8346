#pragma once

#include "forms/Peers.h"
#include "platform/windows/forms/Owners.h"

namespace pellora::windows {

/// The two fonts of a form at one scale, and the measures of texts in them. Owns the fonts; controls that use them
/// must be given others before this goes.
class Fonts : public TextMeasurer {
 public:
  explicit Fonts(int dpi);

  HFONT Get(TextStyle style) const { return style == TextStyle::Heading ? m_heading.get() : m_normal.get(); }
  Size Measure(std::string_view text, TextStyle style) const override;
  int Dpi() const override { return m_dpi; }

 private:
  int m_dpi;
  FontOwner m_normal;
  FontOwner m_heading;
  MemoryDcOwner m_dc;
};

}  // namespace pellora::windows
