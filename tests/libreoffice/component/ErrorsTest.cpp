#include <com/sun/star/script/BasicErrorException.hpp>

#include "tests/libreoffice/component/MacroTest.h"

namespace pellora::test {
namespace {

using headless::UserAtForm;

class Errors : public MacroTest {};

// Plain Basic has no Err object.
class ErrorsInVba : public Errors {};

INSTANTIATE_TEST_SUITE_P(Basic, ErrorsInVba, testing::Values(Basic::Vba), BasicName);
INSTANTIATE_TEST_SUITE_P(Basic, Errors, testing::Values(Basic::Plain, Basic::Vba), BasicName);

/// A statement and how it fails.
struct Case {
  const char* statement;
  const char* failure;
};

TEST_P(Errors, EveryFailureHasItsNumberAndItsText) {
  const Case cases[] = {
      {"x = library.RefEditInputs",
       "91|Object variable not set. Additional information: Object variable or With block variable not set (91)"},
      {"library.RefEditInputs = \"A1\"",
       "91|Object variable not set. Additional information: Object variable or With block variable not set (91)"},
      {"library.ExcelApplication = 5", "13|Data type mismatch. Additional information: Type mismatch (13)"},
      {"library.ExcelApplication = \"Excel\"", "13|Data type mismatch. Additional information: Type mismatch (13)"},
      {"library.m_ObjExcelApplication = ThisComponent",
       "13|Data type mismatch. Additional information: Type mismatch (13)"},
      {"library.CreateNewProject 1, 2",
       "449|Argument is not optional. Additional information: Argument not optional (449)"},
      {"library.CreateNewProject 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0",
       "450|Invalid number of arguments. Additional information: Wrong number of arguments or invalid property "
       "assignment (450)"},
      {"library.UnloadfrmMaster 1",
       "450|Invalid number of arguments. Additional information: Wrong number of arguments or invalid property "
       "assignment (450)"},
      {"library.ErrNumber = 5",
       "438|This property or method is not supported by the object. Additional information: Object doesn't support "
       "this property or method (438)"},
      {"library.NoSuchMember", "423|Property or method not found: NoSuchMember."},
  };
  for (const auto& [statement, failure] : cases) EXPECT_EQ(Failure(statement), failure) << statement;
}

TEST_P(Errors, AComponentFailureIsAnAutomationErrorThatSaysWhereAndWhat) {
  platform.toolkit.refusesPeer = 7;
  platform.user().AnswerErrorDialogs("btnAbort");
  EXPECT_EQ(Failure(std::string("library.CreateNewProject ") + kTenZeros),
            "440|OLE Automation Error. Additional information: Pellora.cPellora.CreateNewProject: cPellora component "
            "failure (-2147221404)");
}

TEST_P(Errors, TheObjectTellsTheWholeOfItsLastFailure) {
  platform.toolkit.refusesPeer = 7;
  platform.user().AnswerErrorDialogs("btnAbort");
  EXPECT_EQ(Answer("On Error Resume Next\nx = library.ShowRefEditInterface()\n"
                   "T = library.ErrNumber & \"|\" & library.ErrSource & \"|\" & library.ErrDescription"),
            "-2147221404|Pellora.cPellora.ShowRefEditInterface|cPellora component failure");
}

TEST_P(Errors, ASuccessClearsTheLastFailure) {
  EXPECT_EQ(Answer("On Error Resume Next\nx = library.RefEditInputs\nn = library.ErrNumber\nlibrary.UnloadfrmMaster\n"
                   "T = n & \"|\" & library.ErrNumber & library.ErrSource & library.ErrDescription"),
            "91|0");
}

TEST_P(ErrorsInVba, ErrHasNumberAndDescriptionWhereBasicHasErr) {
  EXPECT_EQ(Answer("On Error Resume Next\nlibrary.ExcelApplication = 5\nT = Err.Number & Err.Description"),
            "13Data type mismatch.\nAdditional information: Type mismatch (13)");
}

TEST_P(Errors, AMacroThatRunsDuringADialogFailsAlone) {
  AtForm("frmNewProject", [&](UserAtForm& user) {
    EXPECT_EQ(Failure("library.UnloadfrmMaster").substr(0, 4), "440|");
    user.Click("ButCancel");
  });
  EXPECT_EQ(Answer(std::string("T = library.CreateNewProject(") + kTenZeros + ")"), "False");
}

TEST_P(Errors, ARefusedApplicationLeavesTheOldOne) {
  EXPECT_EQ(Failure("library.ExcelApplication = 5").substr(0, 3), "13|");
  EXPECT_EQ(Answer("If library.ExcelApplication Is Nothing Then T = \"nothing\""), "nothing");
}

TEST_P(Errors, NothingAsApplicationIsTaken) {
  EXPECT_EQ(Answer("Set library.ExcelApplication = Nothing\nSet library.m_ObjExcelApplication = Nothing\n"
                   "T = IsNull(library.ExcelApplication) & IsNull(library.m_ObjExcelApplication)"),
            "TrueTrue");
}

TEST_P(Errors, CompiledCallersGetTheNumberAsItIs) {
  platform.toolkit.refusesPeer = 7;
  platform.user().AnswerErrorDialogs("btnAbort");
  const com::sun::star::uno::Reference<::Pellora::XcPellora> typed(Self(), com::sun::star::uno::UNO_QUERY);
  try {
    typed->ShowRefEditInterface();
    ADD_FAILURE() << "nothing was raised";
  } catch (const com::sun::star::script::BasicErrorException& error) {
    EXPECT_EQ(error.ErrorCode, -2147221404);
    EXPECT_EQ(libreoffice::Narrow(error.Message), "Pellora.cPellora.ShowRefEditInterface: cPellora component failure");
  }
}

}  // namespace
}  // namespace pellora::test
