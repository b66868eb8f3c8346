#include "forms/Layout.h"

#include <utility>

#include "tape/frmAddRibbon.h"

namespace pellora {

// The state in which the dialog comes up before anything is read; nothing is wired yet, so nothing reacts.
void frmAddRibbon::Describe() {
  Caption("Ticker tape");
  BorderStyle(BorderStyle::Sizable);
  DefaultButton(ButInsert);
  CancelButton(ButCancel);
  OptLastPrice.Value(true);
  txtName.ToolTip(lblName.Caption());
  txtNameSize.ToolTip(lblNameSize.Caption());
  txtAddress.ToolTip(lblAddress.Caption());
  lblPortfolio.Style(TextStyle::Heading);
  lblRibbon.Style(TextStyle::Heading);
  ButGetAddress.AccessibleName("Pick the tape location in the workbook");
  const std::pair<Control&, char> keys[] = {
      {lblPortfolio, 'P'}, {OptLastPrice, 'L'}, {chkLastSize, 'S'}, {OptAskPrice, 'A'}, {chkAskSize, 'K'},
      {OptBidPrice, 'B'},  {chkBidSize, 'D'},   {OptLow, 'W'},      {OptHigh, 'H'},     {OptClose, 'C'},
      {OptVolume, 'V'},    {chkAddName, 'F'},   {lblName, 'T'},     {lblNameSize, 'E'}, {lblRibbon, 'R'},
      {lblAddress, 'O'},   {ButInsert, 'I'},    {ButInsertNew, 'N'}};
  for (const auto& [control, letter] : keys) control.AccessKey(letter);
}

void frmAddRibbon::Wire() {
  VSFExcel.AfterSelChange = [this](int oldRow, int oldCol, int newRow, int newCol) {
    VSFExcel_AfterSelChange(oldRow, oldCol, newRow, newCol);
  };
  OptLastPrice.Click = [this] { OptLastPrice_Click(); };
  OptAskPrice.Click = [this] { OptAskPrice_Click(); };
  OptBidPrice.Click = [this] { OptBidPrice_Click(); };
  OptLow.Click = [this] { OptLow_Click(); };
  OptHigh.Click = [this] { OptHigh_Click(); };
  OptClose.Click = [this] { OptClose_Click(); };
  OptVolume.Click = [this] { OptVolume_Click(); };
  chkLastSize.Click = [this] { chkLastSize_Click(); };
  chkAskSize.Click = [this] { chkAskSize_Click(); };
  chkBidSize.Click = [this] { chkBidSize_Click(); };
  chkAddName.Click = [this] { chkAddName_Click(); };
  ButGetAddress.Click = [this] { ButGetAddress_Click(); };
  ButInsert.Click = [this] { ButInsert_Click(); };
  ButInsertNew.Click = [this] { ButInsertNew_Click(); };
  ButCancel.Click = [this] { ButCancel_Click(); };
}

void frmAddRibbon::Arrange() {
  using Align = LayoutNode::Align;
  auto choices = Table(2, {OptLastPrice, chkLastSize, OptAskPrice, chkAskSize, OptBidPrice, chkBidSize, OptLow, OptHigh,
                           OptClose, OptVolume});
  auto fields = Column({Group(FraAvailableFields, std::move(choices)), chkAddName});
  // Labels above their boxes: their captions change with the choice and must not move anything.
  auto headers = Row({Column({lblName, LayoutNode(txtName).Chars(24)}).Stretch(),
                      Column({lblNameSize, LayoutNode(txtNameSize).Chars(24)}).Stretch()});
  auto location = Row({LayoutNode(lblAddress).Aligned(Align::Center), LayoutNode(txtAddress).Chars(30).Stretch(),
                       LayoutNode(ButGetAddress).MinWidth(28)});
  auto tape = Column({std::move(headers), lblRibbon, LayoutNode(VSFChart).Lines(5).Stretch(), std::move(location)});
  auto instruments = Column({lblPortfolio, LayoutNode(VSFExcel).Lines(8).Stretch()});
  Layout(Column({Row({std::move(instruments).Stretch(), std::move(fields)}).Stretch(3),
                 Group(C1ERibbon, std::move(tape)).Stretch(2),
                 Row({Space(0).Stretch(), SameWidth({ButInsert, ButInsertNew, ButCancel})})}));
}

}  // namespace pellora
