#include <gtest/gtest.h>

#include <optional>
#include <utility>

#include "tests/forms/SampleForm.h"
#include "tests/libreoffice/forms/Hands.h"

namespace pellora::libreoffice {
namespace {

using test::SampleForm;

constexpr auto kTitle = "The title";

/// A form whose default button brings up a message.
class Messages : public OfficeFormTest {
 protected:
  void Ask(MessageButtons buttons) {
    form.butOk.Click = [this, buttons] {
      const auto given = toolkit.ShowMessage({"Again?", kTitle, buttons, true});
      answer = given;
    };
  }
  /// Brings the message up, plays the part, and goes back through the form.
  void Play(const std::function<void(Hands&)>& part) {
    Show(form, [&](Hands& hands) {
      EXPECT_TRUE(hands.FormIsUp());
      hands.Press("Return");
      EXPECT_TRUE(hands.WindowHasKeyboard(kTitle));
      part(hands);
      EXPECT_TRUE(hands.Until([&] { return answer.has_value(); }));
      EXPECT_TRUE(hands.FormIsUp());
      hands.Press("Escape");
    });
  }

  SampleForm form{toolkit};
  std::optional<MessageAnswer> answer;
};

TEST_F(Messages, AMessageIsConfirmed) {
  Ask(MessageButtons::Ok);
  Play([](Hands& hands) { hands.Press("Return"); });
  EXPECT_EQ(answer, MessageAnswer::Ok);
}

TEST_F(Messages, EscapeAnswersAMessageThatCanOnlyBeConfirmed) {
  Ask(MessageButtons::Ok);
  Play([](Hands& hands) { hands.Press("Escape"); });
  EXPECT_EQ(answer, MessageAnswer::Ok);
}

TEST_F(Messages, AMessageKeepsTheKeyboardWhenTheFormBelowIsAskedToComeForward) {
  Ask(MessageButtons::Ok);
  Play([&](Hands& hands) {
    OnMainThread([&] { form.WindowPeer()->BringToFront(); });
    hands.Press("Return");
    EXPECT_TRUE(hands.Until([&] { return answer.has_value(); }));
    EXPECT_TRUE(form.Shown());
  });
  EXPECT_EQ(answer, MessageAnswer::Ok);
}

class Answers : public Messages, public testing::WithParamInterface<std::pair<const char*, MessageAnswer>> {};

TEST_P(Answers, AreThoseOfTheButtonPressed) {
  Ask(MessageButtons::AbortRetryIgnore);
  Play([](Hands& hands) { hands.Press(GetParam().first); });
  EXPECT_EQ(answer, GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Message, Answers,
                         testing::Values(std::pair{"alt+a", MessageAnswer::Abort},
                                         std::pair{"alt+r", MessageAnswer::Retry},
                                         std::pair{"alt+i", MessageAnswer::Ignore}));

TEST_F(Messages, EscapeDoesNotAnswerWhatNeedsAnAnswer) {
  Ask(MessageButtons::AbortRetryIgnore);
  Play([](Hands& hands) { hands.Press("Escape alt+i"); });
  EXPECT_EQ(answer, MessageAnswer::Ignore);
}

TEST_F(Messages, ClosingTheWindowDoesNotAnswerWhatNeedsAnAnswer) {
  Ask(MessageButtons::AbortRetryIgnore);
  Play([](Hands& hands) {
    hands.CloseWindow(kTitle);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_TRUE(hands.WindowHasKeyboard(kTitle));
    hands.Press("alt+r");
  });
  EXPECT_EQ(answer, MessageAnswer::Retry);
}

}  // namespace
}  // namespace pellora::libreoffice
