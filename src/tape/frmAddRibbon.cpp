#include "tape/frmAddRibbon.h"

#include <utility>

#include "core/Error.h"
#include "support/Quietly.h"

namespace pellora {
namespace {

// Widths as they were designed in twips, 15 to the dip.
std::vector<Grid::Column> InstrumentColumns() {
  return {{"Ticker", 1050 / 15}, {"Type", 495 / 15},       {"Expiry", 960 / 15},    {"Strike", 960 / 15},
          {"P/C", 495 / 15},     {"Multiplier", 780 / 15}, {"Exchange", 1020 / 15}, {"Primary Exchange", 1455 / 15},
          {"Currency", 960 / 15}};
}

std::vector<Grid::Column> TapeColumns() {
  return {
      {"Tape header for Ticker", 150}, {"Link to ticker", 140}, {"Tape header for Size", 150}, {"Tape location ", 140}};
}

}  // namespace

frmAddRibbon::frmAddRibbon(Toolkit& toolkit)
    : Form(toolkit, "frmAddRibbon"),
      Routines("frmAddRibbon"),
      lblPortfolio(*this, "lblPortfolio", "Portfolio"),
      VSFExcel(*this, "VSFExcel", InstrumentColumns()),
      FraAvailableFields(*this, "FraAvailableFields", "Available fields"),
      OptLastPrice(FraAvailableFields, "OptLastPrice", "last price"),
      chkLastSize(FraAvailableFields, "chkLastSize", "last size"),
      OptAskPrice(FraAvailableFields, "OptAskPrice", "ask price"),
      chkAskSize(FraAvailableFields, "chkAskSize", "ask size"),
      OptBidPrice(FraAvailableFields, "OptBidPrice", "bid price"),
      chkBidSize(FraAvailableFields, "chkBidSize", "bid size"),
      OptLow(FraAvailableFields, "OptLow", "low"),
      OptHigh(FraAvailableFields, "OptHigh", "high"),
      OptClose(FraAvailableFields, "OptClose", "close"),
      OptVolume(FraAvailableFields, "OptVolume", "volume"),
      chkAddName(*this, "chkAddName", "Add field name"),
      C1ERibbon(*this, "C1ERibbon"),
      lblName(C1ERibbon, "lblName", "Tape header for last price"),
      txtName(C1ERibbon, "txtName"),
      lblNameSize(C1ERibbon, "lblNameSize", "Tape header for last size"),
      txtNameSize(C1ERibbon, "txtNameSize"),
      lblRibbon(C1ERibbon, "lblRibbon", "Ticker tape"),
      VSFChart(C1ERibbon, "VSFChart", TapeColumns()),
      lblAddress(C1ERibbon, "lblAddress", "Tape location"),
      txtAddress(C1ERibbon, "txtAddress"),
      ButGetAddress(C1ERibbon, "ButGetAddress", "..."),
      ButInsert(*this, "ButInsert", "Insert >>"),
      ButInsertNew(*this, "ButInsertNew", "Insert && new"),
      ButCancel(*this, "ButCancel", "Cancel"),
      m_choices{{{OptLastPrice, "TWS_Last_Price", &chkLastSize, "TWS_Last_Size"},
                 {OptAskPrice, "TWS_Ask_Price", &chkAskSize, "TWS_Ask_Size"},
                 {OptBidPrice, "TWS_Bid_Price", &chkBidSize, "TWS_Bid_Size"},
                 {OptLow, "TWS_Low", nullptr, {}},
                 {OptHigh, "TWS_High", nullptr, {}},
                 {OptClose, "TWS_Close", nullptr, {}},
                 {OptVolume, "TWS_Volume", nullptr, {}}}} {
  Describe();
  Arrange();
  Wire();
}

frmAddRibbon::~frmAddRibbon() = default;

// ---- Life ----

void frmAddRibbon::Form_Load() {
  routine("Form_Load", [&](Steps& step) {
    if (!m_placement) {
      m_placement = std::make_unique<CFormRestore>();
      step([&] { m_placement->Init(m_appSettings, true); });
      step([&] { m_placement->GetPosition(*this); });
    }
    EnableOptionButton();
    OpredTotalOpt();
    LoadTable();
    ViewToTable();
    txtAddress.Text(modifyAddress());
  });
}

void frmAddRibbon::OnQueryUnload(std::int16_t& cancel, std::int16_t& unloadMode) {
  const bool byUser = unloadMode != kUnloadByCode;
  Form_QueryUnload(cancel, unloadMode);
  if (!byUser) return;
  Tag("CLOSE");
  Quietly([&] { Hide(); });
  cancel = 1;
}

void frmAddRibbon::Form_QueryUnload(std::int16_t& Cancel, std::int16_t& UnloadMode) {
  routine("Form_QueryUnload", [&](Steps& step) {
    SavePlacement(step);
    Tag("CLOSE");
    step([&] { Hide(); });
    if (UnloadMode == kUnloadByCode) {
      Cancel = 0;
      UnloadMode = 0;
    } else {
      Cancel = 1;
    }
  });
}

void frmAddRibbon::SavePlacement(Steps& step) {
  // A window closed a second time has given its placement object up: without a new one the place would be lost.
  if (!m_placement && m_appSettings) {
    m_placement = std::make_unique<CFormRestore>();
    step([&] { m_placement->Init(m_appSettings, true); });
  }
  if (m_placement) step([&] { m_placement->SavePosition(*this); });
  m_placement.reset();
}

// ---- Properties ----

void frmAddRibbon::TapeAddress(std::string_view address) {
  m_tapeAddress = address;
  txtAddress.Text(address);
  txtAddress.Text(modifyAddress());
}

excel::Application frmAddRibbon::Excel() const {
  if (!m_owner) throw Error(errors::ObjectNotSet);
  return excel::Application(m_owner->ExcelApplication());
}

// ---- Buttons ----

void frmAddRibbon::ButCancel_Click() {
  routine("ButCancel_Click", [&](Steps& step) {
    Tag("CLOSE");
    step([&] { Hide(); });
  });
}

void frmAddRibbon::ButGetAddress_Click() {
  routine("ButGetAddress_Click", [&](Steps& step) {
    Tag("DATABEGINNING");
    step([&] { Hide(); });
  });
}

void frmAddRibbon::ButInsert_Click() {
  routine("ButInsert_Click", [&](Steps& step) {
    if (!CheckField()) return;
    Tag("CLOSE");
    step([&] { Hide(); });
  });
}

void frmAddRibbon::ButInsertNew_Click() {
  routine("ButInsertNew_Click", [&](Steps&) {
    // Inserted or refused, the dialog stays and shows the current row as it now is.
    CheckField();
    ViewToTable();
  });
}

}  // namespace pellora
