#include <gtest/gtest.h>

#include <com/sun/star/bridge/oleautomation/Date.hpp>
#include <com/sun/star/bridge/oleautomation/SCode.hpp>
#include <com/sun/star/script/ArrayWrapper.hpp>
#include <com/sun/star/table/CellContentType.hpp>

#include "platform/libreoffice/uno/Values.h"
#include "tests/libreoffice/uno/CalcDocument.h"

namespace pellora::test {
namespace {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Sequence;

Variant From(const Any& value) { return libreoffice::FromAny(value, Office()); }

TEST(ConvertedValues, ComeWithTheirKind) {
  EXPECT_TRUE(From(Any()).IsEmpty());
  EXPECT_EQ(Variant(true), From(Any(true)));
  EXPECT_EQ(Variant(std::int16_t{-5}), From(Any(static_cast<sal_Int16>(-5))));
  EXPECT_EQ(Variant(70000), From(Any(static_cast<sal_Int32>(70000))));
  EXPECT_EQ(Variant(5e9), From(Any(static_cast<sal_Int64>(5000000000))));
  EXPECT_EQ(Variant(0.5), From(Any(0.5f)));
  EXPECT_EQ(Variant("\xC3\xA4"), From(Any(rtl::OUString(u'\u00E4'))));
  EXPECT_EQ(Variant(1), From(Any(css::table::CellContentType_VALUE)));
}

TEST(ConvertedValues, OfAutomationKeepTheirMeaning) {
  EXPECT_EQ(Variant::Date(2.5), From(Any(css::bridge::oleautomation::Date(2.5))));
  EXPECT_EQ(Variant::Missing(), From(Any(css::bridge::oleautomation::SCode(static_cast<sal_Int32>(0x80020004)))));
}

TEST(ConvertedValues, AreNullForAReferenceToNothing) {
  EXPECT_EQ(Variant::Null(), From(Any(css::uno::Reference<css::uno::XInterface>())));
  EXPECT_EQ(Variant(DispatchPtr()), From(Any(css::uno::Reference<css::frame::XModel>())));
}

TEST(ConvertedValues, AreArraysFromTheBaseTheySay) {
  Sequence<Any> row(2);
  row.getArray()[1] <<= 7.0;
  const Sequence<Sequence<Any>> rows(&row, 1);
  const auto block = From(Any(css::script::ArrayWrapper(false, Any(rows))));
  EXPECT_EQ(1, block.Array().RowBase());
  EXPECT_EQ(Variant(7.0), block.Array().At(0, 1));
  EXPECT_EQ(0, From(Any(rows)).Array().RowBase());
}

TEST(ConvertedValues, AreArraysWhateverASequenceHolds) {
  const sal_Int16 numbers[] = {1, 2, 3};
  const auto list = From(Any(Sequence<sal_Int16>(numbers, 3)));
  EXPECT_EQ(1, list.Array().Dimensions());
  EXPECT_EQ(Variant(std::int16_t{3}), list.Array().At(0, 2));
}

TEST(ConvertedValues, GoBackAsSmallAsTheyFit) {
  EXPECT_EQ(Any(static_cast<sal_Int16>(-4123)), libreoffice::ToAny(-4123));
  EXPECT_EQ(Any(static_cast<sal_Int32>(70000)), libreoffice::ToAny(70000));
  EXPECT_FALSE(libreoffice::ToAny(Variant::Missing()).hasValue());
}

TEST(ConvertedValues, FitTheTypeThatIsAskedFor) {
  EXPECT_EQ(Any(true), libreoffice::ToAnyOf(-1, css::uno::TypeClass_BOOLEAN));
  EXPECT_EQ(Any(static_cast<sal_Int32>(5)), libreoffice::ToAnyOf(5.0, css::uno::TypeClass_LONG));
  EXPECT_EQ(errors::TypeMismatch, NumberOf([] { libreoffice::ToAnyOf("x", css::uno::TypeClass_LONG); }));
}

TEST(ConvertedValues, RaiseForObjectsThatAreNotTheProgramsOwn) {
  class Stranger : public Dispatch {
    Variant Invoke(std::string_view, CallKind, std::span<const Variant>) override { return {}; }
    bool Has(std::string_view) override { return false; }
  };
  EXPECT_EQ(errors::TypeMismatch, NumberOf([] { libreoffice::ToAny(DispatchPtr(std::make_shared<Stranger>())); }));
}

}  // namespace
}  // namespace pellora::test
