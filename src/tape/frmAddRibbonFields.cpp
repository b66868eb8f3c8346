#include <initializer_list>
#include <string>

#include "tape/frmAddRibbon.h"

namespace pellora {
namespace {

constexpr std::string_view kHeaderTip = "Tape header for ";

}  // namespace

// ---- Choosing a field ----

void frmAddRibbon::OptLastPrice_Click() { OptionClick("OptLastPrice_Click", LastPrice); }
void frmAddRibbon::OptAskPrice_Click() { OptionClick("OptAskPrice_Click", AskPrice); }
void frmAddRibbon::OptBidPrice_Click() { OptionClick("OptBidPrice_Click", BidPrice); }
void frmAddRibbon::OptLow_Click() { OptionClick("OptLow_Click", Low); }
void frmAddRibbon::OptHigh_Click() { OptionClick("OptHigh_Click", High); }
void frmAddRibbon::OptClose_Click() { OptionClick("OptClose_Click", Close); }
void frmAddRibbon::OptVolume_Click() { OptionClick("OptVolume_Click", Volume); }

void frmAddRibbon::OptionClick(std::string_view routineName, Field field) {
  routine(routineName, [&](Steps&) {
    const Choice& choice = m_choices[field];
    if (!choice.option.Value()) return;
    if (choice.sizeBox) OfferSize(choice);
    if (txtName.Enabled()) TipOf(lblName, txtName, choice.option.Caption());
    if (!choice.sizeBox) EnableSizeName();
    ViewChkName();
    txtAddress.Text(modifyAddress());
  });
}

void frmAddRibbon::OfferSize(const Choice& choice) {
  for (const Choice& other : m_choices)
    if (other.sizeBox && other.sizeBox != choice.sizeBox) other.sizeBox->Enabled(false);
  choice.sizeBox->Enabled(CheckAddres(choice.sizeName));
  if (choice.sizeBox->Enabled()) FollowSizeBox(*choice.sizeBox);
}

// ---- Choosing a size ----

void frmAddRibbon::chkLastSize_Click() { SizeClick("chkLastSize_Click", chkLastSize); }
void frmAddRibbon::chkAskSize_Click() { SizeClick("chkAskSize_Click", chkAskSize); }
void frmAddRibbon::chkBidSize_Click() { SizeClick("chkBidSize_Click", chkBidSize); }

void frmAddRibbon::SizeClick(std::string_view routineName, const CheckBox& box) {
  routine(routineName, [&](Steps&) {
    FollowSizeBox(box);
    ViewChkName();
    txtAddress.Text(modifyAddress());
  });
}

void frmAddRibbon::FollowSizeBox(const CheckBox& box) {
  TipOf(lblNameSize, txtNameSize, box.Caption());
  txtNameSize.Enabled(box.Value() == 1);
}

void frmAddRibbon::EnableSizeName() {
  routine("EnableSizeName", [&](Steps&) {
    for (CheckBox* box : {&chkLastSize, &chkAskSize, &chkBidSize}) box->Enabled(false);
    TipOf(lblNameSize, txtNameSize, "...");
    txtNameSize.Text("");
    txtNameSize.Enabled(false);
    // Nothing to do for the panel around them: a control that has changed repaints itself.
  });
}

void frmAddRibbon::TipOf(Label& label, TextBox& box, std::string_view what) {
  const auto tip = std::string(kHeaderTip).append(what);
  box.ToolTip(tip);
  label.Caption(tip);
}

// ---- Header texts ----

void frmAddRibbon::chkAddName_Click() {
  routine("chkAddName_Click", [&](Steps&) { ViewChkName(); });
}

void frmAddRibbon::ViewChkName() {
  routine("ViewChkName", [&](Steps& step) {
    if (!txtName.Enabled()) return;
    const auto ticker = step([&] { return VSFExcel.Text(VSFExcel.Row(), 0); });
    const bool withField = chkAddName.Value() == 1;
    txtName.Text(withField ? ticker + "(" + ChosenFieldCaption() + ")" : ticker);
    if (!txtNameSize.Enabled()) return;
    txtNameSize.Text(withField ? ticker + "(" + ChosenSizeCaption() + ")" : ticker);
  });
}

bool frmAddRibbon::Chosen(Field field) const {
  return m_choices[field].option.Enabled() && m_choices[field].option.Value();
}

bool frmAddRibbon::WithSize() const {
  for (const Field field : {AskPrice, BidPrice, LastPrice}) {
    const CheckBox& size = *m_choices[field].sizeBox;
    if (Chosen(field) && size.Enabled() && size.Value() == 1) return true;
  }
  return false;
}

// The box can be left enabled by a price whose size the workbook does not carry; a tape of two columns has no room for
// it, and its text would overwrite the cell beside the tape.
bool frmAddRibbon::HasSizeHeader() const { return txtNameSize.Enabled() && WithSize(); }

std::string frmAddRibbon::ChosenFieldCaption() const {
  std::string caption;
  for (const Field field : {AskPrice, BidPrice, LastPrice, High, Low, Volume, Close})
    if (Chosen(field)) caption = m_choices[field].option.Caption();
  return caption;
}

std::string frmAddRibbon::ChosenSizeCaption() const {
  std::string caption;
  for (const CheckBox* box : {&chkLastSize, &chkBidSize, &chkAskSize})
    if (box->Enabled() && box->Value() == 1) caption = box->Caption();
  return caption;
}

// ---- Enabling ----

void frmAddRibbon::EnableOptionButton() {
  routine("EnableOptionButton", [&](Steps&) {
    if (!m_quoteFields) return;
    const QuoteFieldSet& set = *m_quoteFields;
    OptLastPrice.Enabled(set.LastPrice);
    OptAskPrice.Enabled(set.AskPrice);
    OptBidPrice.Enabled(set.BidPrice);
    OptLow.Enabled(set.LowTick);
    OptHigh.Enabled(set.HighTick);
    OptVolume.Enabled(set.Volume);
    OptClose.Enabled(set.ClosePrice);
    chkLastSize.Value(set.LastSize ? 1 : 0);
    chkAskSize.Value(set.AskSize ? 1 : 0);
    chkBidSize.Value(set.BidSize ? 1 : 0);
    MatchSizeHeader();
  });
}

// Ticking the boxes one after the other has left the size header to the last of them.
void frmAddRibbon::MatchSizeHeader() {
  for (const Choice& choice : m_choices) {
    if (!choice.sizeBox || !choice.option.Value() || !choice.sizeBox->Enabled()) continue;
    FollowSizeBox(*choice.sizeBox);
    return;
  }
  txtNameSize.Enabled(false);
}

void frmAddRibbon::EnableGroup(bool Enabled) {
  routine("EnableGroup", [&](Steps&) {
    const std::initializer_list<Control*> group = {&txtName,       &txtNameSize, &txtAddress,  &chkAddName,
                                                   &ButGetAddress, &ButInsert,   &ButInsertNew};
    for (Control* control : group) control->Enabled(Enabled);
  });
}

void frmAddRibbon::DisableChoices() {
  EnableGroup(false);
  for (const Choice& choice : m_choices) choice.option.Enabled(false);
  EnableSizeName();
}

}  // namespace pellora
