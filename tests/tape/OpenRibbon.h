#pragma once

#include "tape/frmAddRibbon.h"

namespace pellora::test {

/// The ticker tape dialog with its routines in reach.
class OpenRibbon : public frmAddRibbon {
 public:
  using frmAddRibbon::AddSymbolToSheet;
  using frmAddRibbon::BadSymbols;
  using frmAddRibbon::ButCancel_Click;
  using frmAddRibbon::ButGetAddress_Click;
  using frmAddRibbon::ButInsert_Click;
  using frmAddRibbon::ButInsertNew_Click;
  using frmAddRibbon::ChechAddressRange;
  using frmAddRibbon::CheckAddres;
  using frmAddRibbon::CheckAddressIntersect;
  using frmAddRibbon::CheckField;
  using frmAddRibbon::chkAddName_Click;
  using frmAddRibbon::chkAskSize_Click;
  using frmAddRibbon::chkBidSize_Click;
  using frmAddRibbon::chkLastSize_Click;
  using frmAddRibbon::ColorSelectRange;
  using frmAddRibbon::ColumnAddress;
  using frmAddRibbon::EnableGroup;
  using frmAddRibbon::EnableOptionButton;
  using frmAddRibbon::EnableSizeName;
  using frmAddRibbon::Form_Load;
  using frmAddRibbon::Form_QueryUnload;
  using frmAddRibbon::frmAddRibbon;
  using frmAddRibbon::GivMyLink;
  using frmAddRibbon::GotoLastCell;
  using frmAddRibbon::LoadFGChart;
  using frmAddRibbon::LoadTable;
  using frmAddRibbon::modifyAddress;
  using frmAddRibbon::myIntersect;
  using frmAddRibbon::OpredTotalOpt;
  using frmAddRibbon::OptAskPrice_Click;
  using frmAddRibbon::OptBidPrice_Click;
  using frmAddRibbon::OptClose_Click;
  using frmAddRibbon::OptHigh_Click;
  using frmAddRibbon::OptLastPrice_Click;
  using frmAddRibbon::OptLow_Click;
  using frmAddRibbon::OptVolume_Click;
  using frmAddRibbon::remove_bad_symbols;
  using frmAddRibbon::ReturnColumnsCount;
  using frmAddRibbon::ReturnNameSheetAndAddress;
  using frmAddRibbon::ViewChkName;
  using frmAddRibbon::ViewFGChart;
  using frmAddRibbon::ViewToTable;
  using frmAddRibbon::VSFExcel_AfterSelChange;
};

}  // namespace pellora::test
