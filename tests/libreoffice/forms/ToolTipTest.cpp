#include <gtest/gtest.h>

#include <com/sun/star/accessibility/AccessibleRole.hpp>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XExtendedToolkit.hpp>

#include "platform/libreoffice/forms/Window.h"
#include "platform/libreoffice/uno/Text.h"
#include "tests/libreoffice/forms/Hands.h"
#include "tests/libreoffice/forms/SampleForm.h"
#include "tests/libreoffice/runner/Runner.h"

namespace pellora::libreoffice {
namespace {

namespace accessibility = com::sun::star::accessibility;

// The toolkit has no other way left to tell which windows it shows.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
/// The text of the tool tip on the screen, by the toolkit's own account; empty while there is none.
std::string TipShown() {
  const uno::Reference<awt::XExtendedToolkit> windows(awt::Toolkit::create(test::Office()), uno::UNO_QUERY_THROW);
  for (sal_Int32 i = 0; i < windows->getTopWindowCount(); ++i) {
    const uno::Reference<accessibility::XAccessible> shown(windows->getTopWindow(i), uno::UNO_QUERY);
    const auto context = shown.is() ? shown->getAccessibleContext() : nullptr;
    if (context.is() && context->getAccessibleRole() == accessibility::AccessibleRole::TOOL_TIP)
      return Narrow(context->getAccessibleName());
  }
  return {};
}
#pragma GCC diagnostic pop

class ToolTips : public OfficeFormTest {
 protected:
  SampleForm form{toolkit};
};

TEST_F(ToolTips, AreShownWhenTheMouseRestsOnAControl) {
  form.txt.ToolTip("What to type");
  form.butOk.ToolTip("What it does");
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.MoveTo(form.butOk, {20, 8});
    EXPECT_TRUE(hands.Until([] { return TipShown() == "What it does"; }));
    hands.MoveTo(form.txt, {20, 8});
    EXPECT_TRUE(hands.Until([] { return TipShown() == "What to type"; }));
    hands.Press("Escape");
  });
}

}  // namespace
}  // namespace pellora::libreoffice
