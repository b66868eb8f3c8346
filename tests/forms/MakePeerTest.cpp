#include "forms/MakePeer.h"

#include <gtest/gtest.h>

#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::PlainForm;

struct SomePeer : ControlPeer {
  explicit SomePeer(std::string kind) : kind(std::move(kind)) {}
  void Changed(Aspect) override {}
  void Focus() override {}
  std::string kind;
};

struct WindowOfForm {};

/// A peer that takes controls of one type and the types derived from it.
template <class Kind>
struct PeerFor : SomePeer {
  PeerFor(WindowOfForm&, Kind& control) : SomePeer(typeid(Kind).name()), control(control) {}
  Kind& control;
};

template <class Kind>
std::string NameOf() {
  return typeid(Kind).name();
}

class MakePeer : public testing::Test {
 protected:
  std::string KindMadeFor(Control& control) {
    return MakePeerOf<SomePeer, PeerFor<Label>, PeerFor<TextBox>, PeerFor<CheckBox>, PeerFor<OptionButton>,
                      PeerFor<ComboBox>, PeerFor<ListControl>, PeerFor<CommandButton>, PeerFor<Frame>, PeerFor<Pages>,
                      PeerFor<Grid>, PeerFor<Container>>(window, control)
        ->kind;
  }
  WindowOfForm window;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
};

TEST_F(MakePeer, EachKindHasItsOwn) {
  Label label(form, "one", "One");
  TextBox text(form, "two");
  CheckBox check(form, "three", "Three");
  OptionButton option(form, "four", "Four");
  CommandButton button(form, "five", "Five");
  Frame frame(form, "six", "Six");
  Pages pages(form, "seven");
  Grid grid(form, "eight", {{"Ticker", 80}});
  EXPECT_EQ(KindMadeFor(label), NameOf<Label>());
  EXPECT_EQ(KindMadeFor(text), NameOf<TextBox>());
  EXPECT_EQ(KindMadeFor(check), NameOf<CheckBox>());
  EXPECT_EQ(KindMadeFor(option), NameOf<OptionButton>());
  EXPECT_EQ(KindMadeFor(button), NameOf<CommandButton>());
  EXPECT_EQ(KindMadeFor(frame), NameOf<Frame>());
  EXPECT_EQ(KindMadeFor(pages), NameOf<Pages>());
  EXPECT_EQ(KindMadeFor(grid), NameOf<Grid>());
}

TEST_F(MakePeer, AKindWithoutOneOfItsOwnHasThatOfItsBase) {
  ListBox list(form, "lst");
  Pages pages(form, "tab");
  Page page(pages, "pag", "Page");
  EXPECT_EQ(KindMadeFor(list), NameOf<ListControl>());
  EXPECT_EQ(KindMadeFor(page), NameOf<Container>());
}

TEST_F(MakePeer, OfTwoThatTakeAKindTheFirstIsMade) {
  ComboBox combo(form, "com", ComboStyle::DropDown);
  EXPECT_EQ(KindMadeFor(combo), NameOf<ComboBox>());
}

TEST_F(MakePeer, ItIsMadeForThatControl) {
  Frame frame(form, "fra", "Frame");
  const auto made = MakePeerOf<SomePeer, PeerFor<Control>>(window, frame);
  EXPECT_EQ(&static_cast<PeerFor<Control>&>(*made).control, &frame);
}

}  // namespace
}  // namespace pellora
