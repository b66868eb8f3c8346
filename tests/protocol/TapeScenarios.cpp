// The routines of the ticker tape dialog.

#include "Scenarios.h"

namespace pellora::protocol {
namespace {

using test::Stock;
using test::WorkbookBuilder;

constexpr std::string_view kNewTape = "Sheet1!H30:J39";

/// Two instruments, one of them complete, and a tape of that one.
void FillWorkbook(World& w) {
  auto incomplete = Stock("NOT");
  incomplete[8] = Variant();
  WorkbookBuilder(test::Book(w.host().Application()))
      .Instrument(Stock("XYZ"))
      .Instrument(incomplete)
      .Tape("Last", "=TWS_Quotes!$N$2", "Size", "Sheet1!A1:C9");
}

void NoInstruments(World& w) { WorkbookBuilder builder(test::Book(w.host().Application())); }

void Loaded(World& w) {
  FillWorkbook(w);
  w.Ribbon().Load();
}

/// Loaded, and a tape of the last price and size described.
void Described(World& w) {
  Loaded(w);
  auto& dialog = w.Ribbon();
  dialog.OptLastPrice.Value(true);
  dialog.chkLastSize.Value(1);
  dialog.txtAddress.Text(kNewTape);
}

auto Located(std::string_view location) {
  return [location](World& w) {
    Described(w);
    w.Ribbon().txtAddress.Text(location);
  };
}

auto Chosen(OptionButton frmAddRibbon::*option) {
  return [option](World& w) {
    Loaded(w);
    (w.Ribbon().*option).Value(true);
    w.Ribbon().txtAddress.Text(kNewTape);
  };
}

/// A cell far out that holds nothing but a colour makes the used area larger than its content.
void UsedAreaBeyondContent(World& w) {
  FillWorkbook(w);
  w.host().document().FindSheet("TWS_Quotes")->At({40, 30}).format.interior = 15;
}

/// Links that only the spreadsheet can resolve.
void NamedAreas(World& w) {
  FillWorkbook(w);
  auto& document = w.host().document();
  document.AddName("Quote", "TWS_Quotes!$N$2");
  document.Set("Ticker_tape_settings", "A3", "Named");
  document.Set("Ticker_tape_settings", "B3", "=TWS_Quotes!Quote");
  document.Set("Ticker_tape_settings", "D3", "Sheet1!E1:F9");
  document.Set("Ticker_tape_settings", "A4", "Two cells");
  document.Set("Ticker_tape_settings", "B4", "=TWS_Quotes!$N$2,$P$2");
  document.Set("Ticker_tape_settings", "D4", "Sheet1!H1:I9");
}

void KnownFields(World& w) {
  Loaded(w);
  w.Ribbon().QuoteFields(QuoteFieldSet{.AskPrice = true, .LastPrice = true, .LastSize = true});
}

std::vector<Scenario> Life() {
  return {
      {"frmAddRibbon.Form_Load", "", FillWorkbook, [](World& w) { w.Ribbon().Form_Load(); }},
      {"frmAddRibbon.Form_QueryUnload", "", Loaded,
       [](World& w) {
         std::int16_t cancel = 0, mode = 0;
         w.Ribbon().Form_QueryUnload(cancel, mode);
         w.outputs = std::to_string(cancel) + std::to_string(mode);
       }},
      {"frmAddRibbon.Form_QueryUnload", "a second time",
       [](World& w) {
         Loaded(w);
         std::int16_t cancel = 0, mode = 0;
         w.Ribbon().Form_QueryUnload(cancel, mode);
       },
       [](World& w) {
         std::int16_t cancel = 0, mode = 0;
         w.Ribbon().Form_QueryUnload(cancel, mode);
       }},
      {"frmAddRibbon.ButCancel_Click", "", Loaded, [](World& w) { w.Ribbon().ButCancel_Click(); }},
      {"frmAddRibbon.ButGetAddress_Click", "", Loaded, [](World& w) { w.Ribbon().ButGetAddress_Click(); }},
      {"frmAddRibbon.ButInsert_Click", "", Described, [](World& w) { w.Ribbon().ButInsert_Click(); }},
      {"frmAddRibbon.ButInsertNew_Click", "", Described, [](World& w) { w.Ribbon().ButInsertNew_Click(); }},
  };
}

std::vector<Scenario> Fields() {
  return {
      {"frmAddRibbon.OptLastPrice_Click", "", Chosen(&frmAddRibbon::OptLastPrice),
       [](World& w) { w.Ribbon().OptLastPrice_Click(); }},
      {"frmAddRibbon.OptAskPrice_Click", "", Chosen(&frmAddRibbon::OptAskPrice),
       [](World& w) { w.Ribbon().OptAskPrice_Click(); }},
      {"frmAddRibbon.OptBidPrice_Click", "", Chosen(&frmAddRibbon::OptBidPrice),
       [](World& w) { w.Ribbon().OptBidPrice_Click(); }},
      {"frmAddRibbon.OptLow_Click", "", Chosen(&frmAddRibbon::OptLow), [](World& w) { w.Ribbon().OptLow_Click(); }},
      {"frmAddRibbon.OptHigh_Click", "", Chosen(&frmAddRibbon::OptHigh), [](World& w) { w.Ribbon().OptHigh_Click(); }},
      {"frmAddRibbon.OptClose_Click", "", Chosen(&frmAddRibbon::OptClose),
       [](World& w) { w.Ribbon().OptClose_Click(); }},
      {"frmAddRibbon.OptVolume_Click", "", Chosen(&frmAddRibbon::OptVolume),
       [](World& w) { w.Ribbon().OptVolume_Click(); }},
      {"frmAddRibbon.chkLastSize_Click", "", Described, [](World& w) { w.Ribbon().chkLastSize_Click(); }},
      {"frmAddRibbon.chkAskSize_Click", "", Described, [](World& w) { w.Ribbon().chkAskSize_Click(); }},
      {"frmAddRibbon.chkBidSize_Click", "", Described, [](World& w) { w.Ribbon().chkBidSize_Click(); }},
      {"frmAddRibbon.chkAddName_Click", "", Described, [](World& w) { w.Ribbon().chkAddName_Click(); }},
      {"frmAddRibbon.EnableSizeName", "", Described, [](World& w) { w.Ribbon().EnableSizeName(); }},
      {"frmAddRibbon.ViewChkName", "", Described, [](World& w) { w.Ribbon().ViewChkName(); }},
      {"frmAddRibbon.EnableOptionButton", "", KnownFields, [](World& w) { w.Ribbon().EnableOptionButton(); }},
      {"frmAddRibbon.EnableGroup", "", Loaded, [](World& w) { w.Ribbon().EnableGroup(false); }},
  };
}

std::vector<Scenario> Quotes() {
  return {
      {"frmAddRibbon.OpredTotalOpt", "", FillWorkbook, [](World& w) { w.Ribbon().OpredTotalOpt(); }},
      {"frmAddRibbon.CheckAddres", "", FillWorkbook,
       [](World& w) { w.answer = std::to_string(w.Ribbon().CheckAddres("TWS_Low")); }},
      {"frmAddRibbon.LoadTable", "", FillWorkbook, [](World& w) { w.Ribbon().LoadTable(); }},
      {"frmAddRibbon.LoadTable", "no instruments", NoInstruments, [](World& w) { w.Ribbon().LoadTable(); }},
      {"frmAddRibbon.LoadTable", "named areas", NamedAreas, [](World& w) { w.Ribbon().LoadTable(); }},
      {"frmAddRibbon.ViewToTable", "", Loaded, [](World& w) { w.Ribbon().ViewToTable(); }},
      {"frmAddRibbon.VSFExcel_AfterSelChange", "", Loaded,
       [](World& w) { w.Ribbon().VSFExcel_AfterSelChange(2, 0, 1, 0); }},
      {"frmAddRibbon.VSFExcel_AfterSelChange", "an incomplete row", Loaded,
       [](World& w) { w.Ribbon().VSFExcel_AfterSelChange(1, 0, 2, 0); }},
  };
}

std::vector<Scenario> Addresses() {
  const auto split = [](World& w) {
    std::string sheet, address;
    w.Ribbon().ReturnNameSheetAndAddress(sheet, address, kNewTape);
    w.outputs = sheet + "/" + address;
  };
  const auto link = [](World& w) {
    std::string row;
    w.answer = w.Ribbon().GivMyLink(row);
    w.outputs = row;
  };
  return {
      {"frmAddRibbon.ReturnNameSheetAndAddress", "", Loaded, split},
      {"frmAddRibbon.myIntersect", "", Loaded,
       [](World& w) { w.answer = w.Ribbon().myIntersect("Sheet1", "A1:B4", "Sheet1", "B2:C9"); }},
      {"frmAddRibbon.myIntersect", "a name", Loaded,
       [](World& w) { w.answer = w.Ribbon().myIntersect("TWS_Quotes", "TWS_Low", "TWS_Quotes", "TWS_Low"); }},
      {"frmAddRibbon.ColumnAddress", "", Loaded, [](World& w) { w.answer = w.Ribbon().ColumnAddress("TWS_Low"); }},
      {"frmAddRibbon.GivMyLink", "", Described, link},
      {"frmAddRibbon.ReturnColumnsCount", "", Described,
       [](World& w) { w.answer = std::to_string(w.Ribbon().ReturnColumnsCount()); }},
      {"frmAddRibbon.modifyAddress", "", Described, [](World& w) { w.answer = w.Ribbon().modifyAddress(); }},
      {"frmAddRibbon.ChechAddressRange", "", Described,
       [](World& w) { w.answer = std::to_string(w.Ribbon().ChechAddressRange(kNewTape)); }},
      {"frmAddRibbon.CheckAddressIntersect", "", Described,
       [](World& w) { w.answer = w.Ribbon().CheckAddressIntersect("Sheet1!B5:C20"); }},
      {"frmAddRibbon.CheckAddressIntersect", "a name", Described,
       [](World& w) { w.answer = w.Ribbon().CheckAddressIntersect("Sheet1!TWS_Low"); }},
      {"frmAddRibbon.remove_bad_symbols", "", Loaded,
       [](World& w) { w.answer = w.Ribbon().remove_bad_symbols("A/B", OpenRibbon::BadSymbols); }},
  };
}

std::vector<Scenario> Writing() {
  const auto check = [](World& w) { w.answer = std::to_string(w.Ribbon().CheckField()); };
  const auto lastCell = [](World& w) { w.Ribbon().GotoLastCell("A1", "TWS_Quotes", w.outputs); };
  return {
      {"frmAddRibbon.CheckField", "", Described, check},
      {"frmAddRibbon.CheckField", "no location",
       [](World& w) {
         Located("")(w);
         w.user().ExpectMessage("Please fill in the 'Tape location' field ");
       },
       check},
      {"frmAddRibbon.CheckField", "over a recorded tape",
       [](World& w) {
         Located("Sheet1!B5:D20")(w);
         w.user().ExpectMessage(
             "The ranges of 'Tape location' and ''Name'=Last  'Data Range'=Sheet1!A1:C9' intersect with each other.");
       },
       check},
      {"frmAddRibbon.AddSymbolToSheet", "", Described, [](World& w) { w.Ribbon().AddSymbolToSheet(); }},
      {"frmAddRibbon.AddSymbolToSheet", "formats beyond the records",
       [](World& w) {
         Described(w);
         w.host().document().FindSheet("Ticker_tape_settings")->At({9, 4}).format.interior = 15;
       },
       [](World& w) { w.Ribbon().AddSymbolToSheet(); }},
      {"frmAddRibbon.ColorSelectRange", "", Described, [](World& w) { w.Ribbon().ColorSelectRange(); }},
      {"frmAddRibbon.GotoLastCell", "", FillWorkbook, lastCell},
      {"frmAddRibbon.GotoLastCell", "formats beyond the content", UsedAreaBeyondContent, lastCell},
      {"frmAddRibbon.LoadFGChart", "", FillWorkbook, [](World& w) { w.Ribbon().LoadFGChart("$A$2:$S$2"); }},
      {"frmAddRibbon.LoadFGChart", "named areas", NamedAreas, [](World& w) { w.Ribbon().LoadFGChart("$A$2:$S$2"); }},
      {"frmAddRibbon.LoadFGChart", "a row by its name", FillWorkbook,
       [](World& w) { w.Ribbon().LoadFGChart("TWS_Last_Price"); }},
      {"frmAddRibbon.ViewFGChart", "", Loaded, [](World& w) { w.Ribbon().ViewFGChart("$A$2:$S$2"); }},
  };
}

}  // namespace

std::vector<Scenario> TapeScenarios() {
  std::vector<Scenario> scenarios;
  for (const auto& part : {Life(), Fields(), Quotes(), Addresses(), Writing()})
    scenarios.insert(scenarios.end(), part.begin(), part.end());
  return scenarios;
}

}  // namespace pellora::protocol
