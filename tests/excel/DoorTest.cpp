#include "excel/Door.h"

#include <gtest/gtest.h>

#include "RecordingObject.h"

namespace pellora::excel {
namespace {

class Door : public testing::Test {
 protected:
  Door() {
    ReplaceWaiter([this](int milliseconds) { waits.push_back(milliseconds); });
  }
  ~Door() override {
    ReplaceWaiter({});
    ObserveCalls({});
  }

  std::int32_t NumberRaisedBy(CallKind kind) {
    try {
      Use(object, kind, "Member", {});
    } catch (const Error& error) {
      return error.Number();
    }
    return 0;
  }

  std::vector<int> waits;
  Recording object = std::make_shared<RecordingObject>();
};

TEST_F(Door, AnswersWhatTheObjectAnswers) {
  object->answers["Member"] = 42;
  EXPECT_EQ(Use(object, CallKind::Get, "Member", {}).Long(), 42);
  EXPECT_TRUE(waits.empty());
}

TEST_F(Door, NothingRaisesObjectNotSet) {
  object = nullptr;
  EXPECT_EQ(NumberRaisedBy(CallKind::Get), errors::ObjectNotSet);
}

TEST_F(Door, ABusyReadIsTriedAgainUntilItIsAnswered) {
  object->answers["Member"] = "there";
  object->failures = {errors::CallRejected, errors::RetryLater, errors::Suspended};
  EXPECT_EQ(Use(object, CallKind::Get, "Member", {}).String(), "there");
  EXPECT_EQ(object->calls.size(), 4u);
}

TEST_F(Door, AReadThatStaysBusyIsGivenUpWithinAboutASecond) {
  object->failures.assign(100, errors::Suspended);
  EXPECT_EQ(NumberRaisedBy(CallKind::Get), errors::Suspended);
  int waited = 0;
  for (const int wait : waits) waited += wait;
  EXPECT_GE(waited, 500);
  EXPECT_LE(waited, 1500);
}

TEST_F(Door, ABusyWriteIsNeverTriedAgain) {
  for (const CallKind kind : {CallKind::Put, CallKind::PutRef, CallKind::Call}) {
    object->calls.clear();
    object->failures = {errors::CallRejected};
    EXPECT_EQ(NumberRaisedBy(kind), errors::CallRejected);
    EXPECT_EQ(object->calls.size(), 1u);
  }
  EXPECT_TRUE(waits.empty());
}

TEST_F(Door, ARefusedReadIsNotTriedAgain) {
  object->failures = {errors::ApplicationDefined};
  EXPECT_EQ(NumberRaisedBy(CallKind::Get), errors::ApplicationDefined);
  EXPECT_EQ(object->calls.size(), 1u);
}

TEST_F(Door, EveryTryCountsAsACall) {
  object->failures = {errors::CallRejected};
  const auto before = CallCount();
  Use(object, CallKind::Get, "Member", {});
  EXPECT_EQ(CallCount() - before, 2u);
}

TEST_F(Door, AnObserverHearsOfACallBeforeItIsMade) {
  std::vector<std::string> heard;
  ObserveCalls([&](CallKind kind, std::string_view name) {
    heard.push_back(std::string(name) + (kind == CallKind::Put ? " put" : " other"));
    EXPECT_EQ(object->calls.size() + 1, heard.size());
  });
  Use(object, CallKind::Put, "Value", {});
  Use(object, CallKind::Get, "Row", {});
  EXPECT_EQ(heard, (std::vector<std::string>{"Value put", "Row other"}));
}

}  // namespace
}  // namespace pellora::excel
