#pragma once

#include "Hands.h"
#include "tests/forms/SampleForm.h"

namespace pellora::windows {

/// Tests at a form with a control of each kind.
class SampleFormTest : public WindowsFormTest {
 protected:
  /// Shows the form, plays, and closes it unless the part has ended it.
  void Play(const std::function<void(Hands&)>& part) {
    const Player player([&](Hands& hands) {
      const auto window = hands.WaitFor(form);
      Until([&] { return hands.Has(*form.ActiveControl()); });
      part(hands);
      hands.Close(window);
    });
    form.Show();
  }

  test::SampleForm form{toolkit};
};

}  // namespace pellora::windows
