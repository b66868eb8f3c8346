#include "project/frmNewProject.h"

#include <algorithm>
#include <array>

#include "forms/Layout.h"

namespace pellora {
namespace {

// In the order in which the fields are handed to the workbook; the boxes stand on the form in another.
constexpr std::array kBoxes = {&frmNewProject::chkAskPrice,  &frmNewProject::chkAskSize,  &frmNewProject::chkBidPrice,
                               &frmNewProject::chkBidSize,   &frmNewProject::chkClose,    &frmNewProject::chkHigh,
                               &frmNewProject::chkLastPrice, &frmNewProject::chkLastSize, &frmNewProject::chkLow,
                               &frmNewProject::chkVolume};

}  // namespace

frmNewProject::frmNewProject(Toolkit& toolkit) : Form(toolkit, "frmNewProject"), Routines("frmNewProject") {
  Caption("Choose market data fields for project ");
  chkLastPrice.AccessKey('L');
  chkLastSize.AccessKey('S');
  chkBidPrice.AccessKey('B');
  chkBidSize.AccessKey('z');
  chkAskPrice.AccessKey('A');
  chkAskSize.AccessKey('k');
  chkHigh.AccessKey('H');
  chkLow.AccessKey('w');
  chkVolume.AccessKey('V');
  chkClose.AccessKey('o');
  ButCheckAll.AccessKey('e');
  ButUncheckAll.AccessKey('U');
  ButCreateProject.AccessKey('C');

  ButCreateProject.Click = [this] { ButCreateProject_Click(); };
  ButCancel.Click = [this] { ButCancel_Click(); };
  ButCheckAll.Click = [this] { ButCheckAll_Click(); };
  ButUncheckAll.Click = [this] { ButUncheckAll_Click(); };
  DefaultButton(ButCreateProject);
  CancelButton(ButCancel);

  Layout(Column({Row({Column({chkLastPrice, chkLastSize, chkBidPrice, chkBidSize, chkAskPrice, chkAskSize}).Stretch(),
                      Column({chkHigh, chkLow, chkVolume, chkClose}).Stretch()}),
                 Space(4), SameWidth({ButCheckAll, ButUncheckAll, ButCreateProject, ButCancel})}));
}

void frmNewProject::CheckUncheck(std::int16_t& value) {
  routine("CheckUncheck", [&](Steps& step) {
    for (const auto box : kBoxes) step([&] { (this->*box).Value(value); });
  });
}

void frmNewProject::ButCreateProject_Click() {
  routine("ButCreateProject_Click", [&](Steps& step) {
    const bool none = step([&] {
      return std::all_of(kBoxes.begin(), kBoxes.end(), [this](auto box) { return (this->*box).Value() == 0; });
    });
    if (none) {
      step([&] { ShowCritical("You must select at least one value!"); });
      return;
    }
    step([&] { Hide(); });
    step([&] { Tag("1"); });
  });
}

void frmNewProject::ButCancel_Click() {
  routine("ButCancel_Click", [&](Steps& step) {
    step([&] { Hide(); });
    step([&] { Tag("2"); });
  });
}

void frmNewProject::ButCheckAll_Click() {
  routine("ButCheckAll_Click", [&](Steps& step) {
    std::int16_t checked = 1;
    step([&] { CheckUncheck(checked); });
  });
}

void frmNewProject::ButUncheckAll_Click() {
  routine("ButUncheckAll_Click", [&](Steps& step) {
    std::int16_t unchecked = 0;
    step([&] { CheckUncheck(unchecked); });
  });
}

}  // namespace pellora
