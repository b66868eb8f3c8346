#include "core/Error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

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

/// What `CaughtError` makes of an exception.
template <class Exception>
Error ErrorFor(const Exception& thrown, std::string_view source = {}) {
  try {
    throw thrown;
  } catch (...) {
    return CaughtError(source);
  }
}

TEST(CaughtError, AnErrorStaysAsItIs) {
  const auto error = ErrorFor(Error(1004, "Range", "Refused"), "Elsewhere");
  EXPECT_EQ(error.Number(), 1004);
  EXPECT_EQ(error.Source(), "Range");
  EXPECT_EQ(error.Description(), "Refused");
}

TEST(CaughtError, MemoryThatRanOutHasItsOwnNumber) {
  EXPECT_EQ(ErrorFor(std::bad_alloc()).Number(), errors::OutOfMemory);
  EXPECT_EQ(ErrorFor(std::bad_alloc()).Description(), "Out of memory");
}

TEST(CaughtError, AnotherStandardExceptionIsAnInternalErrorWithItsText) {
  const auto error = ErrorFor(std::runtime_error("No such row"), "Here");
  EXPECT_EQ(error.Number(), errors::InternalError);
  EXPECT_EQ(error.Source(), "Here");
  EXPECT_EQ(error.Description(), "No such row");
}

TEST(CaughtError, WhateverElseWasThrownIsAnInternalError) {
  EXPECT_EQ(ErrorFor(42).Number(), errors::InternalError);
  EXPECT_EQ(ErrorFor(42).Description(), "Internal error");
}

}  // namespace
}  // namespace pellora
