#include <gtest/gtest.h>

#include "platform/libreoffice/uno/Members.h"
#include "platform/libreoffice/uno/UnoObject.h"
#include "tests/libreoffice/uno/CalcDocument.h"

namespace pellora::test {
namespace {

TEST(MembersOfObjects, AreFoundInAnyLetterCase) {
  const CalcDocument document;
  const auto range = document.Excel().Range("A1");
  EXPECT_TRUE(range.get()->Has("AUTOFIT"));
  EXPECT_EQ(Variant("$A$1"), range.get()->Invoke("aDDress", CallKind::Get, {}));
}

TEST(MembersOfObjects, MakeTheApplicationOneThatIsAccepted) {
  const CalcDocument document;
  EXPECT_TRUE(excel::Application::Accepts(document.Excel().get()));
}

TEST(MembersOfObjects, MakeNothingElseAnApplication) {
  const CalcDocument document;
  EXPECT_FALSE(excel::Application::Accepts(document.Excel().ActiveSheet().get()));
  EXPECT_FALSE(excel::Application::Accepts(document.Excel().Range("A1").get()));
  EXPECT_FALSE(excel::Application::Accepts(libreoffice::ToDispatch(document.Model(), Office())));
}

TEST(MembersOfObjects, ThatDoNotExistAreRefusedWith438) {
  const CalcDocument document;
  const auto range = document.Excel().Range("A1").get();
  EXPECT_FALSE(range->Has("NoSuchMember"));
  EXPECT_EQ(errors::MemberNotSupported, NumberOf([&] { range->Invoke("NoSuchMember", CallKind::Get, {}); }));
}

TEST(MembersOfObjects, RefuseTooManyArguments) {
  const CalcDocument document;
  const Variant four[] = {1, 1, 1, 1};
  const auto range = document.Excel().Range("A1").get();
  EXPECT_EQ(errors::WrongArgumentCount, NumberOf([&] { range->Invoke("Cells", CallKind::Get, four); }));
}

TEST(MembersOfObjects, RefuseAMissingArgumentThatIsNeeded) {
  const CalcDocument document;
  const auto application = document.Excel();
  const Variant one[] = {application.Range("A1").get()};
  EXPECT_EQ(errors::ArgumentNotOptional, NumberOf([&] { application.get()->Invoke("Intersect", CallKind::Get, one); }));
}

TEST(MembersOfObjects, AreReadOncePerImplementation) {
  const CalcDocument document;
  document.Excel().Range("A1").Value();
  const std::size_t before = libreoffice::ReadTypes();
  document.Excel().Range("B1:C3").Value();
  EXPECT_EQ(before, libreoffice::ReadTypes());
}

TEST(ObjectsOfTheProgram, KeepTheirIdentity) {
  const CalcDocument document;
  const com::sun::star::uno::Reference<com::sun::star::uno::XInterface> model(document.Model());
  EXPECT_EQ(model, libreoffice::FromDispatch(libreoffice::ToDispatch(model, Office())));
}

TEST(ObjectsOfTheProgram, AreNothingWhereThereIsNone) {
  EXPECT_EQ(nullptr, libreoffice::ToDispatch({}, Office()));
  EXPECT_FALSE(libreoffice::FromDispatch(nullptr).is());
}

TEST(ObjectsOfTheProgram, RaiseWhenADocumentIsNoSpreadsheet) {
  EXPECT_EQ(errors::ApplicationDefined, NumberOf([] { libreoffice::ApplicationOf({}, Office()); }));
}

}  // namespace
}  // namespace pellora::test
