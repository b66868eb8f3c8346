#include <gmock/gmock.h>

#include <cctype>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/awt/XLayoutConstrains.hpp>
#include <map>

#include "platform/libreoffice/forms/Control.h"
#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/uno/Text.h"
#include "tests/libreoffice/forms/Dialogs.h"

namespace pellora::libreoffice {
namespace {

const Window& WindowOf(const Control& control) {
  return static_cast<const UnoControlPeer*>(control.Peer())->GetWindow();
}

/// The controls with a window of their own that the user can reach now.
std::vector<Control*> Reachable(Form& form) {
  auto controls = form.Descendants();
  std::erase_if(controls, [](const Control* control) { return !WindowOf(*control) || !control->Usable(); });
  return controls;
}

/// The toolkit leaves arrows at the end of a button's caption out of its name.
std::string NameOf(const Control& control) {
  const auto name = control.AccessibleName();
  return name.ends_with(" >>") ? name.substr(0, name.size() - 3) : name;
}

std::string NameShown(const Window& window) {
  const auto shown = window.As<com::sun::star::accessibility::XAccessible>();
  return shown.is() ? Narrow(shown->getAccessibleContext()->getAccessibleName()) : "nothing";
}

class Dialogs : public DialogTest {};

TEST_F(Dialogs, ControlsHaveTheirNamesForAssistivePrograms) {
  std::string wrong;
  int named = 0;
  WithEachDialog([&](Form& form) {
    for (const auto* control : Reachable(form)) {
      const auto name = NameShown(WindowOf(*control));
      if (name != NameOf(*control))
        wrong += form.Name() + "." + control->Name() + " is \"" + name + "\" and not \"" + control->AccessibleName() +
                 "\"\n";
      if (!name.empty()) ++named;
    }
  });
  EXPECT_EQ(wrong, "");
  EXPECT_GT(named, 100);
}

TEST_F(Dialogs, WhatTakesTheKeyboardHasANameForAssistivePrograms) {
  std::string nameless;
  WithEachDialog([&](Form& form) {
    for (const auto* control : form.TabOrder())
      if (NameShown(WindowOf(*control)).empty()) nameless += form.Name() + "." + control->Name() + "\n";
  });
  EXPECT_EQ(nameless, "");
}

TEST_F(Dialogs, ControlsHaveTheirToolTips) {
  std::string wrong;
  int found = 0;
  WithEachDialog([&](Form& form) {
    for (const auto* control : Reachable(form)) {
      rtl::OUString tip;
      WindowOf(*control).Get("HelpText") >>= tip;
      if (Narrow(tip) != control->ToolTip()) wrong += form.Name() + "." + control->Name() + "\n";
      if (!tip.isEmpty()) ++found;
    }
  });
  EXPECT_EQ(wrong, "");
  EXPECT_GT(found, 10);
}

/// The text on a control by the toolkit's own account, with a mark before the letter that is its access key.
std::string TextOn(const Control& control) {
  rtl::OUString text;
  for (const auto* property : {"Label", "Text"})
    if (text.isEmpty()) WindowOf(control).Get(property) >>= text;
  return Narrow(text);
}

/// The letter that the toolkit underlines, in lower case, or 0.
char Underlined(const std::string& text) {
  const auto mark = text.find('~');
  const auto there = mark != std::string::npos && mark + 1 < text.size();
  return there ? static_cast<char>(std::tolower(static_cast<unsigned char>(text[mark + 1]))) : '\0';
}

TEST_F(Dialogs, AccessKeysOfAShownDialogAreEachForOneControl) {
  std::string wrong;
  int found = 0;
  WithEachDialog([&](Form& form) {
    std::map<char, std::string> taken;
    Show(form, [&](Hands& hands) {
      EXPECT_TRUE(hands.FormIsUp());
      OnMainThread([&] {
        for (const auto* control : Reachable(form)) {
          const auto letter = control->Kind() == ControlKind::TextBox ? '\0' : Underlined(TextOn(*control));
          if (!letter) continue;
          ++found;
          auto& owner = taken[letter];
          if (!owner.empty()) wrong += form.Name() + ": " + owner + " and " + control->Name() + "\n";
          owner = control->Name();
        }
        form.Hide();
      });
    });
  });
  EXPECT_EQ(wrong, "");
  EXPECT_GT(found, 20);
}

/// The captions that their controls, by the toolkit's own account, have no room for.
std::string Clipped(Form& form) {
  std::string clipped;
  // Texts that have come with loading are laid out when the form is placed.
  form.SetPlacement(form.GetPlacement().value_or(Placement{}));
  for (const auto* control : Reachable(form)) {
    if (control->Caption().empty() || control->Kind() == ControlKind::Frame) continue;
    const auto least = WindowOf(*control).As<awt::XLayoutConstrains>()->getMinimumSize();
    // A button's least size has much room around the text, which may well be smaller.
    const auto spare = control->Kind() == ControlKind::CommandButton ? 16 : 2;
    const auto& has = control->Bounds();
    if (least.Width > has.Width() + spare)
      clipped += form.Name() + "." + control->Name() + " needs " + std::to_string(least.Width) + " has " +
                 std::to_string(has.Width()) + "\n";
  }
  return clipped;
}

TEST_F(Dialogs, CaptionsFitTheirControls) {
  std::string clipped;
  WithEachDialog([&](Form& form) { clipped += Clipped(form); });
  EXPECT_EQ(clipped, "");
}

}  // namespace
}  // namespace pellora::libreoffice
