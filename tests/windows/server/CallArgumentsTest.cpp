#include "platform/windows/server/CallArguments.h"

#include <gtest/gtest.h>

#include "platform/windows/ole/Convert.h"

namespace pellora::windows {
namespace {

using ole::FromVariant;
using ole::OleVariant;
using ole::ToVariant;

constexpr VARTYPE kShortOut = VT_I2 | VT_BYREF;
constexpr VARTYPE kDoubleOut = VT_R8 | VT_BYREF;
constexpr VARTYPE kTextOut = VT_BSTR | VT_BYREF;

VARIANTARG Reference(VARTYPE type, void* variable) {
  VARIANTARG argument;
  VariantInit(&argument);
  argument.vt = type | VT_BYREF;
  argument.byref = variable;
  return argument;
}

// One argument on its way to a member with one argument of a type.
class OneArgument {
 public:
  OneArgument(VARTYPE type, VARIANTARG given) : m_types{type}, m_given(given), m_arguments(m_types) {}

  HRESULT Take() {
    DISPPARAMS parameters{&m_given, nullptr, 1, 0};
    return m_arguments.Take(parameters, &bad);
  }
  VARIANTARG& value() { return *m_arguments.data(); }
  void WriteBack() { m_arguments.WriteBack(); }
  void WriteBackChanged() { m_arguments.WriteBackChanged(); }
  UINT bad = 99;

 private:
  std::vector<VARTYPE> m_types;
  VARIANTARG m_given;
  CallArguments m_arguments;
};

TEST(CallArguments, AVariableOfTheMembersTypeIsPassedItself) {
  short variable = 3;
  OneArgument argument(kShortOut, Reference(VT_I2, &variable));
  ASSERT_EQ(argument.Take(), S_OK);
  EXPECT_EQ(argument.value().piVal, &variable);
}

TEST(CallArguments, AVariantVariableArrivesAsTheMembersType) {
  OleVariant variable = ToVariant(Variant("7"));
  OneArgument argument(kShortOut, Reference(VT_VARIANT, &variable.get()));
  ASSERT_EQ(argument.Take(), S_OK);
  EXPECT_EQ(argument.value().vt, kShortOut);
  EXPECT_EQ(*argument.value().piVal, 7);
}

TEST(CallArguments, AVariantVariableGetsTheMembersTypeBack) {
  OleVariant variable = ToVariant(Variant("7"));
  OneArgument argument(kShortOut, Reference(VT_VARIANT, &variable.get()));
  argument.Take();
  *argument.value().piVal = 9;
  argument.WriteBack();
  EXPECT_EQ(FromVariant(variable.get()), Variant(std::int16_t{9}));
}

TEST(CallArguments, AnUnchangedVariableKeepsItsTypeAfterAFailure) {
  OleVariant variable = ToVariant(Variant("7"));
  OneArgument argument(kShortOut, Reference(VT_VARIANT, &variable.get()));
  argument.Take();
  argument.WriteBackChanged();
  EXPECT_EQ(FromVariant(variable.get()), Variant("7"));
}

TEST(CallArguments, AChangedVariableIsWrittenAfterAFailureToo) {
  OleVariant variable = ToVariant(Variant("7"));
  OneArgument argument(kTextOut, Reference(VT_VARIANT, &variable.get()));
  argument.Take();
  ole::BStr text("8");
  SysFreeString(*argument.value().pbstrVal);
  *argument.value().pbstrVal = text.detach();
  argument.WriteBackChanged();
  EXPECT_EQ(FromVariant(variable.get()), Variant("8"));
}

TEST(CallArguments, AnUnsetVariantVariableCanTakeAText) {
  OleVariant variable;
  OneArgument argument(kTextOut, Reference(VT_VARIANT, &variable.get()));
  ASSERT_EQ(argument.Take(), S_OK);
  ole::BStr text("SPY");
  SysFreeString(*argument.value().pbstrVal);
  *argument.value().pbstrVal = text.detach();
  argument.WriteBack();
  EXPECT_EQ(FromVariant(variable.get()), Variant("SPY"));
}

TEST(CallArguments, NothingIsWrittenBackBeforeTheMemberRan) {
  OleVariant variable = ToVariant(Variant("7"));
  {
    OneArgument argument(kShortOut, Reference(VT_VARIANT, &variable.get()));
    argument.Take();
    *argument.value().piVal = 9;
  }
  EXPECT_EQ(FromVariant(variable.get()), Variant("7"));
}

TEST(CallArguments, AVariableOfAnotherNumberTypeIsConvertedBothWays) {
  LONG variable = 4;
  OneArgument argument(kShortOut, Reference(VT_I4, &variable));
  ASSERT_EQ(argument.Take(), S_OK);
  EXPECT_EQ(*argument.value().piVal, 4);
  *argument.value().piVal = -2;
  argument.WriteBack();
  EXPECT_EQ(variable, -2);
}

TEST(CallArguments, ATextVariableForANumberIsReadAndRewritten) {
  ole::BStr variable("12");
  OneArgument argument(kDoubleOut, Reference(VT_BSTR, variable.put()));
  EXPECT_EQ(argument.Take(), DISP_E_TYPEMISMATCH) << "an empty text is no number";
  BSTR text = SysAllocString(L"12");
  OneArgument second(kDoubleOut, Reference(VT_BSTR, &text));
  ASSERT_EQ(second.Take(), S_OK);
  *second.value().pdblVal = 5;
  second.WriteBack();
  EXPECT_STREQ(text, L"5");
  SysFreeString(text);
}

TEST(CallArguments, AReferenceInAVariantVariableIsWrittenThrough) {
  double number = 1;
  VARIANT variable = Reference(VT_R8, &number);
  OneArgument argument(kDoubleOut, Reference(VT_VARIANT, &variable));
  ASSERT_EQ(argument.Take(), S_OK);
  *argument.value().pdblVal = 2.5;
  argument.WriteBack();
  EXPECT_EQ(number, 2.5);
}

TEST(CallArguments, ALiteralIsAcceptedAndForgotten) {
  OleVariant literal = ToVariant(Variant(3));
  OneArgument argument(kShortOut, literal.get());
  ASSERT_EQ(argument.Take(), S_OK);
  EXPECT_EQ(*argument.value().piVal, 3);
  argument.WriteBack();
  EXPECT_EQ(FromVariant(literal.get()), Variant(3));
}

TEST(CallArguments, WhatDoesNotConvertIsATypeMismatchAndChangesNothing) {
  OleVariant variable = ToVariant(Variant("seven"));
  OneArgument argument(kShortOut, Reference(VT_VARIANT, &variable.get()));
  EXPECT_EQ(argument.Take(), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(argument.bad, 0u);
  EXPECT_EQ(FromVariant(variable.get()), Variant("seven"));
}

TEST(CallArguments, ANumberThatDoesNotFitIsATypeMismatch) {
  OleVariant literal = ToVariant(Variant(70000));
  EXPECT_EQ(OneArgument(kShortOut, literal.get()).Take(), DISP_E_TYPEMISMATCH);
}

TEST(CallArguments, NullReferencesAreATypeMismatch) {
  EXPECT_EQ(OneArgument(kShortOut, Reference(VT_I2, nullptr)).Take(), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(OneArgument(kShortOut, Reference(VT_VARIANT, nullptr)).Take(), DISP_E_TYPEMISMATCH);
}

TEST(CallArguments, AnArrayVariableIsATypeMismatch) {
  SAFEARRAY* array = nullptr;
  EXPECT_EQ(OneArgument(kShortOut, Reference(VT_ARRAY | VT_I2, &array)).Take(), DISP_E_TYPEMISMATCH);
}

TEST(CallArguments, AnArgumentThatIsLeftOutIsNotOptional) {
  OleVariant missing = ToVariant(Variant::Missing());
  EXPECT_EQ(OneArgument(kShortOut, missing.get()).Take(), DISP_E_PARAMNOTOPTIONAL);
}

TEST(CallArguments, AVariantArgumentTakesAnythingAsItIs) {
  OleVariant variable = ToVariant(Variant("text"));
  OneArgument argument(VT_VARIANT, Reference(VT_VARIANT, &variable.get()));
  ASSERT_EQ(argument.Take(), S_OK);
  EXPECT_EQ(argument.value().vt, VT_BSTR);
}

// Two arguments, given in the caller's order: last first, named ones before all others.
class TwoArguments : public testing::Test {
 protected:
  HRESULT Take(std::vector<VARIANTARG> given, std::vector<DISPID> names = {}) {
    DISPPARAMS parameters{given.data(), names.data(), static_cast<UINT>(given.size()), static_cast<UINT>(names.size())};
    return m_arguments.Take(parameters, nullptr);
  }
  // In their written order.
  short First() { return m_arguments.data()[1].iVal; }
  short Second() { return m_arguments.data()[0].iVal; }
  static VARIANTARG Short(short value) {
    VARIANTARG argument;
    VariantInit(&argument);
    argument.vt = VT_I2;
    argument.iVal = value;
    return argument;
  }

 private:
  std::vector<VARTYPE> m_types{VT_I2, VT_I2};
  CallArguments m_arguments{m_types};
};

TEST_F(TwoArguments, ArePlacedFromTheLast) {
  ASSERT_EQ(Take({Short(2), Short(1)}), S_OK);
  EXPECT_EQ(First(), 1);
  EXPECT_EQ(Second(), 2);
}

TEST_F(TwoArguments, ArePlacedByName) {
  ASSERT_EQ(Take({Short(1), Short(2)}, {0, 1}), S_OK);
  EXPECT_EQ(First(), 1);
  EXPECT_EQ(Second(), 2);
}

TEST_F(TwoArguments, CanBePlacedAndNamedTogether) {
  ASSERT_EQ(Take({Short(2), Short(1)}, {1}), S_OK);
  EXPECT_EQ(First(), 1);
  EXPECT_EQ(Second(), 2);
}

TEST_F(TwoArguments, OneIsTooFew) { EXPECT_EQ(Take({Short(1)}), DISP_E_PARAMNOTOPTIONAL); }
TEST_F(TwoArguments, ThreeAreTooMany) { EXPECT_EQ(Take({Short(1), Short(2), Short(3)}), DISP_E_BADPARAMCOUNT); }
TEST_F(TwoArguments, AnUnknownNameIsRefused) { EXPECT_EQ(Take({Short(1), Short(2)}, {5}), DISP_E_PARAMNOTFOUND); }
TEST_F(TwoArguments, AWildNameIsRefused) { EXPECT_EQ(Take({Short(1), Short(2)}, {-77}), DISP_E_PARAMNOTFOUND); }

}  // namespace
}  // namespace pellora::windows
