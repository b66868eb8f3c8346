#include "tests/libreoffice/component/MacroTest.h"

namespace pellora::test {
namespace {

using headless::UserAtForm;

class ByReference : public MacroTest {
 protected:
  void ConfirmVolume() {
    AtForm("frmNewProject", [](UserAtForm& user) {
      user.Click("chkVolume");
      user.Click("ButCreateProject");
    });
  }
  void Cancel() {
    AtForm("frmNewProject", [](UserAtForm& user) { user.Click("ButCancel"); });
  }
  void InsertOption() {
    AtForm("frmAddTicker", [](UserAtForm& user) {
      user.Type("txtOPTSymbol", "XYZ");
      user.Type("txtOPTExpiry", "200806");
      user.Type("txtOPTMultiplier", "12.5");
      user.Choose("ComOPTRight", "CALL");
      user.Click("ButInsert");
    });
  }
};

// Plain Basic hands no dates and currencies to any object, and has no named arguments.
class ByReferenceInVba : public ByReference {};

INSTANTIATE_TEST_SUITE_P(Basic, ByReferenceInVba, testing::Values(Basic::Vba), BasicName);
INSTANTIATE_TEST_SUITE_P(Basic, ByReference, testing::Values(Basic::Plain, Basic::Vba), BasicName);

/// One kind of variable: its declaration, how it is written, and what it then shows.
struct Variable {
  const char* declaration;
  const char* name;
  const char* shows;
};

TEST_P(ByReference, AConfirmedProjectIsWrittenIntoVariablesOfEveryKind) {
  const Variable kinds[] = {
      {"Dim v As Integer", "v", "1 Integer"},
      {"Dim v As Long", "v", "1 Long"},
      {"Dim v As Double", "v", "1 Double"},
      {"Dim v As Single", "v", "1 Single"},
      {"Dim v As String : v = \"0\"", "v", "1 String"},
      {"Dim v", "v", "1 Integer"},
      {"Dim v : v = \"7\"", "v", "1 Integer"},
      {"Dim v : v = 2.5", "v", "1 Integer"},
      {"Dim a(3) As Integer", "a(2)", "1 Integer"},
      {"Dim a(3)", "a(2)", "1 Integer"},
      {"Dim a(2, 2) As Long", "a(1, 1)", "1 Long"},
      {"undeclared = Empty", "undeclared", "1 Integer"},
  };
  for (const auto& [declaration, name, shows] : kinds) {
    ConfirmVolume();
    const std::string use = name;
    EXPECT_EQ(Answer(std::string(declaration) + "\nIf library.CreateNewProject(0, 0, 0, 0, 0, 0, 0, 0, 0, " + use +
                     ") Then T = Trim(CStr(" + use + ")) & \" \" & TypeName(" + use + ")"),
              shows)
        << declaration;
  }
}

TEST_P(ByReference, EachOfTheTenFieldsHasItsPlace) {
  AtForm("frmNewProject", [](UserAtForm& user) {
    for (const char* box : {"chkAskSize", "chkClose", "chkLow"}) user.Click(box);
    user.Click("ButCreateProject");
  });
  EXPECT_EQ(Answer("Dim f(9) As Integer\n"
                   "library.CreateNewProject f(0), f(1), f(2), f(3), f(4), f(5), f(6), f(7), f(8), f(9)\n"
                   "For i = 0 To 9 : T = T & f(i) : Next"),
            "0100100010");
}

TEST_P(ByReference, ACancelledProjectLeavesEveryVariableAsItWas) {
  Cancel();
  EXPECT_EQ(Answer("Dim i As Integer, s As String, v, e, d\ni = 7 : s = \"8\" : v = \"9\" : d = 2.5\n"
                   "r = library.CreateNewProject(i, s, v, e, d, 0, 0, 0, 0, 0)\n"
                   "T = r & i & s & v & TypeName(v) & TypeName(e) & TypeName(d)"),
            "False789StringEmptyDouble");
}

TEST_P(ByReferenceInVba, DatesAndCurrenciesStayWhatTheyAre) {
  Cancel();
  EXPECT_EQ(Answer("Dim c As Currency, d\nc = 7 : d = CDate(5)\n"
                   "r = library.CreateNewProject(c, d, 0, 0, 0, 0, 0, 0, 0, 0)\nT = r & c & TypeName(d)"),
            "False7.0000Date");
}

TEST_P(ByReference, WhatIsNoNumberIsRefusedBeforeADialogComesUp) {
  for (const char* value : {"\"text\"", "Null", "Array(1)", "ThisComponent"})
    EXPECT_EQ(Failure(std::string("Dim v : v = ") + (std::string(value) == "ThisComponent" ? "0" : value) +
                      "\nlibrary.CreateNewProject " + (std::string(value) == "ThisComponent" ? "ThisComponent" : "v") +
                      ", 0, 0, 0, 0, 0, 0, 0, 0, 0")
                  .substr(0, 3),
              "13|")
        << value;
}

TEST_P(ByReference, ANumberThatDoesNotFitIsAnOverflow) {
  EXPECT_EQ(Failure("library.CreateNewProject 40000, 0, 0, 0, 0, 0, 0, 0, 0, 0").substr(0, 2), "6|");
}

TEST_P(ByReference, AnInsertedContractIsWrittenWhole) {
  InsertOption();
  EXPECT_EQ(Answer("Dim a, b As String, c, k As Double, r, m As Double, x, p As String, y, i As Integer\n"
                   "p = \"junk\" : k = 7 : i = 1\n"
                   "o = library.AddNewSymbol(a, b, c, k, r, m, x, p, y, i)\n"
                   "T = o & \"|\" & a & \"|\" & b & \"|\" & c & \"|\" & k & \"|\" & r & \"|\" & m * 2 & \"|\" & x & "
                   "\"|\" & p & \"|\" & y & \"|\" & i"),
            "1|XYZ|OPT|200806|0|CALL|25|SMART||USD|1");
}

TEST_P(ByReference, ACancelledContractIsClearedButForItsType) {
  AtForm("frmAddTicker", [](UserAtForm& user) { user.Click("ButCancel"); });
  EXPECT_EQ(Answer("Dim a As String, k As Double, i As Long\na = \"junk\" : b = \"junk\" : k = 7 : i = 3\n"
                   "o = library.AddNewSymbol(a, b, b, k, b, k, b, b, b, i)\nT = o & \"|\" & a & b & \"|\" & k & i"),
            "2||03");
}

TEST_P(ByReference, NumbersServeAsTextsOfAContract) {
  InsertOption();
  EXPECT_EQ(Answer("Dim a\na = 5\nlibrary.AddNewSymbol a, 1, 2, \"3\", 4, \"5\", 6, 7, 8, \"1\"\nT = a"), "XYZ");
}

TEST_P(ByReferenceInVba, NamedArgumentsFindTheirPlaces) {
  AtForm("frmNewProject", [](UserAtForm& user) {
    user.Click("chkVolume");
    user.Click("ButCreateProject");
  });
  EXPECT_EQ(Answer("Dim v As Integer, a As Integer\na = 5\n"
                   "library.CreateNewProject Volume:=v, AskPrice:=a, AskSize:=0, BidPrice:=0, BidSize:=0, "
                   "ClosePrice:=0, HighTick:=0, LastPrice:=0, LastSize:=0, LowTick:=0\nT = v & a"),
            "10");
}

TEST_P(ByReference, NamesCountInAnyLetterCase) {
  Cancel();
  EXPECT_EQ(Answer("T = LIBRARY.createNEWproject(0, 0, 0, 0, 0, 0, 0, 0, 0, 0) & library.errnumber"), "False0");
}

TEST_P(ByReference, AFailedCallWritesNothing) {
  platform.toolkit.refusesPeer = 7;
  platform.user().AnswerErrorDialogs("btnAbort");
  EXPECT_EQ(Answer("Dim a As String\na = \"junk\"\nOn Error Resume Next\n"
                   "library.AddNewSymbol a, a, a, 0, a, 0, a, a, a, 0\nT = a"),
            "junk");
}

}  // namespace
}  // namespace pellora::test
