#include "Desk.h"

namespace pellora::workbook {
namespace {

// What scripts in three languages ask: with the arguments between left out, or all of them given.
class InputBox : public Desk {
 protected:
  using Values = std::vector<Variant>;
  static Variant Left() { return Variant::Missing(); }
  Values Asked() { return {"Where?", "Title", Left(), Left(), Left(), Left(), Left(), 8}; }
  Variant Ask(const Values& values) { return app->Invoke("InputBox", CallKind::Call, values); }
};

TEST_F(InputBox, AnswersThePickedRange) {
  host.Pick("Sheet1!$B$3:$C$5");
  EXPECT_EQ(Get(Ask(Asked()).Object(), "Address"), Variant("$B$3:$C$5"));
}

TEST_F(InputBox, TakesEveryArgumentGiven) {
  host.Pick("Sheet1!$B$3");
  EXPECT_EQ(Get(Ask({"Where?", "Title", "", 60, 60, "", 0, 8}).Object(), "Address"), Variant("$B$3"));
}

TEST_F(InputBox, AnswersFalseToAUserWhoCancels) {
  EXPECT_EQ(Ask(Asked()), Variant(false));
  host.Pick("Sheet1!$B$3");
  host.Pick("");
  EXPECT_EQ(Ask(Asked()), Variant(false));
}

TEST_F(InputBox, AsksForNothingButRanges) {
  for (const Variant& type : {Variant::Missing(), Variant(1), Variant(2)}) {
    auto values = Asked();
    values[7] = type;
    EXPECT_EQ(NumberOf([&] { Ask(values); }), 1004);
  }
  EXPECT_EQ(NumberOf([&] { Ask({"Where?"}); }), 1004);
}

TEST_F(InputBox, TakesNoEmptyValueForAnArgumentThatIsLeftOut) {
  for (std::size_t i = 1; i < 7; ++i) {
    auto values = Asked();
    values[i] = Variant();
    EXPECT_EQ(NumberOf([&] { Ask(values); }), 1004) << i;
  }
}

TEST_F(InputBox, TakesNoTextForAPlaceOnTheScreen) {
  auto values = Asked();
  values[3] = "left";
  EXPECT_EQ(NumberOf([&] { Ask(values); }), 13);
}

}  // namespace
}  // namespace pellora::workbook
