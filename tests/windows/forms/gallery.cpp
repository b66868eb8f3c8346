// Shows forms to look at: gallery.exe [controls|dense] [least|large] [DPI]. PELLORA_TEST_DPI does as the last does.

#include <cstdlib>
#include <cwchar>
#include <string>

#include "forms/CheckBox.h"
#include "forms/ComboBox.h"
#include "forms/Form.h"
#include "forms/Frame.h"
#include "forms/Grid.h"
#include "forms/Label.h"
#include "forms/ListBox.h"
#include "forms/OptionButton.h"
#include "forms/Pages.h"
#include "forms/TextBox.h"
#include "platform/windows/forms/WindowsToolkit.h"

namespace {

using namespace pellora;

/// One of every kind.
class ControlsForm : public Form {
 public:
  explicit ControlsForm(Toolkit& toolkit) : Form(toolkit, "frmControls") {
    Caption("Gallery of controls");
    BorderStyle(BorderStyle::Sizable);
    labHeading.Style(TextStyle::Heading);
    labEdit.AccessKey('T');
    butOk.AccessKey('O');
    chkTwo.Value(1);
    chkThree.Value(2);
    chkOff.Enabled(false);
    optOne.Value(true);
    optOff.Enabled(false);
    txtEdit.Text("Text to edit");
    txtEdit.ToolTip("A tip");
    txtLines.MultiLine(true);
    txtLines.ReadOnly(true);
    txtLines.Text("Several lines\r\nthat can be read & copied,\r\nnot changed.\r\n\r\nVersion: 1.0.0");
    txtOff.Text("Disabled");
    txtOff.Enabled(false);
    for (const auto* item : {"SMART", "NYSE", "NASDAQ", "GLOBEX"}) {
      comEdit.AddItem(item);
      comList.AddItem(item);
      lstItems.AddItem(item);
    }
    comEdit.Text("SMART");
    comList.ListIndex(1);
    lstItems.ListIndex(2);
    butUp.Picture(ButtonPicture::ArrowUp);
    butDown.Picture(ButtonPicture::ArrowDown);
    butDown.Enabled(false);
    butOk.Click = [this] { Hide(); };
    butCancel.Click = [this] { Hide(); };
    DefaultButton(butOk);
    CancelButton(butCancel);
    Layout(Column({labHeading,
                   Row({Group(fraChecks, Column({chkOne, chkTwo, chkThree, chkOff})),
                        Group(fraOptions, Column({optOne, optTwo, optOff}))}),
                   Table(2, {labEdit, LayoutNode(txtEdit).Stretch(), labOff, LayoutNode(txtOff).Stretch(), labCombo,
                             LayoutNode(comEdit).Stretch(), labList,
                             Row({LayoutNode(comList).Stretch(), LayoutNode(butDots).MinWidth(28)})}),
                   Row({LayoutNode(lstItems).Lines(5).Chars(16).Stretch(), Column({butUp, butDown})}).Stretch(),
                   PageStack(pages, {Table(2, {labTicker, LayoutNode(txtTicker).Stretch(), labRight,
                                               LayoutNode(comRight).Stretch()}),
                                     Column({chkPage})}),
                   LayoutNode(txtLines).Lines(4).Stretch(),
                   Row({LayoutNode(Space(0)).Stretch(), SameWidth({butOk, butOff, butCancel})})}));
  }

 private:
  Label labHeading{*this, "labHeading", "An error occurred in the gallery"};
  Frame fraChecks{*this, "fraChecks", "Check boxes"};
  CheckBox chkOne{fraChecks, "chkOne", "Unchecked"};
  CheckBox chkTwo{fraChecks, "chkTwo", "Checked && known"};
  CheckBox chkThree{fraChecks, "chkThree", "Greyed"};
  CheckBox chkOff{fraChecks, "chkOff", "Disabled"};
  Frame fraOptions{*this, "fraOptions", "Option buttons"};
  OptionButton optOne{fraOptions, "optOne", "last price"};
  OptionButton optTwo{fraOptions, "optTwo", "ask price"};
  OptionButton optOff{fraOptions, "optOff", "disabled"};
  Label labEdit{*this, "labEdit", "Text"};
  TextBox txtEdit{*this, "txtEdit"};
  Label labOff{*this, "labOff", "Disabled"};
  TextBox txtOff{*this, "txtOff"};
  Label labCombo{*this, "labCombo", "Exchange"};
  ComboBox comEdit{*this, "comEdit", ComboStyle::DropDown};
  Label labList{*this, "labList", "Primary exchange"};
  ComboBox comList{*this, "comList", ComboStyle::DropDownList};
  CommandButton butDots{*this, "butDots", "..."};
  ListBox lstItems{*this, "lstItems"};
  CommandButton butUp{*this, "butUp", "Up"};
  CommandButton butDown{*this, "butDown", "Down"};
  Pages pages{*this, "pages"};
  Page pagOne{pages, "pagOne", "Stock"};
  Label labTicker{pagOne, "labTicker", "Ticker"};
  TextBox txtTicker{pagOne, "txtTicker"};
  Label labRight{pagOne, "labRight", "Right"};
  ComboBox comRight{pagOne, "comRight", ComboStyle::DropDown};
  Page pagTwo{pages, "pagTwo", "Option"};
  CheckBox chkPage{pagTwo, "chkPage", "On the second page"};
  TextBox txtLines{*this, "txtLines"};
  CommandButton butOk{*this, "butOk", "OK"};
  CommandButton butOff{*this, "butOff", "Disabled"};
  CommandButton butCancel{*this, "butCancel", "Cancel"};
};

/// Much on one form, as a trader's dialog has it.
class DenseForm : public Form {
 public:
  explicit DenseForm(Toolkit& toolkit) : Form(toolkit, "frmDense") {
    Caption("Ticker tape");
    BorderStyle(BorderStyle::Sizable);
    labPortfolio.Style(TextStyle::Heading);
    labTape.Style(TextStyle::Heading);
    butInsert.AccessKey('I');
    butInsertNew.AccessKey('n');
    optLast.Value(true);
    chkAsk.Enabled(false);
    chkBid.Enabled(false);
    txtSize.Enabled(false);
    txtName.Text("XYZ(last price)");
    txtAddress.Text("Sheet1!$B$4:$D$40");
    FillGrids();
    butInsert.Click = [this] { ShowCritical("The tape location is not valid!"); };
    butCancel.Click = [this] { Hide(); };
    DefaultButton(butInsert);
    CancelButton(butCancel);
    Layout(Column({labPortfolio, LayoutNode(grdPortfolio).Lines(8).Stretch(3),
                   Row({Group(fraFields, Row({Table(2, {optLast, chkLast, optAsk, chkAsk, optBid, chkBid}),
                                              Column({optLow, optHigh, optClose}), Column({optVolume, chkName})})),
                        LayoutNode(Table(2, {labName, LayoutNode(txtName).Chars(24).Stretch(), labSize,
                                             LayoutNode(txtSize).Stretch()}))
                            .Stretch()}),
                   labTape, LayoutNode(grdTape).Lines(4).Stretch(1),
                   Row({labAddress, LayoutNode(txtAddress).Stretch(), LayoutNode(butAddress).MinWidth(28)}),
                   Row({LayoutNode(Space(0)).Stretch(), SameWidth({butInsert, butInsertNew, butCancel})})}));
  }

 private:
  void FillGrids() {
    static constexpr const char* kTypes[] = {"STK", "OPT", "FUT", "IND", "FOP", "CASH"};
    grdPortfolio.Rows(21);
    for (int row = 1; row <= 20; ++row) {
      const auto number = std::to_string(row);
      const std::string texts[] = {"TICK" + number, kTypes[row % 6], "200812", "42.5", row % 2 ? "P" : "C",
                                   "100",           "SMART",         "NYSE",   "USD"};
      for (int column = 0; column < 9; ++column) grdPortfolio.Text(row, column, texts[column]);
    }
    grdPortfolio.Row(3);
    grdTape.Rows(2);
    const char* const tape[] = {"XYZ(last price)", "TWS_Quotes!$M$5", "XYZ(last size)", "Sheet1!$B$4:$D$40"};
    for (int column = 0; column < 4; ++column) grdTape.Text(1, column, tape[column]);
  }

  Label labPortfolio{*this, "labPortfolio", "Portfolio"};
  Grid grdPortfolio{*this,
                    "grdPortfolio",
                    {{"Ticker", 80},
                     {"Type", 56},
                     {"Expiry", 64},
                     {"Strike", 64},
                     {"P/C", 40},
                     {"Multiplier", 72},
                     {"Exchange", 80},
                     {"Primary Exchange", 112},
                     {"Currency", 72}}};
  Frame fraFields{*this, "fraFields", "Available fields"};
  OptionButton optLast{fraFields, "optLast", "last price"};
  CheckBox chkLast{fraFields, "chkLast", "last size"};
  OptionButton optAsk{fraFields, "optAsk", "ask price"};
  CheckBox chkAsk{fraFields, "chkAsk", "ask size"};
  OptionButton optBid{fraFields, "optBid", "bid price"};
  CheckBox chkBid{fraFields, "chkBid", "bid size"};
  OptionButton optLow{fraFields, "optLow", "low"};
  OptionButton optHigh{fraFields, "optHigh", "high"};
  OptionButton optClose{fraFields, "optClose", "close"};
  OptionButton optVolume{fraFields, "optVolume", "volume"};
  CheckBox chkName{fraFields, "chkName", "Add field name"};
  Label labName{*this, "labName", "Tape header"};
  TextBox txtName{*this, "txtName"};
  Label labSize{*this, "labSize", "Size header"};
  TextBox txtSize{*this, "txtSize"};
  Label labTape{*this, "labTape", "Ticker tape"};
  Grid grdTape{*this,
               "grdTape",
               {{"Tape header for Ticker", 150},
                {"Link to ticker", 150},
                {"Tape header for Size", 150},
                {"Tape location ", 150}}};
  Label labAddress{*this, "labAddress", "Tape location"};
  TextBox txtAddress{*this, "txtAddress"};
  CommandButton butAddress{*this, "butAddress", "..."};
  CommandButton butInsert{*this, "butInsert", "Insert >>"};
  CommandButton butInsertNew{*this, "butInsertNew", "Insert && new"};
  CommandButton butCancel{*this, "butCancel", "Cancel"};
};

void ShowAt(Form& form, bool large) {
  form.Load();
  auto place = form.GetPlacement().value();
  place.normal = large ? Rect{60, 40, 60 + 1300, 40 + 900} : Rect{60, 40, 61, 41};
  form.SetPlacement(place);
  form.Show();
}

int WantedDpi(int count, wchar_t** arguments) {
  const auto* set = _wgetenv(L"PELLORA_TEST_DPI");
  return count > 3 ? _wtoi(arguments[3]) : set ? _wtoi(set) : 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  windows::WindowsToolkit toolkit(GetModuleHandleW(nullptr), 2);
  toolkit.ForceDpi(WantedDpi(count, arguments));
  const std::wstring form = count > 1 ? arguments[1] : L"controls";
  const std::wstring size = count > 2 ? arguments[2] : L"";
  ControlsForm controls(toolkit);
  DenseForm dense(toolkit);
  Form& shown = form == L"dense" ? static_cast<Form&>(dense) : controls;
  if (size.empty())
    shown.Show();
  else
    ShowAt(shown, size == L"large");
  return 0;
}
