#include "platform/windows/ole/Convert.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "RecordingObject.h"
#include "core/Error.h"
#include "platform/windows/ole/ModuleReference.h"

namespace pellora::ole {
namespace {

using Type = Variant::Type;

// A value of automation whose unused bytes are junk, as in a caller's uninitialised memory.
VARIANT Junk() {
  VARIANT value;
  std::memset(&value, 0xCD, sizeof value);
  return value;
}

VARIANT Long(LONG content) {
  VARIANT value = Junk();
  value.vt = VT_I4;
  value.lVal = content;
  return value;
}

std::int32_t NumberOf(const VARIANT& value) {
  try {
    FromVariant(value);
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

struct NumberRow {
  VARTYPE type;
  Variant expected;
};

// Every whole type holding 7, read directly and by reference.
class WholeNumbers : public testing::TestWithParam<NumberRow> {};

TEST_P(WholeNumbers, AreReadWithTheirOwnWidth) {
  VARIANT value = Junk();
  value.vt = GetParam().type;
  value.llVal = 7;
  EXPECT_EQ(FromVariant(value), GetParam().expected);
}

TEST_P(WholeNumbers, AreReadByReference) {
  LONGLONG seven = 7;
  VARIANT value = Junk();
  value.vt = GetParam().type | VT_BYREF;
  value.byref = &seven;
  EXPECT_EQ(FromVariant(value), GetParam().expected);
}

constexpr std::int16_t kShort = 7;
constexpr std::int32_t kLong = 7;
INSTANTIATE_TEST_SUITE_P(Types, WholeNumbers,
                         testing::Values(NumberRow{VT_I1, kShort}, NumberRow{VT_UI1, kShort}, NumberRow{VT_I2, kShort},
                                         NumberRow{VT_UI2, kLong}, NumberRow{VT_I4, kLong}, NumberRow{VT_INT, kLong},
                                         NumberRow{VT_UI4, kLong}, NumberRow{VT_UINT, kLong}, NumberRow{VT_I8, kLong},
                                         NumberRow{VT_UI8, kLong}));

TEST(FromVariant, WholeNumbersBeyond32BitsBecomeDoubles) {
  VARIANT value = Junk();
  value.vt = VT_I8;
  value.llVal = 1LL << 40;
  EXPECT_EQ(FromVariant(value), Variant(1099511627776.0));
}

TEST(FromVariant, AnUnsignedNumberAboveTheSignedRangeStaysPositive) {
  VARIANT value = Junk();
  value.vt = VT_UI4;
  value.ulVal = 0xFFFFFFFF;
  EXPECT_EQ(FromVariant(value), Variant(4294967295.0));
}

TEST(FromVariant, SignedBytesKeepTheirSign) {
  VARIANT value = Junk();
  value.vt = VT_I1;
  value.cVal = static_cast<CHAR>(-1);
  EXPECT_EQ(FromVariant(value), Variant(static_cast<std::int16_t>(-1)));
}

TEST(FromVariant, EmptyAndNullKeepTheirKinds) {
  VARIANT value = Junk();
  value.vt = VT_EMPTY;
  EXPECT_TRUE(FromVariant(value).IsEmpty());
  value.vt = VT_NULL;
  EXPECT_TRUE(FromVariant(value).Is(Type::Null));
}

TEST(FromVariant, AnyBooleanButZeroIsTrue) {
  VARIANT value = Junk();
  value.vt = VT_BOOL;
  value.boolVal = 1;
  EXPECT_EQ(FromVariant(value), Variant(true));
  value.boolVal = VARIANT_FALSE;
  EXPECT_EQ(FromVariant(value), Variant(false));
}

TEST(FromVariant, FractionsOfEveryTypeBecomeDoubles) {
  VARIANT value = Junk();
  value.vt = VT_R4;
  value.fltVal = 1.5f;
  EXPECT_EQ(FromVariant(value), Variant(1.5));
  value.vt = VT_R8;
  value.dblVal = -2.25;
  EXPECT_EQ(FromVariant(value), Variant(-2.25));
  value.vt = VT_CY;
  value.cyVal.int64 = 123456;
  EXPECT_EQ(FromVariant(value), Variant(12.3456));
}

TEST(FromVariant, ADecimalIsReadFromTheWholeValue) {
  VARIANT value = Junk();
  ASSERT_EQ(VarDecFromR8(1234.5, &value.decVal), S_OK);
  value.vt = VT_DECIMAL;
  EXPECT_EQ(FromVariant(value), Variant(1234.5));
}

TEST(FromVariant, ADecimalByReferenceIsRead) {
  DECIMAL decimal;
  ASSERT_EQ(VarDecFromR8(-0.25, &decimal), S_OK);
  VARIANT value = Junk();
  value.vt = VT_DECIMAL | VT_BYREF;
  value.pdecVal = &decimal;
  EXPECT_EQ(FromVariant(value), Variant(-0.25));
}

TEST(FromVariant, ADateIsNoPlainNumber) {
  VARIANT value = Junk();
  value.vt = VT_DATE;
  value.date = 39434.5;
  EXPECT_EQ(FromVariant(value), Variant::Date(39434.5));
}

TEST(FromVariant, TextOfEveryScriptAndInnerZerosArrive) {
  const std::string text("\xE2\x82\xAC \xF0\x9F\x98\x80\0x", 10);
  const BStr held(text);
  VARIANT value = Junk();
  value.vt = VT_BSTR;
  value.bstrVal = held.get();
  EXPECT_EQ(FromVariant(value), Variant(text));
}

TEST(FromVariant, ANullTextIsTheEmptyText) {
  VARIANT value = Junk();
  value.vt = VT_BSTR;
  value.bstrVal = nullptr;
  EXPECT_EQ(FromVariant(value), Variant(""));
}

TEST(FromVariant, AMissingArgumentIsToldFromACellsError) {
  VARIANT value = Junk();
  value.vt = VT_ERROR;
  value.scode = DISP_E_PARAMNOTFOUND;
  EXPECT_TRUE(FromVariant(value).Is(Type::Missing));
  value.scode = static_cast<SCODE>(0x800A07FA);
  EXPECT_EQ(FromVariant(value), Variant::CellError(static_cast<std::int32_t>(0x800A07FA)));
}

TEST(FromVariant, AVariableOfAScriptIsReadThrough) {
  VARIANT variable = Long(5);
  VARIANT value = Junk();
  value.vt = VT_BYREF | VT_VARIANT;
  value.pvarVal = &variable;
  EXPECT_EQ(FromVariant(value), Variant(5));
}

TEST(FromVariant, AReferenceInAVariableIsReadThroughToo) {
  LONG number = 6;
  VARIANT variable = Junk();
  variable.vt = VT_BYREF | VT_I4;
  variable.plVal = &number;
  VARIANT value = Junk();
  value.vt = VT_BYREF | VT_VARIANT;
  value.pvarVal = &variable;
  EXPECT_EQ(FromVariant(value), Variant(6));
}

TEST(FromVariant, AVariableThatRefersToItselfIsATypeMismatch) {
  VARIANT ring = Junk();
  ring.vt = VT_BYREF | VT_VARIANT;
  ring.pvarVal = &ring;
  EXPECT_EQ(NumberOf(ring), errors::TypeMismatch);
}

TEST(FromVariant, ANullReferenceIsATypeMismatch) {
  VARIANT value = Junk();
  value.vt = VT_BYREF | VT_I2;
  value.byref = nullptr;
  EXPECT_EQ(NumberOf(value), errors::TypeMismatch);
  value.vt = VT_BYREF | VT_VARIANT;
  EXPECT_EQ(NumberOf(value), errors::TypeMismatch);
}

TEST(FromVariant, ATypeOutsideTheTableIsNotSupported) {
  VARIANT value = Junk();
  value.vt = VT_RECORD;
  EXPECT_EQ(NumberOf(value), 458);
}

TEST(FromVariant, NothingIsAnObjectThatIsNothing) {
  for (const VARTYPE type : {VT_DISPATCH, VT_UNKNOWN}) {
    VARIANT value = Junk();
    value.vt = type;
    value.pdispVal = nullptr;
    EXPECT_EQ(FromVariant(value), Variant(DispatchPtr()));
  }
}

TEST(FromVariant, AnObjectWithoutLateBindingIsATypeMismatch) {
  ComPtr<ICreateErrorInfo> plain;
  ASSERT_EQ(CreateErrorInfo(plain.put()), S_OK);
  VARIANT value = Junk();
  value.vt = VT_UNKNOWN;
  value.punkVal = plain.get();
  EXPECT_EQ(NumberOf(value), errors::TypeMismatch);
}

template <class Element>
OleArray Block(VARTYPE type, LONG rowBase, LONG columnBase, ULONG rows, ULONG columns, Element (*content)(LONG)) {
  SAFEARRAYBOUND bounds[] = {{rows, rowBase}, {columns, columnBase}};
  OleArray array(SafeArrayCreate(type, 2, bounds));
  for (LONG row = 0; row < static_cast<LONG>(rows); ++row)
    for (LONG column = 0; column < static_cast<LONG>(columns); ++column) {
      LONG at[] = {rowBase + row, columnBase + column};
      Element element = content(row * 10 + column);
      SafeArrayPutElement(array.get(), at, &element);
    }
  return array;
}

VARIANT Holding(const OleArray& array, VARTYPE element) {
  VARIANT value = Junk();
  value.vt = VT_ARRAY | element;
  value.parray = array.get();
  return value;
}

TEST(FromVariantArray, ABlockOfCellsKeepsRowsColumnsAndBases) {
  const auto array = Block<VARIANT>(VT_VARIANT, 1, 1, 3, 2, Long);
  const Variant read = FromVariant(Holding(array, VT_VARIANT));
  const VariantArray& block = read.Array();
  EXPECT_EQ(block.Dimensions(), 2);
  EXPECT_EQ(block.Rows(), 3u);
  EXPECT_EQ(block.Columns(), 2u);
  EXPECT_EQ(block.RowBase(), 1);
  EXPECT_EQ(block.ColumnBase(), 1);
  EXPECT_EQ(block.At(2, 1), Variant(21));
  EXPECT_EQ(block.At(0, 1), Variant(1));
}

TEST(FromVariantArray, OddBasesAreKept) {
  const auto array = Block<double>(VT_R8, -5, 7, 2, 2, [](LONG n) { return n * 0.5; });
  const Variant read = FromVariant(Holding(array, VT_R8));
  EXPECT_EQ(read.Array().RowBase(), -5);
  EXPECT_EQ(read.Array().ColumnBase(), 7);
  EXPECT_EQ(read.Array().At(1, 0), Variant(5.0));
}

TEST(FromVariantArray, TypedElementsAreReadByTheirWidth) {
  const auto shorts = Block<SHORT>(VT_I2, 0, 0, 2, 3, [](LONG n) { return static_cast<SHORT>(n); });
  EXPECT_EQ(FromVariant(Holding(shorts, VT_I2)).Array().At(1, 2), Variant(static_cast<std::int16_t>(12)));
  const auto bytes = Block<BYTE>(VT_UI1, 0, 0, 2, 3, [](LONG n) { return static_cast<BYTE>(n); });
  EXPECT_EQ(FromVariant(Holding(bytes, VT_UI1)).Array().At(1, 2), Variant(static_cast<std::int16_t>(12)));
}

TEST(FromVariantArray, OneDimensionIsOneRow) {
  SAFEARRAYBOUND bound{2, 3};
  OleArray array(SafeArrayCreate(VT_BSTR, 1, &bound));
  for (LONG at = 3; at <= 4; ++at) SafeArrayPutElement(array.get(), &at, BStr(at == 3 ? "a" : "b").get());
  const Variant read = FromVariant(Holding(array, VT_BSTR));
  EXPECT_EQ(read.Array().Dimensions(), 1);
  EXPECT_EQ(read.Array().Rows(), 1u);
  EXPECT_EQ(read.Array().ColumnBase(), 3);
  EXPECT_EQ(read.Array().At(0, 1), Variant("b"));
}

TEST(FromVariantArray, AnArrayByReferenceIsRead) {
  const auto array = Block<VARIANT>(VT_VARIANT, 1, 1, 1, 1, Long);
  SAFEARRAY* held = array.get();
  VARIANT value = Junk();
  value.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  value.pparray = &held;
  EXPECT_EQ(FromVariant(value).Array().Rows(), 1u);
}

TEST(FromVariantArray, AnArrayThatWasNeverMadeHasNoElements) {
  VARIANT value = Junk();
  value.vt = VT_ARRAY | VT_BSTR;
  value.parray = nullptr;
  EXPECT_EQ(FromVariant(value).Array().Columns(), 0u);
}

TEST(FromVariantArray, ThreeDimensionsAreATypeMismatch) {
  SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}, {1, 0}};
  const OleArray array(SafeArrayCreate(VT_I4, 3, bounds));
  EXPECT_EQ(NumberOf(Holding(array, VT_I4)), errors::TypeMismatch);
}

TEST(FromVariantArray, ReadingLeavesTheArrayUnlocked) {
  const auto array = Block<VARIANT>(VT_VARIANT, 1, 1, 2, 2, Long);
  FromVariant(Holding(array, VT_VARIANT));
  EXPECT_EQ(array.get()->cLocks, 0u);
}

struct RoundRow {
  Variant value;
  VARTYPE type;
};

class ToVariantKinds : public testing::TestWithParam<RoundRow> {};

TEST_P(ToVariantKinds, GoOutAsTheirTypeAndComeBackTheSame) {
  VARIANT output = Junk();
  ToVariant(GetParam().value, &output);
  OleVariant owner;
  owner.attach(output);
  EXPECT_EQ(output.vt, GetParam().type);
  EXPECT_EQ(FromVariant(output), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ToVariantKinds,
                         testing::Values(RoundRow{Variant(), VT_EMPTY}, RoundRow{Variant::Null(), VT_NULL},
                                         RoundRow{Variant::Missing(), VT_ERROR}, RoundRow{true, VT_BOOL},
                                         RoundRow{false, VT_BOOL}, RoundRow{std::int16_t{-3}, VT_I2},
                                         RoundRow{70000, VT_I4}, RoundRow{0.1, VT_R8},
                                         RoundRow{Variant::Date(39434.25), VT_DATE}, RoundRow{"\xC3\xA4", VT_BSTR},
                                         RoundRow{"", VT_BSTR},
                                         RoundRow{Variant::CellError(static_cast<std::int32_t>(0x800A07DF)), VT_ERROR},
                                         RoundRow{DispatchPtr(), VT_DISPATCH}));

TEST(ToVariant, TrueIsMinusOne) { EXPECT_EQ(ToVariant(Variant(true)).get().boolVal, VARIANT_TRUE); }

TEST(ToVariant, ABlockComesBackCellByCell) {
  auto block = std::make_shared<VariantArray>(2, 3, 1, 5);
  for (std::size_t row = 0; row < 2; ++row)
    for (std::size_t column = 0; column < 3; ++column) block->At(row, column) = std::to_string(row * 10 + column);
  const OleVariant out = ToVariant(Variant(block));
  LONG at[] = {2, 7};
  OleVariant cell;
  ASSERT_EQ(SafeArrayGetElement(out.get().parray, at, cell.put()), S_OK);
  EXPECT_EQ(FromVariant(cell.get()), Variant("12"));
  EXPECT_EQ(FromVariant(out.get()).Array().At(1, 0), Variant("10"));
}

TEST(ToVariant, AListGoesOutInOneDimension) {
  auto list = std::make_shared<VariantArray>(1, 2, 1, 1, 1);
  list->At(0, 1) = 4;
  const OleVariant out = ToVariant(Variant(list));
  EXPECT_EQ(SafeArrayGetDim(out.get().parray), 1u);
  EXPECT_EQ(FromVariant(out.get()).Array().At(0, 1), Variant(4));
}

TEST(ToVariant, AnObjectOfTheLibraryComesBackAsItself) {
  const DispatchPtr object = std::make_shared<test::RecordingObject>();
  const OleVariant out = ToVariant(Variant(object));
  EXPECT_EQ(FromVariant(out.get()).Object(), object);
}

TEST(ToVariant, OneObjectIsOneAutomationObject) {
  const DispatchPtr object = std::make_shared<test::RecordingObject>();
  const auto first = ToDispatch(object);
  EXPECT_EQ(ToDispatch(object).get(), first.get());
}

TEST(ToVariant, AShownObjectIsHeldNoLongerThanItIsShown) {
  auto object = std::make_shared<test::RecordingObject>();
  const long before = ModuleReference::Count();
  {
    const auto shown = ToDispatch(object);
    EXPECT_EQ(object.use_count(), 2);
    EXPECT_EQ(ModuleReference::Count(), before + 1);
  }
  EXPECT_EQ(object.use_count(), 1);
  EXPECT_EQ(ModuleReference::Count(), before);
}

}  // namespace
}  // namespace pellora::ole
