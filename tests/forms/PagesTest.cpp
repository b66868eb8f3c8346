#include "forms/Pages.h"

#include <gtest/gtest.h>

#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;
using test::PlainForm;
using test::RecordingPeer;

class PagesTest : public testing::Test {
 protected:
  PagesTest() {
    pages.Switch = [this] { ++switches; };
  }
  std::vector<Aspect> told;
  int switches = 0;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
  Pages pages{form, "tabAll"};
  Page first{pages, "pagFirst", "First"};
  Page second{pages, "pagSecond", "Second"};
};

TEST_F(PagesTest, TheFirstPageIsShownAtFirst) {
  EXPECT_EQ(pages.CurrentPage(), 0);
  EXPECT_EQ(pages.PageCount(), 2);
  EXPECT_EQ(&pages.PageAt(1), &second);
}

TEST_F(PagesTest, ShowingAnotherPageRaisesSwitchWhoeverDoesIt) {
  pages.CurrentPage(1);
  pages.PeerPage(0);
  pages.PeerPage(0);
  EXPECT_EQ(switches, 2);
}

TEST_F(PagesTest, PagesOutsideAreRefused) {
  EXPECT_EQ(NumberRaisedBy([&] { pages.CurrentPage(2); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { pages.CurrentPage(-1); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { pages.PageAt(2); }), 381);
  EXPECT_EQ(pages.CurrentPage(), 0);
}

TEST_F(PagesTest, ThePeerHearsOfTheShownPage) {
  pages.AttachPeer(std::make_unique<RecordingPeer>(told));
  pages.CurrentPage(1);
  EXPECT_EQ(told, std::vector<Aspect>{Aspect::Page});
}

TEST_F(PagesTest, TabStopsAtTheTabsOnlyWhenThereAreAny) {
  EXPECT_TRUE(pages.TabStop());
  pages.ShowTabs(false);
  EXPECT_FALSE(pages.TabStop());
}

}  // namespace
}  // namespace pellora
