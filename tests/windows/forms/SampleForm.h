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

namespace pellora::windows {

/// A form with a control of each kind the tests use. Every event adds a word to `events`.
class SampleForm : public Form {
 public:
  explicit SampleForm(Toolkit& toolkit, const char* caption = "Sample") : Form(toolkit, "frmSample") {
    Caption(caption);
    BorderStyle(BorderStyle::Sizable);
    for (const auto* item : {"SMART", "NYSE", "NASDAQ"}) {
      com.AddItem(item);
      lst.AddItem(item);
    }
    grd.Rows(6);
    txt.Change = [this] { events.push_back("txt:" + txt.Text()); };
    com.Change = [this] { events.push_back("com:" + com.Text()); };
    lst.Click = [this] { events.push_back("lst"); };
    chk.Click = [this] { events.push_back("chk"); };
    optOne.Click = [this] { events.push_back("one"); };
    optTwo.Click = [this] { events.push_back("two"); };
    grd.AfterSelChange = [this](int, int, int row, int) { events.push_back("row" + std::to_string(row)); };
    butOk.Click = [this] {
      events.push_back("ok");
      Hide();
    };
    butCancel.Click = [this] {
      events.push_back("cancel");
      Hide();
    };
    DefaultButton(butOk);
    CancelButton(butCancel);
    Layout(Column({Row({lab, LayoutNode(txt).Stretch()}), com, LayoutNode(lst).Lines(3),
                   Group(fra, Row({optOne, optTwo, chk})), LayoutNode(grd).Lines(4).Stretch(),
                   SameWidth({butOk, butCancel})}));
  }

  void Fixed() { BorderStyle(BorderStyle::FixedDialog); }

  std::vector<std::string> events;
  std::int16_t closeMode = -1;
  int activations = 0;

  Label lab{*this, "lab", "Text"};
  TextBox txt{*this, "txt"};
  ComboBox com{*this, "com", ComboStyle::DropDown};
  ListBox lst{*this, "lst"};
  Frame fra{*this, "fra", "Frame"};
  OptionButton optOne{fra, "optOne", "one"};
  OptionButton optTwo{fra, "optTwo", "two"};
  CheckBox chk{fra, "chk", "check"};
  Grid grd{*this, "grd", {{"Ticker", 80}, {"Type", 60}}};
  CommandButton butOk{*this, "butOk", "OK"};
  CommandButton butCancel{*this, "butCancel", "Cancel"};

 protected:
  void OnActivate() override { ++activations; }
  void OnQueryUnload(std::int16_t&, std::int16_t& mode) override { closeMode = mode; }
};

}  // namespace pellora::windows
