#include "Desk.h"

namespace pellora::workbook {
namespace {

class Objects : public Desk {
 protected:
  /// Of the sheets, in order, a blank after each.
  std::string Names() {
    std::string names;
    for (const auto& sheet : document.sheets) names += sheet->name + " ";
    return names;
  }
};

TEST_F(Objects, TheApplicationSaysWhatItIs) { EXPECT_EQ(Get(app, "Name"), Variant("Pellora embedded workbook")); }

TEST_F(Objects, AnswersTheMembersThatTheLibraryUses) {
  for (const char* name : {"Range", "Intersect", "Columns", "ActiveSheet", "ActiveWorkbook", "Worksheets",
                           "ScreenUpdating", "screenupdating"})
    EXPECT_TRUE(app->Has(name)) << name;
  EXPECT_FALSE(app->Has("Nosuch"));
}

TEST_F(Objects, UnknownMembersAre438) {
  EXPECT_EQ(NumberOf([&] { Get(app, "Nosuch"); }), 438);
  EXPECT_EQ(NumberOf([&] { Put(Range("A1"), "Address", "B2"); }), 438);
}

TEST_F(Objects, WrongCountsAre450) {
  EXPECT_EQ(NumberOf([&] { Get(app, "Range"); }), 450);
  EXPECT_EQ(NumberOf([&] { Get(app, "Range", {"A1", "B2", "C3"}); }), 450);
  EXPECT_EQ(NumberOf([&] { app->Invoke("ScreenUpdating", CallKind::Put, {}); }), 450);
}

TEST_F(Objects, WrongTypesAre13) {
  EXPECT_EQ(NumberOf([&] { Get(Range("A1"), "Resize", {"x", 1}); }), 13);
  EXPECT_EQ(NumberOf([&] { Get(Range("A1"), "Find", {"*", "A1"}); }), 13);
}

TEST_F(Objects, AMissingSheetIsOutOfRange) {
  EXPECT_EQ(NumberOf([&] { Sheet("nosuch"); }), 9);
  EXPECT_EQ(NumberOf([&] { Object(app, "Worksheets", {2}); }), 9);
  EXPECT_EQ(NumberOf([&] { Object(app, "Worksheets", {0}); }), 9);
}

TEST_F(Objects, SheetsAreFoundInAnyLetterCaseOfAnyScript) {
  document.AddSheet("Лента");
  EXPECT_EQ(Get(Sheet("лЕНТА"), "Name"), Variant("Лента"));
  EXPECT_EQ(Get(Object(app, "Worksheets", {2}), "Name"), Variant("Лента"));
  EXPECT_EQ(Get(Object(Object(app, "ActiveWorkbook"), "Worksheets"), "Count"), Variant(2));
}

TEST_F(Objects, ASheetIsAddedBeforeTheActiveOneUnlessItIsSaidWhereAndBecomesActive) {
  const auto sheets = Object(app, "Worksheets");
  const auto first = Sheet("Sheet1");
  Get(sheets, "Add");
  EXPECT_EQ(Names(), "Sheet2 Sheet1 ");
  Get(sheets, "Add", {Variant::Missing(), first});
  EXPECT_EQ(Names(), "Sheet2 Sheet1 Sheet3 ");
  EXPECT_EQ(Get(Object(sheets, "Add", {first}), "Name"), Variant("Sheet4"));
  EXPECT_EQ(Names(), "Sheet2 Sheet4 Sheet1 Sheet3 ");
  EXPECT_EQ(Get(Object(app, "ActiveSheet"), "Name"), Variant("Sheet4"));
}

TEST_F(Objects, ASheetIsAddedBesideASheetOnly) {
  const auto sheets = Object(app, "Worksheets");
  EXPECT_EQ(NumberOf([&] { Get(sheets, "Add", {"Sheet1"}); }), 13);
  EXPECT_EQ(NumberOf([&] { Get(sheets, "Add", {Range("A1")}); }), 13);
  EXPECT_EQ(NumberOf([&] { Get(sheets, "Add", {Sheet("Sheet1"), Sheet("Sheet1")}); }), 1004);
  EXPECT_EQ(Names(), "Sheet1 ");
}

TEST_F(Objects, ADeletedSheetIsGoneAndTheActiveOneStaysActive) {
  for (const auto* name : {"Desk", "Last", "Behind"}) document.AddSheet(name);
  Get(Sheet("Last"), "Select");
  const auto range = Range("Desk!A1");
  Get(Sheet("Desk"), "Delete");
  EXPECT_EQ(Names(), "Sheet1 Last Behind ");
  EXPECT_EQ(Get(Object(app, "ActiveSheet"), "Name"), Variant("Last"));
  EXPECT_EQ(NumberOf([&] { Get(range, "Value"); }), 424);
}

TEST_F(Objects, DeletingTheActiveSheetMakesTheNextOneActiveAndTheLastOneItsNeighbour) {
  document.AddSheet("Desk");
  document.AddSheet("Last");
  Get(Sheet("Sheet1"), "Delete");
  EXPECT_EQ(Get(Object(app, "ActiveSheet"), "Name"), Variant("Desk"));
  Get(Sheet("Last"), "Select");
  Get(Sheet("Last"), "Delete");
  EXPECT_EQ(Get(Object(app, "ActiveSheet"), "Name"), Variant("Desk"));
}

TEST_F(Objects, TheOnlySheetIsNotDeleted) {
  EXPECT_EQ(NumberOf([&] { Get(Sheet("Sheet1"), "Delete"); }), 1004);
  EXPECT_EQ(Names(), "Sheet1 ");
}

TEST_F(Objects, DisplayAlertsKeepsWhatWasPut) {
  EXPECT_EQ(Get(app, "DisplayAlerts"), Variant(true));
  Put(app, "DisplayAlerts", false);
  EXPECT_EQ(Get(app, "DisplayAlerts"), Variant(false));
}

TEST_F(Objects, SelectingASheetMakesItActive) {
  document.AddSheet("Desk");
  Get(Sheet("Desk"), "Select");
  EXPECT_EQ(Get(Object(app, "ActiveSheet"), "Name"), Variant("Desk"));
}

TEST_F(Objects, ScreenUpdatingKeepsWhatWasPut) {
  EXPECT_EQ(Get(app, "ScreenUpdating"), Variant(true));
  Put(app, "ScreenUpdating", false);
  EXPECT_EQ(Get(app, "ScreenUpdating"), Variant(false));
}

TEST_F(Objects, ARangeIsSelectedOnTheActiveSheetOnly) {
  document.AddSheet("Desk");
  Get(Range("B3:C4"), "Select");
  EXPECT_EQ(Address(Object(app, "Selection")), "$B$3:$C$4");
  EXPECT_EQ(NumberOf([&] { Get(Range("Desk!A1"), "Select"); }), 1004);
}

TEST_F(Objects, NamesAreAddedAndRead) {
  const auto names = Object(Object(app, "ActiveWorkbook"), "Names");
  document.AddSheet("My Sheet");
  Get(names, "Add", {"Spot", Range("'My Sheet'!B2:C3")});
  EXPECT_EQ(Get(Object(names, "Item", {"SPOT"}), "RefersTo"), Variant("='My Sheet'!$B$2:$C$3"));
  EXPECT_EQ(Address("Spot"), "$B$2:$C$3");
  EXPECT_EQ(NumberOf([&] { Get(names, "Add", {"A1", "=Sheet1!A1"}); }), 1004);
}

TEST_F(Objects, SettingAnIndexedPropertySetsTheDefaultMemberOfItsObject) {
  const Variant values[] = {"B3", 5.0};
  app->Invoke("Range", CallKind::Put, values);
  EXPECT_EQ(document.Value("Sheet1", "B3"), Variant(5.0));
  const Variant sheet[] = {1, 5.0};
  EXPECT_EQ(NumberOf([&] { app->Invoke("Worksheets", CallKind::Put, sheet); }), 438);
}

TEST_F(Objects, CallsAreCountedByObjectAndMember) {
  const auto range = Range("A1");
  host.ResetCalls();
  Get(range, "value");
  Get(range, "Value");
  Get(range, "Address");
  EXPECT_EQ(host.CallCount(), 3u);
  EXPECT_EQ(host.Calls().at("Range.Value"), 2u);
  EXPECT_EQ(Get(app, "Calls", {"range.value"}), Variant(2.0));
}

TEST_F(Objects, TheHookMakesTheCallItChoosesFail) {
  host.fail = [](std::string_view member, CallKind kind, std::uint64_t) {
    return member == "Range.Value" && kind == CallKind::Put ? 1004 : 0;
  };
  EXPECT_EQ(NumberOf([&] { Put(Range("A1"), "Value", 5.0); }), 1004);
  EXPECT_EQ(NumberOf([&] { Get(Range("A1"), "Value"); }), 0);
}

TEST_F(Objects, ObjectsOutliveTheirHost) {
  DispatchPtr range;
  {
    Host other;
    other.fail = [](std::string_view, CallKind, std::uint64_t) { return 0; };
    range = Object(other.Application(), "Range", {"A1"});
  }
  Put(range, "Value", 5.0);
  EXPECT_EQ(Get(range, "Value"), Variant(5.0));
}

TEST_F(Objects, ARangeOfASheetThatIsGoneIsNoObjectAnyMore) {
  document.AddSheet("Gone");
  const auto range = Range("Gone!A1");
  document.sheets.pop_back();
  EXPECT_EQ(NumberOf([&] { Get(range, "Value"); }), 424);
}

TEST_F(Objects, ASheetIsRenamedWithinTheRules) {
  const auto sheet = Object(app, "ActiveSheet");
  Put(sheet, "Name", "Курсы");
  EXPECT_EQ(document.sheets[0]->name, "Курсы");
  for (const char* bad : {"", "a/b", "a:b", "'a", "12345678901234567890123456789012"})
    EXPECT_EQ(NumberOf([&] { Put(sheet, "Name", bad); }), 1004) << bad;
}

}  // namespace
}  // namespace pellora::workbook
