#pragma once

#include <string>
#include <vector>

#include "forms/CheckBox.h"
#include "forms/ComboBox.h"
#include "forms/Form.h"
#include "forms/Frame.h"
#include "forms/Grid.h"
#include "forms/Label.h"
#include "forms/ListBox.h"
#include "forms/OptionButton.h"
#include "forms/TextBox.h"

namespace pellora::test {

/// A form with a control of each kind that the tests of a platform's windows use. Every event adds a word to `events`.
class SampleForm : public Form {
 public:
  explicit SampleForm(Toolkit& toolkit, const char* caption = "Sample") : Form(toolkit, "frmSample") {
    Caption(caption);
    BorderStyle(BorderStyle::Sizable);
    for (const auto* item : {"SMART", "NYSE", "NASDAQ"}) {
      com.AddItem(item);
      drop.AddItem(item);
      lst.AddItem(item);
    }
    lab.AccessKey('T');
    chk.AccessKey('c');
    butOk.AccessKey('O');
    grd.Rows(6);
    ConnectHandlers();
    DefaultButton(butOk);
    CancelButton(butCancel);
    Layout(Column({Row({lab, LayoutNode(txt).Stretch()}), com, drop, LayoutNode(lst).Lines(3),
                   Group(fra, Row({optOne, optTwo, chk})), LayoutNode(grd).Lines(4).Stretch(),
                   LayoutNode(notes).Lines(2), SameWidth({butOk, butCancel})}));
  }

  void Fixed() { BorderStyle(BorderStyle::FixedDialog); }

  std::vector<std::string> events;
  std::int16_t closeMode = -1;
  std::int16_t refusals = 0;
  int activations = 0;

  Label lab{*this, "lab", "Text"};
  TextBox txt{*this, "txt"};
  ComboBox com{*this, "com", ComboStyle::DropDown};
  ComboBox drop{*this, "drop", ComboStyle::DropDownList};
  ListBox lst{*this, "lst"};
  Frame fra{*this, "fra", "Frame"};
  OptionButton optOne{fra, "optOne", "one"};
  OptionButton optTwo{fra, "optTwo", "two"};
  CheckBox chk{fra, "chk", "check"};
  Grid grd{*this, "grd", {{"Ticker", 80}, {"Type", 60}}};
  TextBox notes{*this, "notes"};
  CommandButton butOk{*this, "butOk", "OK"};
  CommandButton butCancel{*this, "butCancel", "Cancel"};

 protected:
  void OnActivate() override { ++activations; }
  void OnQueryUnload(std::int16_t& cancel, std::int16_t& mode) override {
    closeMode = mode;
    if (refusals > 0) cancel = refusals--;
  }

 private:
  void ConnectHandlers() {
    notes.MultiLine(true);
    txt.Change = [this] { events.push_back("txt:" + txt.Text()); };
    com.Change = [this] { events.push_back("com:" + com.Text()); };
    com.Click = [this] { events.push_back("chosen:" + com.Text()); };
    drop.Click = [this] { events.push_back("drop:" + drop.Text()); };
    lst.Click = [this] { events.push_back("lst:" + std::to_string(lst.ListIndex())); };
    chk.Click = [this] { events.push_back("chk:" + std::to_string(chk.Value())); };
    optOne.Click = [this] { events.push_back("one"); };
    optTwo.Click = [this] { events.push_back("two"); };
    grd.AfterSelChange = [this](int, int, int row, int) { events.push_back("row" + std::to_string(row)); };
    notes.Change = [this] { events.push_back("notes"); };
    butOk.Click = [this] {
      events.push_back("ok");
      Hide();
    };
    butCancel.Click = [this] {
      events.push_back("cancel");
      Hide();
    };
  }
};

}  // namespace pellora::test
