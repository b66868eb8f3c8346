#include "forms/TextBox.h"

#include <gtest/gtest.h>

#include "tests/forms/FormParts.h"

namespace pellora {
namespace {

using test::PlainForm;
using test::RecordingPeer;

class TextBoxTest : public testing::Test {
 protected:
  TextBoxTest() {
    box.Change = [this] { ++changes; };
    box.AttachPeer(std::make_unique<RecordingPeer>(told));
  }
  std::vector<Aspect> told;
  int changes = 0;
  headless::HeadlessToolkit toolkit;
  PlainForm form{toolkit};
  TextBox box{form, "txtOne"};
};

TEST_F(TextBoxTest, AnotherTextRaisesChangeAndTellsThePeer) {
  box.Text("one");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(told, std::vector<Aspect>{Aspect::Text});
}

TEST_F(TextBoxTest, TheSameTextRaisesNothing) {
  box.Text("");
  EXPECT_EQ(changes, 0);
  EXPECT_TRUE(told.empty());
}

TEST_F(TextBoxTest, TypingRaisesChangeWithoutTellingThePeerWhatItShows) {
  box.PeerText("one");
  EXPECT_EQ(box.Text(), "one");
  EXPECT_EQ(changes, 1);
  EXPECT_TRUE(told.empty());
}

TEST_F(TextBoxTest, TheWholeTextStaysSelectedUntilItChanges) {
  box.Text("one");
  box.SelectAll();
  EXPECT_TRUE(box.AllSelected());
  box.PeerText("two");
  EXPECT_FALSE(box.AllSelected());
}

TEST_F(TextBoxTest, SelectingTellsThePeerEveryTime) {
  box.SelectAll();
  box.SelectAll();
  EXPECT_EQ(told, (std::vector<Aspect>{Aspect::Selection, Aspect::Selection}));
}

TEST_F(TextBoxTest, AHandlerMayChangeTheTextAgain) {
  box.Change = [this] {
    ++changes;
    box.Text("UPPER");
  };
  box.PeerText("upper");
  EXPECT_EQ(box.Text(), "UPPER");
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(told, std::vector<Aspect>{Aspect::Text});
}

}  // namespace
}  // namespace pellora
