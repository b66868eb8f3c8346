// The routines of the quote field dialog, the contract dialog and the list editor.

#include "Scenarios.h"

namespace pellora::protocol {
namespace {

using headless::UserAtForm;

void Nothing(World&) {}

// ---- Contract dialog ----

void LoadTicker(World& w) {
  w.Ticker().Load();
  w.Ticker().txtSTKSymbol.Text("XYZ");
}

void LoadTickerWithoutSymbol(World& w) { w.Ticker().Load(); }

void LoadOptionTicker(World& w) {
  w.Ticker().ComTypeListIndex(kOption);
  w.Ticker().Load();
  w.Ticker().txtOPTSymbol.Text("XYZ");
}

/// The user adds an entry in the list editor and saves.
void ExpectEditor(World& w) {
  w.user().ExpectForm("frmModifyList", [](UserAtForm& user) {
    user.Type("txtInput", "NEW");
    user.Click("ButAdd");
    user.Click("ButSave");
  });
}

void LoadTickerForEditing(World& w) {
  LoadTicker(w);
  ExpectEditor(w);
}

// The names are spelt out: the table of types is what is tested here.
constexpr std::string_view kListRoutines[][2] = {
    {"frmAddTicker.ButSTKExchange_Click", "frmAddTicker.ButSTKCurency_Click"},
    {"frmAddTicker.ButOPTExchange_Click", "frmAddTicker.ButOPTCurency_Click"},
    {"frmAddTicker.ButFUTExchange_Click", "frmAddTicker.ButFUTCurency_Click"},
    {"frmAddTicker.ButINDExchange_Click", "frmAddTicker.ButINDCurency_Click"},
    {"frmAddTicker.ButFOPExchange_Click", "frmAddTicker.ButFOPCurency_Click"},
    {"frmAddTicker.ButCASHExchange_Click", "frmAddTicker.ButCASHCurency_Click"},
};

void AddListButtons(std::vector<Scenario>& scenarios) {
  for (std::size_t i = 0; i < kSecurityTypes.size(); ++i) {
    const auto& type = kSecurityTypes[i];
    for (const auto* button : {&type.exchangeButton, &type.currencyButton})
      scenarios.push_back({kListRoutines[i][button == &type.currencyButton], "", LoadTickerForEditing,
                           [button](World& w) { (w.Ticker().*button->button).Click(); }});
  }
}

// ---- List editor ----

void FillEditor(World& w) {
  w.Editor().InpList("A|B|C");
  w.Editor().Load();
  w.Editor().OnActivate();
  w.Editor().lstParametr.ListIndex(1);
}

}  // namespace

std::vector<Scenario> ProjectScenarios() {
  const auto tickOne = [](World& w) { w.Project().chkVolume.Value(1); };
  return {
      {"frmNewProject.CheckUncheck", "", Nothing,
       [](World& w) {
         std::int16_t checked = 1;
         w.Project().CheckUncheck(checked);
       }},
      {"frmNewProject.ButCheckAll_Click", "", Nothing, [](World& w) { w.Project().ButCheckAll_Click(); }},
      {"frmNewProject.ButUncheckAll_Click", "", tickOne, [](World& w) { w.Project().ButUncheckAll_Click(); }},
      {"frmNewProject.ButCreateProject_Click", "", tickOne, [](World& w) { w.Project().ButCreateProject_Click(); }},
      {"frmNewProject.ButCreateProject_Click", "nothing chosen",
       [](World& w) { w.user().ExpectMessage("You must select at least one value!"); },
       [](World& w) { w.Project().ButCreateProject_Click(); }},
      {"frmNewProject.ButCancel_Click", "", Nothing, [](World& w) { w.Project().ButCancel_Click(); }},
  };
}

std::vector<Scenario> ContractScenarios() {
  std::vector<Scenario> scenarios = {
      {"frmAddTicker.Form_Load", "", Nothing, [](World& w) { w.Ticker().OnLoad(); }},
      {"frmAddTicker.ComType_Click", "", LoadTicker, [](World& w) { w.Ticker().ComType.ListIndex(kFutures); }},
      {"frmAddTicker.LoadParamert", "", Nothing, [](World& w) { w.Ticker().LoadParamert(); }},
      {"frmAddTicker.SaveParamert", "", LoadTicker, [](World& w) { w.Ticker().SaveParamert(); }},
      {"frmAddTicker.SaveParamert", "an option", LoadOptionTicker, [](World& w) { w.Ticker().SaveParamert(); }},
      {"frmAddTicker.Add_Combobox", "", LoadTicker,
       [](World& w) { w.Ticker().Add_Combobox(w.Ticker().ComSTKExchange, "A|B", "b"); }},
      {"frmAddTicker.ComboBoxToStr", "", LoadTicker,
       [](World& w) { w.answer = w.Ticker().ComboBoxToStr(w.Ticker().ComSTKExchange); }},
      {"frmAddTicker.CheckParametr", "", LoadTicker,
       [](World& w) { w.answer = std::to_string(w.Ticker().CheckParametr()); }},
      {"frmAddTicker.CheckParametr", "no symbol",
       [](World& w) {
         LoadTickerWithoutSymbol(w);
         w.user().ExpectMessage("Please fill in the 'Ticker' field ");
       },
       [](World& w) { w.answer = std::to_string(w.Ticker().CheckParametr()); }},
      {"frmAddTicker.RunfrmModifyList", "", LoadTickerForEditing,
       [](World& w) { w.Ticker().RunfrmModifyList(w.Ticker().ComSTKExchange, "Edit"); }},
      {"frmAddTicker.ButInsert_Click", "", LoadTicker, [](World& w) { w.Ticker().ButInsert.Click(); }},
      {"frmAddTicker.ButInsertNew_Click", "", LoadTicker, [](World& w) { w.Ticker().ButInsertNew.Click(); }},
      {"frmAddTicker.ButCancel_Click", "", LoadTicker, [](World& w) { w.Ticker().ButCancel.Click(); }},
  };
  AddListButtons(scenarios);
  return scenarios;
}

std::vector<Scenario> EditorScenarios() {
  return {
      {"frmModifyList.InpList", "written", Nothing, [](World& w) { w.Editor().InpList("A|B"); }},
      {"frmModifyList.InpList", "read", FillEditor, [](World& w) { w.answer = w.Editor().InpList(); }},
      {"frmModifyList.Form_Load", "", Nothing, [](World& w) { w.Editor().OnLoad(); }},
      {"frmModifyList.Form_Activate", "", [](World& w) { w.Editor().InpList("A|B"); },
       [](World& w) { w.Editor().OnActivate(); }},
      {"frmModifyList.Form_Unload", "", FillEditor, [](World& w) { w.Editor().OnUnload(); }},
      {"frmModifyList.ButAdd_Click", "",
       [](World& w) {
         FillEditor(w);
         w.Editor().txtInput.Text("D");
       },
       [](World& w) { w.Editor().ButAdd.Click(); }},
      {"frmModifyList.ButDelete_Click", "", FillEditor, [](World& w) { w.Editor().ButDelete.Click(); }},
      {"frmModifyList.ButUp_Click", "", FillEditor, [](World& w) { w.Editor().ButUp.Click(); }},
      {"frmModifyList.ButDown_Click", "", FillEditor, [](World& w) { w.Editor().ButDown.Click(); }},
      {"frmModifyList.ButSave_Click", "", FillEditor, [](World& w) { w.Editor().ButSave.Click(); }},
      {"frmModifyList.ButCancel_Click", "", FillEditor, [](World& w) { w.Editor().ButCancel.Click(); }},
  };
}

}  // namespace pellora::protocol
