#include "core/Error.h"

#include <gtest/gtest.h>

namespace pellora {
namespace {

TEST(NumberFromCode, StandardCodesBecomeClassicNumbers) {
  EXPECT_EQ(NumberFromCode(static_cast<std::int32_t>(0x80020005)), 13);
  EXPECT_EQ(NumberFromCode(static_cast<std::int32_t>(0x80020006)), 438);
  EXPECT_EQ(NumberFromCode(static_cast<std::int32_t>(0x8007000E)), 7);
}

TEST(NumberFromCode, SpreadsheetCodesShowTheirLowSixteenBits) {
  EXPECT_EQ(NumberFromCode(static_cast<std::int32_t>(0x800A03EC)), 1004);
}

TEST(NumberFromCode, BusyCodesStayWhole) {
  for (const auto code : {errors::CallRejected, errors::RetryLater, errors::Suspended}) {
    EXPECT_EQ(NumberFromCode(code), code);
    EXPECT_TRUE(IsBusy(code));
  }
}

TEST(CodeFromNumber, InvertsTheNumbersThatMacrosSee) {
  for (const std::int32_t number : {5, 13, 91, 438, 1004}) EXPECT_EQ(NumberFromCode(CodeFromNumber(number)), number);
  EXPECT_EQ(CodeFromNumber(errors::Component(100)), -2147221404);
}

TEST(StandardDescription, UnknownNumbersHaveTheGeneralText) {
  EXPECT_EQ(StandardDescription(13), "Type mismatch");
  EXPECT_EQ(StandardDescription(1004), "Application-defined or object-defined error");
}

}  // namespace
}  // namespace pellora
