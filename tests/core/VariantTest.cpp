#include "core/Variant.h"

#include <gtest/gtest.h>

#include "core/Dispatch.h"
#include "core/Error.h"
#include "tests/Raised.h"

namespace pellora {
namespace {

using test::NumberRaisedBy;

class NoMembers : public Dispatch {
 public:
  Variant Invoke(std::string_view, CallKind, std::span<const Variant>) override {
    throw Error(errors::MemberNotSupported);
  }
  bool Has(std::string_view) override { return false; }
};

TEST(Variant, EveryKindOfValueKnowsItsKind) {
  using Type = Variant::Type;
  EXPECT_EQ(Variant().Kind(), Type::Empty);
  EXPECT_EQ(Variant::Null().Kind(), Type::Null);
  EXPECT_EQ(Variant::Missing().Kind(), Type::Missing);
  EXPECT_EQ(Variant(true).Kind(), Type::Boolean);
  EXPECT_EQ(Variant(std::int16_t{1}).Kind(), Type::Integer);
  EXPECT_EQ(Variant(1).Kind(), Type::Long);
  EXPECT_EQ(Variant(1.0).Kind(), Type::Double);
  EXPECT_EQ(Variant::Date(1).Kind(), Type::Date);
  EXPECT_EQ(Variant("text").Kind(), Type::String);
  EXPECT_EQ(Variant::CellError(1).Kind(), Type::Error);
  EXPECT_EQ(Variant(DispatchPtr()).Kind(), Type::Object);
  EXPECT_EQ(Variant(std::make_shared<VariantArray>(1, 1)).Kind(), Type::Array);
}

TEST(Variant, ALiteralTextIsATextAndNoTruthValue) { EXPECT_EQ(Variant("a").String(), "a"); }

TEST(Variant, HeldValuesComeBackAsTheyAre) {
  EXPECT_TRUE(Variant(true).Boolean());
  EXPECT_EQ(Variant(std::int16_t{-7}).Integer(), -7);
  EXPECT_EQ(Variant(70000).Long(), 70000);
  EXPECT_EQ(Variant(0.5).Double(), 0.5);
  EXPECT_EQ(Variant::Date(39434.25).DateDays(), 39434.25);
  EXPECT_EQ(Variant::CellError(0x7FA).ErrorCode(), 0x7FA);
}

TEST(Variant, AskingForAnotherKindRaisesTypeMismatch) {
  EXPECT_EQ(NumberRaisedBy([] { Variant("1").Long(); }), errors::TypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { Variant(1).String(); }), errors::TypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { Variant().Array(); }), errors::TypeMismatch);
}

TEST(Variant, ADateIsNotEqualToItsPlainNumber) { EXPECT_FALSE(Variant::Date(1) == Variant(1.0)); }

TEST(Variant, ObjectsAreEqualByIdentity) {
  const DispatchPtr one = std::make_shared<NoMembers>();
  EXPECT_EQ(Variant(one), Variant(one));
  EXPECT_FALSE(Variant(one) == Variant(DispatchPtr(std::make_shared<NoMembers>())));
}

TEST(Variant, CopiesShareTheirArray) {
  const auto block = std::make_shared<VariantArray>(1, 1);
  const Variant first(block);
  const Variant second = first;
  block->At(0, 0) = "seen";
  EXPECT_EQ(second.Array().At(0, 0).String(), "seen");
}

TEST(VariantArray, IsIndexedFromZeroWhateverItsBases) {
  VariantArray block(2, 3, 1, 1);
  block.At(1, 2) = 5;
  EXPECT_EQ(block.At(1, 2).Long(), 5);
  EXPECT_TRUE(block.At(0, 0).IsEmpty());
  EXPECT_EQ(block.RowBase(), 1);
}

TEST(VariantArray, OutsideIsSubscriptOutOfRange) {
  VariantArray block(2, 3);
  EXPECT_EQ(NumberRaisedBy([&] { block.At(2, 0); }), errors::SubscriptOutOfRange);
  EXPECT_EQ(NumberRaisedBy([&] { block.At(0, 3); }), errors::SubscriptOutOfRange);
}

}  // namespace
}  // namespace pellora
