#include <gmock/gmock.h>

#include <com/sun/star/accessibility/AccessibleRole.hpp>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/lang/XEventListener.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <cppuhelper/implbase1.hxx>
#include <memory>

#include "platform/libreoffice/forms/Form.h"
#include "tests/forms/SampleForm.h"
#include "tests/libreoffice/forms/Hands.h"
#include "tests/libreoffice/runner/Runner.h"

namespace pellora::libreoffice {
namespace {

using test::SampleForm;
using testing::ElementsAre;

uno::Reference<com::sun::star::frame::XDesktop2> Desktop() {
  return com::sun::star::frame::Desktop::create(test::Office());
}

uno::Reference<com::sun::star::util::XCloseable> NewDocument() {
  return {Desktop()->loadComponentFromURL("private:factory/scalc", "_blank", 0, {}), uno::UNO_QUERY_THROW};
}

uno::Reference<com::sun::star::frame::XFrame> FrameOf(
    const uno::Reference<com::sun::star::util::XCloseable>& document) {
  const uno::Reference<com::sun::star::frame::XModel> model(document, uno::UNO_QUERY_THROW);
  return model->getCurrentController()->getFrame();
}

uno::Reference<awt::XWindow2> WindowOf(const uno::Reference<com::sun::star::util::XCloseable>& document) {
  return {FrameOf(document)->getContainerWindow(), uno::UNO_QUERY_THROW};
}

/// As an assistive program does: asks for every window in the form's, and for the cells of its tables.
void LookAround(Form& form) {
  using com::sun::star::accessibility::XAccessible;
  const auto& window = static_cast<UnoFormPeer*>(form.WindowPeer())->GetWindow().Peer();
  const uno::Reference<XAccessible> whole(window, uno::UNO_QUERY_THROW);
  const auto inside = whole->getAccessibleContext();
  for (sal_Int32 i = 0; i < inside->getAccessibleChildCount(); ++i) {
    const auto child = inside->getAccessibleChild(i)->getAccessibleContext();
    if (child->getAccessibleRole() != com::sun::star::accessibility::AccessibleRole::TABLE) continue;
    const auto table = child->getAccessibleChild(child->getAccessibleChildCount() - 1)->getAccessibleContext();
    for (sal_Int32 cell = 0; cell < table->getAccessibleChildCount(); ++cell) table->getAccessibleChild(cell);
  }
}

/// Leaves something to do later for the toolkit: it finishes scrolling a table when it has time.
void Scroll(Grid& grid) {
  grid.Rows(100);
  grid.Row(90);
  grid.Row(1);
}

/// Everything else works on a bare display; the close box is the window manager's.
bool HasWindowManager() {
  return RunProgram("xprop -root _NET_SUPPORTING_WM_CHECK").find("window id") != std::string::npos;
}

class Modal : public OfficeFormTest {
 protected:
  SampleForm form{toolkit};
};

TEST_F(Modal, AFormHiddenWhileItComesUpReturns) {
  struct : SampleForm {
    using SampleForm::SampleForm;
    void OnActivate() override { Hide(); }
  } hasty{toolkit};
  hasty.Show();
  EXPECT_FALSE(hasty.Shown());
}

/// Hears of a window's end.
class Mourner : public cppu::WeakImplHelper1<lang::XEventListener> {
 public:
  void SAL_CALL disposing(const lang::EventObject&) override { gone = true; }
  bool gone = false;
};

// What the toolkit has put off for a table, such as scrolling it, it does after the table's end, and crashes, when the
// window goes at once.
TEST_F(Modal, TheWindowOfAFormGoesOnceTheToolkitHasDoneWhatItHasPutOff) {
  const rtl::Reference<Mourner> mourner(new Mourner);
  form.grd.Rows(100);
  form.Load();
  static_cast<UnoFormPeer*>(form.WindowPeer())->GetWindow().Peer()->addEventListener(mourner.get());
  form.Unload();
  EXPECT_FALSE(mourner->gone);
  WithEventsPast();
  EXPECT_TRUE(mourner->gone);
}

TEST_F(Modal, AFormIsActivatedOnceWhenItComesUp) {
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    OnMainThread([&] { form.Hide(); });
  });
  EXPECT_EQ(form.activations, 1);
}

TEST_F(Modal, AFormCanBeShownAgain) {
  for (int i = 0; i < 3; ++i)
    Show(form, [&](Hands& hands) {
      EXPECT_TRUE(hands.FormIsUp());
      hands.Press("Return");
    });
  EXPECT_THAT(form.events, ElementsAre("ok", "ok", "ok"));
}

TEST_F(Modal, ClosingTheWindowUnloadsTheFormByTheUser) {
  if (!HasWindowManager()) GTEST_SKIP() << "no window manager";
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.CloseWindow();
    EXPECT_TRUE(hands.Until([&] { return !form.Shown(); }));
  });
  EXPECT_EQ(form.closeMode, kUnloadByUser);
  EXPECT_FALSE(form.Loaded());
}

TEST_F(Modal, AFormThatIsNotToBeClosedComesUpAgain) {
  if (!HasWindowManager()) GTEST_SKIP() << "no window manager";
  form.refusals = 1;
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.CloseWindow();
    EXPECT_TRUE(hands.Until([&] { return form.closeMode == kUnloadByUser; }));
    EXPECT_TRUE(hands.FormIsUp());
    EXPECT_TRUE(form.Shown());
    hands.Press("Return");
    EXPECT_TRUE(hands.Until([&] { return !form.Shown(); }));
  });
}

TEST_F(Modal, AFormOverAFormTakesTheKeyboardAndGivesItBack) {
  SampleForm second(toolkit, "Second");
  form.butOk.Click = [&] { second.Show(); };
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.Press("Return");
    EXPECT_TRUE(hands.IsUp(second));
    hands.Press("Escape");
    EXPECT_TRUE(hands.Until([&] { return !second.Shown(); }));
    EXPECT_TRUE(hands.FormIsUp());
    // A slow window manager may take the keyboard from the form once more and give it back.
    EXPECT_TRUE(hands.Until([&] { return form.activations >= 2; }));
    hands.Press("Escape");
  });
  EXPECT_THAT(second.events, ElementsAre("cancel"));
  EXPECT_THAT(form.events, ElementsAre("cancel"));
}

TEST_F(Modal, OtherDocumentsCannotBeUsedMeanwhileAndCanAfterwards) {
  const auto other = NewDocument();
  const auto window = WindowOf(other);
  const auto document = NewDocument();
  FrameOf(document)->activate();
  bool meanwhile = true;
  SampleForm over(toolkit);
  Show(over, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    OnMainThread([&] { meanwhile = window->isEnabled(); });
    hands.Press("Escape");
  });
  EXPECT_FALSE(meanwhile);
  EXPECT_TRUE(window->isEnabled());
  document->close(true);
  other->close(true);
}

TEST_F(Modal, AFormIsInFrontOfADocumentThatComesUpTogetherWithIt) {
  const auto current = NewDocument();
  FrameOf(current)->activate();
  const auto late = NewDocument();
  SampleForm over(toolkit);
  Show(over, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.Press("Escape");
  });
  EXPECT_THAT(over.events, ElementsAre("cancel"));
  late->close(true);
  current->close(true);
}

/// A window of another program, which has the keyboard when it has come up.
class OtherProgram {
 public:
  explicit OtherProgram(const Hands& hands) : m_process(RunProgram("xev -name Other >/dev/null & echo $!")) {
    EXPECT_TRUE(hands.WindowHasKeyboard("Other"));
  }
  ~OtherProgram() { RunProgram("kill " + m_process); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

 private:
  std::string m_process;
};

TEST_F(Modal, AFormIsBroughtInFrontOfOtherPrograms) {
  Show(form, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    const OtherProgram other(hands);
    OnMainThread([&] { form.WindowPeer()->BringToFront(); });
    EXPECT_TRUE(hands.WindowHasKeyboard(form.Caption()));
    hands.Press("Escape");
  });
  EXPECT_THAT(form.events, ElementsAre("cancel"));
}

class OverADocument : public Modal {
 protected:
  OverADocument() {
    // The program ends with its last window. No event comes between the last line and the form, so it is over this one.
    static const auto another = NewDocument();
    WithEventsPast();
    document->getCurrentController()->getFrame()->activate();
  }
  ~OverADocument() override {
    WhileThere([&] { Close(); });
  }
  // The program itself refuses to close a document with a dialog over it; taking its window away it does not.
  void TakeWindowAway() { document->getCurrentController()->getFrame()->dispose(); }
  // Has come up, whoever has the keyboard.
  bool IsUp(Hands& hands) {
    return hands.Until([&] {
      const auto* peer = static_cast<UnoFormPeer*>(over.WindowPeer());
      return peer && peer->IsUp();
    });
  }
  void Close() { uno::Reference<com::sun::star::util::XCloseable>(document, uno::UNO_QUERY_THROW)->close(true); }

  uno::Reference<com::sun::star::frame::XModel> document{NewDocument(), uno::UNO_QUERY_THROW};
  SampleForm over{toolkit};
};

TEST_F(OverADocument, AFormEndsWithIt) {
  Show(over, [&](Hands& hands) {
    EXPECT_TRUE(IsUp(hands));
    OnMainThread([&] { TakeWindowAway(); });
    EXPECT_TRUE(hands.Until([&] { return !over.Shown(); }));
  });
  EXPECT_EQ(over.closeMode, kUnloadByUser);
}

// These would crash the program, some of them only after a while.
TEST_F(OverADocument, AFormThatAnAssistiveProgramHasLookedAtEndsWithIt) {
  Show(over, [&](Hands& hands) {
    EXPECT_TRUE(IsUp(hands));
    OnMainThread([&] { LookAround(over); });
    OnMainThread([&] { TakeWindowAway(); });
    EXPECT_TRUE(hands.Until([&] { return !over.Shown(); }));
  });
  WithEventsPast();
}

TEST_F(OverADocument, AFormThatIsScrollingEndsWithIt) {
  Show(over, [&](Hands& hands) {
    EXPECT_TRUE(IsUp(hands));
    OnMainThread([&] {
      Scroll(over.grd);
      TakeWindowAway();
    });
    EXPECT_TRUE(hands.Until([&] { return !over.Shown(); }));
  });
  WithEventsPast();
}

TEST_F(OverADocument, AFormOverAFormEndsWithIt) {
  SampleForm second(toolkit, "Second");
  over.butOk.Click = [&] { second.Show(); };
  Show(over, [&](Hands& hands) {
    EXPECT_TRUE(hands.FormIsUp());
    hands.Press("Return");
    EXPECT_TRUE(hands.IsUp(second));
    OnMainThread([&] {
      LookAround(over);
      LookAround(second);
      TakeWindowAway();
    });
    EXPECT_TRUE(hands.Until([&] { return !over.Shown() && !second.Shown(); }));
  });
  WithEventsPast();
}

TEST_F(OverADocument, AFormHasJustEndedWhenItIsClosed) {
  const Player user(over, [&](Hands& hands) {
    EXPECT_TRUE(IsUp(hands));
    OnMainThread([&] {
      LookAround(over);
      over.Hide();
    });
  });
  over.Show();
  // As a macro does: no event comes in between.
  Close();
}

TEST_F(OverADocument, AFormThatWasScrollingHasJustEndedWhenItIsClosed) {
  const Player user(over, [&](Hands& hands) {
    EXPECT_TRUE(IsUp(hands));
    OnMainThread([&] {
      Scroll(over.grd);
      over.Hide();
    });
  });
  over.Show();
  Close();
}

}  // namespace
}  // namespace pellora::libreoffice
