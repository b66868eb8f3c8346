// Which routines there are. The list is spelt out, so that a new routine, or a renamed one, is noticed here and given
// its scenarios.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "Scenarios.h"

namespace pellora::protocol {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

const Names kRoutines = {
    "frmNewProject.ButCancel_Click",
    "frmNewProject.ButCheckAll_Click",
    "frmNewProject.ButCreateProject_Click",
    "frmNewProject.ButUncheckAll_Click",
    "frmNewProject.CheckUncheck",

    "frmAddTicker.Add_Combobox",
    "frmAddTicker.ButCASHCurency_Click",
    "frmAddTicker.ButCASHExchange_Click",
    "frmAddTicker.ButCancel_Click",
    "frmAddTicker.ButFOPCurency_Click",
    "frmAddTicker.ButFOPExchange_Click",
    "frmAddTicker.ButFUTCurency_Click",
    "frmAddTicker.ButFUTExchange_Click",
    "frmAddTicker.ButINDCurency_Click",
    "frmAddTicker.ButINDExchange_Click",
    "frmAddTicker.ButInsertNew_Click",
    "frmAddTicker.ButInsert_Click",
    "frmAddTicker.ButOPTCurency_Click",
    "frmAddTicker.ButOPTExchange_Click",
    "frmAddTicker.ButSTKCurency_Click",
    "frmAddTicker.ButSTKExchange_Click",
    "frmAddTicker.CheckParametr",
    "frmAddTicker.ComType_Click",
    "frmAddTicker.ComboBoxToStr",
    "frmAddTicker.Form_Load",
    "frmAddTicker.LoadParamert",
    "frmAddTicker.RunfrmModifyList",
    "frmAddTicker.SaveParamert",

    "frmModifyList.ButAdd_Click",
    "frmModifyList.ButCancel_Click",
    "frmModifyList.ButDelete_Click",
    "frmModifyList.ButDown_Click",
    "frmModifyList.ButSave_Click",
    "frmModifyList.ButUp_Click",
    "frmModifyList.Form_Activate",
    "frmModifyList.Form_Load",
    "frmModifyList.Form_Unload",
    "frmModifyList.InpList",

    "frmAddRibbon.AddSymbolToSheet",
    "frmAddRibbon.ButCancel_Click",
    "frmAddRibbon.ButGetAddress_Click",
    "frmAddRibbon.ButInsertNew_Click",
    "frmAddRibbon.ButInsert_Click",
    "frmAddRibbon.ChechAddressRange",
    "frmAddRibbon.CheckAddres",
    "frmAddRibbon.CheckAddressIntersect",
    "frmAddRibbon.CheckField",
    "frmAddRibbon.ColorSelectRange",
    "frmAddRibbon.ColumnAddress",
    "frmAddRibbon.EnableGroup",
    "frmAddRibbon.EnableOptionButton",
    "frmAddRibbon.EnableSizeName",
    "frmAddRibbon.Form_Load",
    "frmAddRibbon.Form_QueryUnload",
    "frmAddRibbon.GivMyLink",
    "frmAddRibbon.GotoLastCell",
    "frmAddRibbon.LoadFGChart",
    "frmAddRibbon.LoadTable",
    "frmAddRibbon.OpredTotalOpt",
    "frmAddRibbon.OptAskPrice_Click",
    "frmAddRibbon.OptBidPrice_Click",
    "frmAddRibbon.OptClose_Click",
    "frmAddRibbon.OptHigh_Click",
    "frmAddRibbon.OptLastPrice_Click",
    "frmAddRibbon.OptLow_Click",
    "frmAddRibbon.OptVolume_Click",
    "frmAddRibbon.ReturnColumnsCount",
    "frmAddRibbon.ReturnNameSheetAndAddress",
    "frmAddRibbon.VSFExcel_AfterSelChange",
    "frmAddRibbon.ViewChkName",
    "frmAddRibbon.ViewFGChart",
    "frmAddRibbon.ViewToTable",
    "frmAddRibbon.chkAddName_Click",
    "frmAddRibbon.chkAskSize_Click",
    "frmAddRibbon.chkBidSize_Click",
    "frmAddRibbon.chkLastSize_Click",
    "frmAddRibbon.modifyAddress",
    "frmAddRibbon.myIntersect",
    "frmAddRibbon.remove_bad_symbols",
};

std::string ReadFile(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The object whose routines a source file holds: the dialog it is named after, and the contract dialog for its table.
std::string ObjectOf(const std::string& stem) {
  if (stem == "SecurityTypes") return "frmAddTicker";
  for (const char* object : {"frmNewProject", "frmAddTicker", "frmModifyList", "frmAddRibbon"})
    if (stem.starts_with(object)) return object;
  return stem;
}

bool InWord(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

/// The first argument of a call whose name ends before `at`, as it is written; empty for what is no call.
std::string FirstArgument(const std::string& text, std::size_t at) {
  if (text.compare(at, 1, "<") == 0) at = text.find('>', at) + 1;
  if (text.compare(at, 1, "(") != 0) return {};
  const auto begin = text.find_first_not_of(" \n", at + 1);
  return text.substr(begin, text.find_first_of(",) ", begin) - begin);
}

/// Calls `found` with the object and the first argument of every call of that name in the library's sources. The helper
/// that runs routines is not one of them.
void EachCall(const std::string& name, const std::function<void(const std::string&, const std::string&)>& found) {
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(PELLORA_SOURCE_DIR) / "src")) {
    const auto stem = entry.path().stem().string();
    const auto extension = entry.path().extension();
    if (!entry.is_regular_file() || stem == "Routine" || (extension != ".cpp" && extension != ".h")) continue;
    const auto text = ReadFile(entry.path());
    for (auto at = text.find(name); at != std::string::npos; at = text.find(name, at + 1)) {
      if (at > 0 && InWord(text[at - 1])) continue;
      const auto argument = FirstArgument(text, at + name.size());
      if (!argument.empty()) found(ObjectOf(stem), argument);
    }
  }
}

bool IsLiteral(const std::string& argument) { return argument.size() > 2 && argument.front() == '"'; }

/// The list buttons' routines stand in the table of security types, after "Button = {".
Names ListButtonsInTheSource() {
  constexpr std::string_view kLead = "Button = {\"";
  const auto text = ReadFile(fs::path(PELLORA_SOURCE_DIR) / "src/contract/SecurityTypes.cpp");
  Names names;
  for (auto at = text.find(kLead); at != std::string::npos; at = text.find(kLead, at + 1)) {
    const auto begin = at + kLead.size();
    names.insert("frmAddTicker." + text.substr(begin, text.find('"', begin) - begin));
  }
  return names;
}

Names WrittenInTheSource() {
  Names names = ListButtonsInTheSource();
  // The last three are families: one body, a name for each event.
  for (const char* call : {"routine", "Push", "Insert", "OptionClick", "SizeClick"})
    EachCall(call, [&](const std::string& object, const std::string& argument) {
      if (IsLiteral(argument)) names.insert(object + "." + argument.substr(1, argument.size() - 2));
    });
  return names;
}

TEST(Routines, ListIsWhatIsWrittenInTheSource) { EXPECT_EQ(WrittenInTheSource(), kRoutines); }

TEST(Routines, NamesThatAreNoLiteralsAreThoseOfTheKnownFamilies) {
  std::vector<std::string> sites;
  EachCall("routine", [&](const std::string& object, const std::string& argument) {
    if (!IsLiteral(argument)) sites.push_back(object + " " + argument);
  });
  EXPECT_THAT(sites, testing::UnorderedElementsAre("frmAddRibbon routineName", "frmAddRibbon routineName",
                                                   "frmAddTicker button.routine", "frmAddTicker button.routine",
                                                   "frmAddTicker routineName"));
}

TEST(Routines, EachHasAScenario) {
  Names covered;
  for (const auto& scenario : AllScenarios()) covered.emplace(scenario.routine);
  EXPECT_EQ(covered, kRoutines);
}

TEST(Routines, EachScenarioEntersItsRoutine) {
  for (const auto& scenario : AllScenarios()) {
    World world;
    scenario.arrange(world);
    mGlobal::ErrorHandler->TracingEnabled(true);
    scenario.act(world);
    const auto entered = " --- Entered routine: Pellora." + std::string(scenario.routine) + "\r\n";
    EXPECT_NE(world.TracingLog().find(entered), std::string::npos) << scenario.Title();
  }
}

}  // namespace
}  // namespace pellora::protocol
