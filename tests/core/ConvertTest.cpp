#include "core/Convert.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/Error.h"
#include "tests/Raised.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;

const Variant kNotAvailable = Variant::CellError(static_cast<std::int32_t>(0x800A07FA));

TEST(ToText, EveryPlainKindHasAText) {
  EXPECT_EQ(ToText(Variant()), "");
  EXPECT_EQ(ToText(true), "True");
  EXPECT_EQ(ToText(false), "False");
  EXPECT_EQ(ToText(std::int16_t{-3}), "-3");
  EXPECT_EQ(ToText(70000), "70000");
  EXPECT_EQ(ToText(1.5), "1.5");
  EXPECT_EQ(ToText(Variant::Date(39434)), "12/18/2007");
  EXPECT_EQ(ToText("as it is "), "as it is ");
}

TEST(ToText, NullRaisesInvalidUseOfNull) {
  EXPECT_EQ(NumberRaisedBy([] { ToText(Variant::Null()); }), 94);
}

TEST(ToText, WhatHasNoTextRaisesTypeMismatch) {
  for (const Variant& value :
       {kNotAvailable, Variant(DispatchPtr()), Variant(std::make_shared<VariantArray>(1, 1)), Variant::Missing()})
    EXPECT_EQ(NumberRaisedBy([&] { ToText(value); }), errors::TypeMismatch);
}

TEST(ToDouble, ATruthValueIsMinusOne) {
  EXPECT_EQ(ToDouble(true), -1);
  EXPECT_EQ(ToDouble(false), 0);
}

TEST(ToDouble, TextsAreReadAndEmptyIsZero) {
  EXPECT_EQ(ToDouble("0.5"), 0.5);
  EXPECT_EQ(ToDouble(Variant()), 0);
  EXPECT_EQ(ToDouble(Variant::Date(2.25)), 2.25);
}

TEST(ToDouble, TextsThatAreNoNumberRaiseTypeMismatch) {
  for (const char* text : {"", "x", "1x", "--1"})
    EXPECT_EQ(NumberRaisedBy([&] { ToDouble(text); }), errors::TypeMismatch) << text;
  EXPECT_EQ(NumberRaisedBy([] { ToDouble(kNotAvailable); }), errors::TypeMismatch);
}

TEST(ToLong, HalvesRoundToTheEvenNeighbour) {
  EXPECT_EQ(ToLong(0.5), 0);
  EXPECT_EQ(ToLong(1.5), 2);
  EXPECT_EQ(ToLong(2.5), 2);
  EXPECT_EQ(ToLong(-1.5), -2);
}

TEST(ToLong, WhatDoesNotFitRaisesOverflow) {
  EXPECT_EQ(ToLong(2147483647.0), 2147483647);
  EXPECT_EQ(NumberRaisedBy([] { ToLong(2147483648.0); }), errors::Overflow);
  EXPECT_EQ(NumberRaisedBy([] { ToLong(std::numeric_limits<double>::quiet_NaN()); }), errors::Overflow);
}

TEST(ToInteger, HoldsSixteenBits) {
  EXPECT_EQ(ToInteger(-32768), -32768);
  EXPECT_EQ(NumberRaisedBy([] { ToInteger(32768); }), errors::Overflow);
}

TEST(ToBoolean, ReadsTheWordsInAnyCaseAndNumbers) {
  EXPECT_TRUE(ToBoolean("true"));
  EXPECT_FALSE(ToBoolean("FALSE"));
  EXPECT_TRUE(ToBoolean("2"));
  EXPECT_FALSE(ToBoolean(0.0));
  EXPECT_EQ(NumberRaisedBy([] { ToBoolean("yes"); }), errors::TypeMismatch);
}

TEST(ToObject, NothingIsAnAnswerAndAnythingElseRaisesObjectRequired) {
  EXPECT_EQ(ToObject(DispatchPtr()), nullptr);
  EXPECT_EQ(NumberRaisedBy([] { ToObject("Nothing"); }), errors::ObjectRequired);
  EXPECT_EQ(NumberRaisedBy([] { ToObject(Variant()); }), errors::ObjectRequired);
}

TEST(IsNumeric, PointsSignsExponentsAndBlanksAroundPass) {
  for (const char* text : {"0", "200712", "0.5", ".5", "5.", "-3", "+3", "1e3", "1E-2", " 7 ", "1,000"})
    EXPECT_TRUE(IsNumeric(text)) << text;
}

TEST(IsNumeric, EmptyTextsWordsAndLoneSignsDoNot) {
  for (const char* text : {"", " ", "Dec07", "1x", "+", "-", ".", "--1", "+-1", "inf", "nan", "0x10", "1 2"})
    EXPECT_FALSE(IsNumeric(text)) << text;
}

TEST(IsNumeric, ANumberTooLargeToConvertIsNone) { EXPECT_FALSE(IsNumeric("1e400")); }

TEST(Val, ReadsTheNumberAtTheBeginning) {
  EXPECT_EQ(Val("4"), 4);
  EXPECT_EQ(Val("1abc"), 1);
  EXPECT_EQ(Val(" 1 2.5"), 12.5);
  EXPECT_EQ(Val("-3x"), -3);
  EXPECT_EQ(Val("+3"), 3);
}

TEST(Val, AnswersZeroWhereThereIsNone) {
  for (const char* text : {"", "x", "CLOSE", "-", "inf", "nan", "--5"}) EXPECT_EQ(Val(text), 0) << text;
}

}  // namespace
}  // namespace pellora
