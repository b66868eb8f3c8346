// The contract dialog's look: access keys, names for assistive programs, layout.

#include "contract/SecurityTypes.h"
#include "contract/frmAddTicker.h"
#include "forms/Layout.h"

namespace pellora {
namespace {

// In dip. The same on every page and beside the type list, so that nothing jumps when the type changes: wide enough for
// the longest label.
constexpr int kLabelWidth = 116;
constexpr int kPointsWidth = 34;
constexpr int kBoxChars = 24;

LayoutNode Beside(Label& label) { return LayoutNode(label).MinWidth(kLabelWidth); }
LayoutNode Box(Control& box) { return LayoutNode(box).Chars(kBoxChars).Stretch(); }
LayoutNode Points(CommandButton& button) { return LayoutNode(button).MinWidth(kPointsWidth); }
LayoutNode NoPoints() { return Space(kPointsWidth); }

}  // namespace

void frmAddTicker::NameKeys() {
  // Only one page is on view at a time, so the pages repeat each other's keys.
  lblType.AccessKey('y');
  for (auto* label : {&lblSTKSymbol, &lblOPTSymbol, &lblFUTSymbol, &lblINDSymbol, &lblFOPSymbol, &lblCASHSymbol})
    label->AccessKey('T');
  for (auto* label :
       {&lblSTKExchange, &lblOPTExchange, &lblFUTExchange, &lblINDExchange, &lblFOPExchange, &lblCASHExchange})
    label->AccessKey('E');
  for (auto* label : {&lblSTKCurency, &lblOPTCurency, &lblFUTCurency, &lblIndCurency, &lblFOPCurency, &lblCASHCurency})
    label->AccessKey('C');
  for (auto* label : {&lblOPTExpiry, &lblFUTExpiry, &lblFOPExpiry}) label->AccessKey('x');
  for (auto* label : {&lblOPTRight, &lblFOPRight}) label->AccessKey('R');
  for (auto* label : {&lblOPTMultiplier, &lblFUTMultiplier}) label->AccessKey('M');
  lblPrimaryExchange.AccessKey('P');
  ButInsert.AccessKey('I');
  ButInsertNew.AccessKey('w');
  for (const auto& type : kSecurityTypes) {
    (this->*type.exchangeButton.button).AccessibleName("Edit exchanges list");
    (this->*type.currencyButton.button).AccessibleName("Edit currencies list");
  }
}

void frmAddTicker::ArrangeControls() {
  auto stock = Table(3, {Beside(lblSTKSymbol), Box(txtSTKSymbol), NoPoints(),                  //
                         Beside(lblSTKExchange), Box(ComSTKExchange), Points(ButSTKExchange),  //
                         Beside(lblSTKCurency), Box(ComSTKCurency), Points(ButSTKCurency),     //
                         Beside(lblPrimaryExchange), Box(txtPrimaryExchange), NoPoints()});
  auto option = Table(3, {Beside(lblOPTSymbol), Box(txtOPTSymbol), NoPoints(),                  //
                          Beside(lblOPTExchange), Box(ComOPTExchange), Points(ButOPTExchange),  //
                          Beside(lblOPTCurency), Box(ComOPTCurency), Points(ButOPTCurency),     //
                          Beside(lblOPTExpiry), Box(txtOPTExpiry), NoPoints(),                  //
                          Beside(lblOPTRight), Box(ComOPTRight), NoPoints(),                    //
                          Beside(lblOPTMultiplier), Box(txtOPTMultiplier), NoPoints()});
  auto futures = Table(3, {Beside(lblFUTSymbol), Box(txtFUTSymbol), NoPoints(),                  //
                           Beside(lblFUTExchange), Box(ComFUTExchange), Points(ButFUTExchange),  //
                           Beside(lblFUTCurency), Box(ComFUTCurency), Points(ButFUTCurency),     //
                           Beside(lblFUTExpiry), Box(txtFUTExpiry), NoPoints(),                  //
                           Beside(lblFUTMultiplier), Box(txtFUTMultiplier), NoPoints()});
  auto index = Table(3, {Beside(lblINDSymbol), Box(txtINDSymbol), NoPoints(),                  //
                         Beside(lblINDExchange), Box(ComINDExchange), Points(ButINDExchange),  //
                         Beside(lblIndCurency), Box(ComIndCurency), Points(ButINDCurency)});
  auto futureOption = Table(3, {Beside(lblFOPSymbol), Box(txtFOPSymbol), NoPoints(),                  //
                                Beside(lblFOPExchange), Box(ComFOPExchange), Points(ButFOPExchange),  //
                                Beside(lblFOPCurency), Box(ComFOPCurency), Points(ButFOPCurency),     //
                                Beside(lblFOPExpiry), Box(txtFOPExpiry), NoPoints(),                  //
                                Beside(lblFOPRight), Box(ComFOPRight), NoPoints()});
  auto cash = Table(3, {Beside(lblCASHSymbol), Box(txtCASHSymbol), NoPoints(),                   //
                        Beside(lblCASHExchange), Box(ComCASHExchange), Points(ButCASHExchange),  //
                        Beside(lblCASHCurency), Box(ComCASHCurency), Points(ButCASHCurency)});
  auto pages = PageStack(CIndexType, {Group(C1ESTK, stock), Group(C1EOPT, option), Group(C1EFUT, futures),
                                      Group(C1EIND, index), Group(C1EFOP, futureOption), Group(C1ECash, cash)});
  Layout(Column({Table(3, {Beside(lblType), Box(ComType), NoPoints()}), std::move(pages).Stretch(),
                 Row({Space(0).Stretch(), SameWidth({ButInsert, ButInsertNew, ButCancel})})}));
}

}  // namespace pellora
