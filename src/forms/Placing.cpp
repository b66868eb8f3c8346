#include "forms/Placing.h"

#include <algorithm>

#include "forms/Form.h"
#include "forms/TextBox.h"

namespace pellora {
namespace {

/// What a form that gains by it gets at first, in hundredths of its least size.
constexpr int kComfort = 125;

bool Gains(const Control* control) {
  switch (control->Kind()) {
    case ControlKind::Grid:
    case ControlKind::ListBox: return true;
    case ControlKind::TextBox: return static_cast<const TextBox*>(control)->MultiLine();
    default: return false;
  }
}

bool GainsByRoom(const Form& form) {
  const auto controls = form.Descendants();
  return form.BorderStyle() == BorderStyle::Sizable && std::any_of(controls.begin(), controls.end(), &Gains);
}

}  // namespace

Rect Moved(const Rect& rect, int right, int down) {
  return {rect.left + right, rect.top + down, rect.right + right, rect.bottom + down};
}

Rect MovedInside(const Rect& rect, const Rect& area) {
  const auto left = std::max(area.left, std::min(rect.left, area.right - rect.Width()));
  const auto top = std::max(area.top, std::min(rect.top, area.bottom - rect.Height()));
  return Moved(rect, left - rect.left, top - rect.top);
}

Rect Centred(Size size, const Rect& over) {
  const auto left = over.left + (over.Width() - size.width) / 2;
  const auto top = over.top + (over.Height() - size.height) / 2;
  return {left, top, left + size.width, top + size.height};
}

Size LeastClient(const Form& form, const TextMeasurer& measurer) {
  const auto content = form.Layout() ? MeasureLayout(*form.Layout(), measurer) : Size{};
  const auto margins = 2 * measurer.Scale(kFormMargin);
  return {content.width + margins, content.height + margins};
}

Size FirstClient(const Form& form, const TextMeasurer& measurer, Size room) {
  const auto least = LeastClient(form, measurer);
  if (!GainsByRoom(form)) return least;
  return {std::max(least.width, std::min(least.width * kComfort / 100, room.width)),
          std::max(least.height, std::min(least.height * kComfort / 100, room.height))};
}

}  // namespace pellora
