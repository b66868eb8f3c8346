#pragma once

#include <string>

#include "forms/Form.h"
#include "forms/Pages.h"

namespace pellora::test {

inline bool IsLeaf(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::Frame:
    case ControlKind::Panel:
    case ControlKind::Pages:
    case ControlKind::Page: return false;
    default: return true;
  }
}

inline bool Overlap(const Rect& one, const Rect& two) {
  return one.left < two.right && two.left < one.right && one.top < two.bottom && two.top < one.bottom;
}

inline bool Contains(const Rect& outer, const Rect& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

/// The page a control stands on, or null.
inline const Control* PageOf(const Control& control) {
  const Control* above = &control;
  while (above && above->Kind() != ControlKind::Page) above = above->Parent();
  return above;
}

inline bool IsShown(const Control& control) {
  for (const Control* above = &control; above; above = above->Parent())
    if (!above->Visible()) return false;
  return true;
}

/// True for controls that are on screen together: not on different pages.
inline bool SeenTogether(const Control& one, const Control& two) {
  return !PageOf(one) || !PageOf(two) || PageOf(one) == PageOf(two);
}

inline bool HoldsItsText(const Control& control, const TextMeasurer& measurer) {
  const auto picture = control.Kind() == ControlKind::CommandButton &&
                       static_cast<const CommandButton&>(control).Picture() != ButtonPicture::None;
  if (control.Caption().empty() || picture || control.Caption().find('\n') != std::string::npos) return true;
  const auto text = measurer.Measure(DisplayText(control.Caption()), TextStyle::Normal);
  return control.Bounds().Width() >= text.width && control.Bounds().Height() >= text.height;
}

/// What is wrong with the places of a form's visible controls, a line for each fault; "" when nothing is.
inline std::string LayoutFaults(const Form& form, Size client, const TextMeasurer& measurer) {
  std::string faults;
  const Rect area{0, 0, client.width, client.height};
  const auto all = form.Descendants();
  for (auto one = all.begin(); one != all.end(); ++one) {
    const auto& control = **one;
    if (!IsShown(control)) continue;
    if (!Contains(area, control.Bounds())) faults += control.Name() + " leaves the client area\n";
    if (control.Parent() != &form && !Contains(control.Parent()->Bounds(), control.Bounds()))
      faults += control.Name() + " leaves its container\n";
    if (control.Kind() != ControlKind::Page && !HoldsItsText(control, measurer))
      faults += control.Name() + " is smaller than its text\n";
    for (auto two = std::next(one); two != all.end(); ++two)
      if (IsLeaf(control) && IsLeaf(**two) && IsShown(**two) && SeenTogether(control, **two) &&
          Overlap(control.Bounds(), (*two)->Bounds()))
        faults += control.Name() + " overlaps " + (*two)->Name() + "\n";
  }
  return faults;
}

}  // namespace pellora::test
