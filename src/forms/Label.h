#pragma once

#include "forms/Control.h"

namespace pellora {

/// A line of text. Names the control that follows it for assistive programs and access keys.
class Label : public Control {
 public:
  Label(Container& parent, std::string_view name, std::string_view caption);
  TextStyle Style() const { return m_style; }
  void Style(TextStyle style) { m_style = style; }

 private:
  TextStyle m_style = TextStyle::Normal;
};

}  // namespace pellora
