#pragma once

#include <memory>
#include <type_traits>

#include "forms/CheckBox.h"
#include "forms/ComboBox.h"
#include "forms/CommandButton.h"
#include "forms/Frame.h"
#include "forms/Grid.h"
#include "forms/Label.h"
#include "forms/ListBox.h"
#include "forms/OptionButton.h"
#include "forms/Pages.h"
#include "forms/TextBox.h"

namespace pellora {

/// Calls `use` with the control by its own type; panels and pages, which show nothing themselves, as `Container`.
template <class Use>
decltype(auto) UseByKind(Control& control, Use&& use) {
  switch (control.Kind()) {
    case ControlKind::Label: return use(static_cast<Label&>(control));
    case ControlKind::TextBox: return use(static_cast<TextBox&>(control));
    case ControlKind::CheckBox: return use(static_cast<CheckBox&>(control));
    case ControlKind::OptionButton: return use(static_cast<OptionButton&>(control));
    case ControlKind::ComboBox: return use(static_cast<ComboBox&>(control));
    case ControlKind::ListBox: return use(static_cast<ListBox&>(control));
    case ControlKind::CommandButton: return use(static_cast<CommandButton&>(control));
    case ControlKind::Frame: return use(static_cast<Frame&>(control));
    case ControlKind::Pages: return use(static_cast<Pages&>(control));
    case ControlKind::Grid: return use(static_cast<Grid&>(control));
    case ControlKind::Panel:
    case ControlKind::Page: break;
  }
  return use(static_cast<Container&>(control));
}

/// Makes the first of the peers that takes a control of type `Kind`. Does not compile when none does.
template <class Base, class Peer, class... Others, class PlatformForm, class Kind>
std::unique_ptr<Base> MakeFirstFitting(PlatformForm& form, Kind& control) {
  if constexpr (std::is_constructible_v<Peer, PlatformForm&, Kind&>)
    return std::make_unique<Peer>(form, control);
  else
    return MakeFirstFitting<Base, Others...>(form, control);
}

/// Makes a platform's peer of a control, with the platform's peer of its form: the first of `Peers` that takes a
/// control of that kind. So a platform names its peers, and a kind without one does not compile.
template <class Base, class... Peers, class PlatformForm>
std::unique_ptr<Base> MakePeerOf(PlatformForm& form, Control& control) {
  return UseByKind(control, [&](auto& typed) { return MakeFirstFitting<Base, Peers...>(form, typed); });
}

}  // namespace pellora
