#pragma once

#include <cctype>
#include <map>
#include <string>
#include <vector>

#include "forms/Form.h"
#include "platform/headless/HeadlessFormPeer.h"

namespace pellora::tests {

inline std::vector<std::string> NamesOf(const std::vector<Control*>& controls) {
  std::vector<std::string> names;
  for (const auto* control : controls) names.push_back(control->Name());
  return names;
}

/// What is wrong with the access keys of the controls that can be used now: keys given twice, and keys that the
/// control's caption has no letter for. "" for nothing.
inline std::string AccessKeyFaults(const Form& form) {
  std::string faults;
  std::map<int, std::string> taken;
  for (const auto* control : form.Descendants()) {
    const int key = std::toupper(static_cast<unsigned char>(control->AccessKey()));
    if (!key || !control->Usable()) continue;
    if (!taken.emplace(key, control->Name()).second)
      faults += control->Name() + " repeats the key of " + taken[key] + "\n";
    if (control->Caption().find(control->AccessKey()) == std::string::npos)
      faults += control->Name() + " has no letter " + control->AccessKey() + "\n";
  }
  return faults;
}

/// What can be typed into or chosen from now, and no assistive program could name. "" for nothing.
inline std::string NamelessControls(const Form& form) {
  std::string nameless;
  for (const auto* control : form.TabOrder())
    if (control->AccessibleName().empty()) nameless += control->Name() + "\n";
  return nameless;
}

inline bool Overlap(const Rect& a, const Rect& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// The controls on view that stand outside the client area, are empty, or overlap another. "" for none.
inline std::string LayoutFaults(const Form& form) {
  const auto client = dynamic_cast<headless::HeadlessFormPeer&>(*form.WindowPeer()).Client();
  std::vector<const Control*> shown;
  std::string faults;
  for (const auto* control : form.Descendants()) {
    const auto kind = control->Kind();
    const bool container = kind == ControlKind::Frame || kind == ControlKind::Panel || kind == ControlKind::Pages ||
                           kind == ControlKind::Page;
    if (container || !control->Usable()) continue;
    const auto& box = control->Bounds();
    if (box.Width() <= 0 || box.Height() <= 0) faults += control->Name() + " has no room\n";
    if (box.left < 0 || box.top < 0 || box.right > client.width || box.bottom > client.height)
      faults += control->Name() + " stands outside\n";
    for (const auto* other : shown)
      if (Overlap(box, other->Bounds())) faults += control->Name() + " overlaps " + other->Name() + "\n";
    shown.push_back(control);
  }
  return faults;
}

}  // namespace pellora::tests
