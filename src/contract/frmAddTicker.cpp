#include "contract/frmAddTicker.h"

#include "contract/SecurityTypes.h"
#include "core/Error.h"
#include "support/CAppSettings.h"

namespace pellora {

frmAddTicker::frmAddTicker(Toolkit& toolkit) : Form(toolkit, "frmAddTicker"), Routines("frmAddTicker") {
  Caption("Add new ticker");
  BorderStyle(BorderStyle::Sizable);
  CIndexType.ShowTabs(false);
  txtOPTMultiplier.Text("100");
  txtFUTMultiplier.Text("100");
  ButInsert.ToolTip("Add Symbol to Project");
  ButInsertNew.ToolTip("Add Symbol to Project");
  DefaultButton(ButInsert);
  CancelButton(ButCancel);
  ConnectHandlers();
  NameKeys();
  ArrangeControls();
}

void frmAddTicker::ConnectHandlers() {
  ComType.Click = [this] { ComType_Click(); };
  ButInsert.Click = [this] { ButInsert_Click(); };
  ButInsertNew.Click = [this] { ButInsertNew_Click(); };
  ButCancel.Click = [this] { ButCancel_Click(); };
  for (const auto& type : kSecurityTypes) {
    (this->*type.exchangeButton.button).Click = [this, &type] { EditExchanges(type.exchangeButton); };
    (this->*type.currencyButton.button).Click = [this, &type] { EditCurrencies(type.currencyButton); };
  }
}

void frmAddTicker::Form_Load() {
  routine("Form_Load", [&](Steps& step) {
    step([&] { m_formRestore = std::make_unique<CFormRestore>(); });
    step([&] { m_formRestore->Init(m_appSettings, true); });
    step([&] { m_formRestore->GetPosition(*this); });
    step([&] { LoadParamert(); });
    step([&] { ComType.Clear(); });
    for (int page = 0; page < CIndexType.PageCount(); ++page)
      step([&] { ComType.AddItem(CIndexType.PageAt(page).Caption()); });
    step([&] { ComType.ListIndex(m_comTypeListIndex < 0 ? 0 : m_comTypeListIndex); });
    // Instruments are entered one after the other: the type rarely changes, the ticker always does.
    step([&] {
      if (const auto* type = SelectedType()) (this->*type->symbol).SetFocus();
    });
  });
}

void frmAddTicker::ComType_Click() {
  routine("ComType_Click", [&](Steps& step) { step([&] { CIndexType.CurrentPage(ComType.ListIndex()); }); });
}

void frmAddTicker::ButInsert_Click() { Insert("ButInsert_Click", "1"); }
void frmAddTicker::ButInsertNew_Click() { Insert("ButInsertNew_Click", "4"); }

void frmAddTicker::ButCancel_Click() {
  routine("ButCancel_Click", [&](Steps& step) {
    step([&] { Tag("2"); });
    step([&] { Hide(); });
  });
}

void frmAddTicker::EditExchanges(const ListButton& button) {
  routine(button.routine, [&](Steps& step) {
    step([&] { RunfrmModifyList(this->*button.list, "Edit exchanges list for " + ComType.Text()); });
  });
}

void frmAddTicker::EditCurrencies(const ListButton& button) {
  routine(button.routine,
          [&](Steps& step) { step([&] { RunfrmModifyList(this->*button.list, "Edit currencies list"); }); });
}

void frmAddTicker::Insert(std::string_view routineName, std::string_view tag) {
  routine(routineName, [&](Steps& step) {
    if (!step([&] { return CheckParametr(); })) return;
    step([&] { SaveParamert(); });
    step([&] {
      if (m_formRestore) m_formRestore->SavePosition(*this);
    });
    step([&] { Hide(); });
    step([&] { Tag(tag); });
  });
}

const SecurityType* frmAddTicker::SelectedType() const { return FindSecurityType(ComType.Text()); }

}  // namespace pellora
