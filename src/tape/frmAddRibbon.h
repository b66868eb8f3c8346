#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Variant.h"
#include "excel/Application.h"
#include "forms/CheckBox.h"
#include "forms/CommandButton.h"
#include "forms/Form.h"
#include "forms/Frame.h"
#include "forms/Grid.h"
#include "forms/Label.h"
#include "forms/OptionButton.h"
#include "forms/TextBox.h"
#include "support/CAppSettings.h"
#include "support/CFormRestore.h"
#include "support/Routine.h"
#include "tape/QuoteFieldSet.h"
#include "tape/TapeIndex.h"
#include "tape/TapeOwner.h"
#include "tape/cLinkAddresseses.h"

namespace pellora {

/// The ticker tape dialog: lists the instruments of the quote sheet and the tapes recorded for the current one, lets
/// the user choose a quote field, header texts and a location, writes the tape and records it.
///
/// It is made once, shown again and again, and reads the workbook when it loads: the instrument grid is a snapshot.
/// Its outcome is in `Tag`: "CLOSE", or "DATABEGINNING" when the workbook is to let the user pick the location, hand
/// it back through `TapeAddress` and show the dialog again. Every routine follows the error protocol; what differs
/// says so.
class frmAddRibbon : public Form, protected Routines {
 public:
  explicit frmAddRibbon(Toolkit& toolkit);
  ~frmAddRibbon() override;

  /// Not owned; nothing until set. Set before each showing, taken away before the dialog is released.
  TapeOwner* Owner() const { return m_owner; }
  void Owner(TapeOwner* owner) { m_owner = owner; }
  /// The store of the window's placement.
  const std::shared_ptr<CAppSettings>& AppSettings() const { return m_appSettings; }
  void AppSettings(std::shared_ptr<CAppSettings> settings) { m_appSettings = std::move(settings); }
  /// The recorded tapes in memory; made when they are first read.
  const std::shared_ptr<cLinkAddresseses>& LinkAddresses() const { return m_linkAddresses; }
  void LinkAddresses(std::shared_ptr<cLinkAddresseses> links) { m_linkAddresses = std::move(links); }
  /// The quote fields the workbook is known to carry; nothing when nobody said.
  const std::optional<QuoteFieldSet>& QuoteFields() const { return m_quoteFields; }
  void QuoteFields(std::optional<QuoteFieldSet> fields) { m_quoteFields = fields; }
  /// The last address written. Writing puts it into `txtAddress`, brought to the size a tape needs.
  const std::string& TapeAddress() const { return m_tapeAddress; }
  void TapeAddress(std::string_view address);

  /// How many quote fields the workbook carries, 0 to 10; counted when the dialog loads.
  std::int16_t DataBeginning = 0;

  // Controls, in tab order.
  Label lblPortfolio;
  Grid VSFExcel;
  Frame FraAvailableFields;
  OptionButton OptLastPrice;
  CheckBox chkLastSize;
  OptionButton OptAskPrice;
  CheckBox chkAskSize;
  OptionButton OptBidPrice;
  CheckBox chkBidSize;
  OptionButton OptLow;
  OptionButton OptHigh;
  OptionButton OptClose;
  OptionButton OptVolume;
  CheckBox chkAddName;
  Panel C1ERibbon;
  Label lblName;
  TextBox txtName;
  Label lblNameSize;
  TextBox txtNameSize;
  Label lblRibbon;
  Grid VSFChart;
  Label lblAddress;
  TextBox txtAddress;
  CommandButton ButGetAddress;
  CommandButton ButInsert;
  CommandButton ButInsertNew;
  CommandButton ButCancel;

 protected:
  // Life and buttons.
  void OnLoad() override { Form_Load(); }
  /// Runs `Form_QueryUnload`. Whatever became of it, a user's closing leaves the dialog hidden, loaded, and with the
  /// outcome "CLOSE": with an older outcome the workbook would go on asking for a location.
  void OnQueryUnload(std::int16_t& cancel, std::int16_t& unloadMode) override;
  void Form_Load();
  /// Saves the placement and hides. A user's closing is turned into hiding (`Cancel` 1), the program's own unload
  /// proceeds (both 0).
  void Form_QueryUnload(std::int16_t& Cancel, std::int16_t& UnloadMode);
  void ButCancel_Click();
  void ButGetAddress_Click();
  void ButInsert_Click();
  /// Shows the current row again whether or not the tape was inserted.
  void ButInsertNew_Click();

  // Field choices.
  void OptLastPrice_Click();
  void OptAskPrice_Click();
  void OptBidPrice_Click();
  void OptLow_Click();
  void OptHigh_Click();
  void OptClose_Click();
  void OptVolume_Click();
  void chkLastSize_Click();
  void chkAskSize_Click();
  void chkBidSize_Click();
  void chkAddName_Click();
  void EnableSizeName();
  /// Fills the header boxes from the current instrument and the chosen fields.
  void ViewChkName();
  /// Follows `QuoteFields`; does nothing without.
  void EnableOptionButton();
  void EnableGroup(bool Enabled);

  // Quote sheet.
  void OpredTotalOpt();
  /// True when a workbook name or address is a range. Quiet: a failure is an answer, not reported.
  bool CheckAddres(std::string_view Name);
  /// Fills the instrument grid. Restores screen updating and the active sheet only when it ends normally.
  void LoadTable();
  void ViewToTable();
  void VSFExcel_AfterSelChange(int OldRow, int OldCol, int NewRow, int NewCol);

  // Addresses.
  void ReturnNameSheetAndAddress(std::string& NameSheet, std::string& Address, std::string_view FullAddress);
  /// The common area of two areas as the spreadsheet writes it; "" when the sheets differ (letter case apart), when
  /// there is none, and on any failure whatever, quietly. Leaves its entry on the call stack, deliberately.
  std::string myIntersect(std::string_view Sheet1, std::string_view Address1, std::string_view Sheet2,
                          std::string_view Address2);
  std::string ColumnAddress(std::string_view Name);
  /// The quote cell of the current row and the chosen field, "" when none is chosen.
  std::string GivMyLink(std::string& RowAddress);
  /// 2, or 3 with a size.
  std::int16_t ReturnColumnsCount();
  /// The area in `txtAddress` with the columns a tape needs and at least 3 rows (else 20); "" for what is no area.
  std::string modifyAddress();
  bool ChechAddressRange(std::string_view Address);
  /// Which recorded tape the area would overlap, "" for none. Records that could not be read when the dialog loaded
  /// are tried again first.
  std::string CheckAddressIntersect(std::string_view Address);
  /// `Text` with each of `Symbols` replaced by "_".
  std::string remove_bad_symbols(const Variant& Text, std::string_view Symbols);

  // Validation: true when the tape was inserted.
  bool CheckField();

  // Writer and settings sheet.
  /// Writes a tape and its record; neither when the record's place cannot be told.
  void AddSymbolToSheet();
  void ColorSelectRange();
  /// The last cell of a sheet that holds anything, in relative form; `StartCell` when none does, "" when it could not
  /// be found out.
  void GotoLastCell(std::string_view StartCell, std::string_view SheetName, std::string& Address);
  /// Takes the recorded tapes of a quote row into `LinkAddresses`. The settings sheet is read by the first call of a
  /// load only.
  void LoadFGChart(std::string_view RowAddress);
  void ViewFGChart(std::string_view RowAddress);

  /// Characters that do not belong into a plain name; some stand twice.
  static constexpr std::string_view BadSymbols = "=~@#$%^&*()-+\\/.,';`\"!:\\/?*[]";

 private:
  /// One quote field that can be chosen, with its companion.
  struct Choice {
    OptionButton& option;
    std::string_view name;
    CheckBox* sizeBox = nullptr;
    std::string_view sizeName;
  };
  enum Field { LastPrice, AskPrice, BidPrice, Low, High, Close, Volume };

  // The instruments' rows on the quote sheet, and the first one's first cell.
  struct QuoteRows {
    std::int32_t first = 0;
    std::int32_t last = 0;
    std::string firstAddress;
  };

  void Describe();
  void Arrange();
  void Wire();
  void SavePlacement(Steps& step);

  excel::Application Excel() const;
  static std::int32_t RowOf(const excel::Application& excel, const std::string& address);
  static void RestoreView(Steps& step, const excel::Application& excel, const std::string& sheet, bool screenUpdating);

  void OptionClick(std::string_view routineName, Field field);
  void OfferSize(const Choice& choice);
  void SizeClick(std::string_view routineName, const CheckBox& box);
  void FollowSizeBox(const CheckBox& box);
  void MatchSizeHeader();
  bool WithSize() const;
  bool HasSizeHeader() const;
  void DisableChoices();
  static void TipOf(Label& label, TextBox& box, std::string_view what);
  bool Chosen(Field field) const;
  std::string ChosenFieldCaption() const;
  std::string ChosenSizeCaption() const;

  std::int32_t LastUsedRow(Steps& step, const excel::Application& excel, std::string_view sheetName);
  QuoteRows FindQuoteRows(Steps& step, const excel::Application& excel);
  static std::shared_ptr<VariantArray> ReadContracts(Steps& step, const excel::Application& excel,
                                                     const QuoteRows& rows);
  void ListNothing();
  void ListInstruments(Steps& step, const excel::Application& excel, const QuoteRows& rows, const VariantArray& block);
  void ShowContracts(Steps& step, const VariantArray& block);
  void TagRows(Steps& step, const excel::Application& excel, const QuoteRows& rows);
  static std::string InstrumentAddress(const excel::Application& excel, const std::optional<Area>& first, int row,
                                       int width);
  bool RowIsComplete(int row) const;
  void ShowNoTapes();
  void OfferFields(const std::string& rowAddress);

  std::string CommonArea(std::string_view address1, std::string_view address2) const;
  std::string IntersectThroughExcel(std::string_view address1, std::string_view address2) const;
  std::string LocationFault(const std::string& location);
  /// True when the writer, which takes the location apart by itself, finds the cells, too. Quiet.
  bool IsThere(const std::string& location);
  void Refuse(Steps& step, const std::string& message, TextBox& box);

  excel::Range NewRecord(Steps& step, const excel::Application& excel);
  void WriteTape(Steps& step, const excel::Worksheet& settings, const excel::Range& record);
  std::string WriteRecord(Steps& step, const excel::Range& record, std::string& rowAddress);
  void RecordInMemory(Steps& step, const std::string& link, const std::string& rowAddress);
  void Remember(std::string_view rowAddress, const TapeRecord& record);
  excel::Range TapeArea(const std::string& sheet, const std::string& address) const;
  static void DrawFrame(Steps& step, const excel::Range& tape);

  static std::string LastUsedCell(Steps& step, const excel::Worksheet& sheet, std::string_view startCell);
  static std::string LastFoundCell(Steps& step, const excel::Worksheet& sheet, std::string_view startCell);
  void ReadSettingsSheet(Steps& step);
  void ReadUnreadRecords(Steps& step);
  static std::optional<std::vector<TapeRecord>> ReadRecords(Steps& step, const excel::Application& excel,
                                                            std::int32_t lastRow);
  static std::optional<std::vector<Area>> ResolveQuietly(const excel::Application& excel, const std::string& address);
  std::vector<std::size_t> FollowingPlain(const Area& row);
  std::vector<std::size_t> FollowingThroughExcel(std::string_view rowAddress);
  void ShowTapes(const cLinkAddresses& tapes);

  TapeOwner* m_owner = nullptr;
  std::shared_ptr<CAppSettings> m_appSettings;
  std::shared_ptr<cLinkAddresseses> m_linkAddresses;
  std::optional<QuoteFieldSet> m_quoteFields;
  std::string m_tapeAddress;
  std::unique_ptr<CFormRestore> m_placement;
  std::array<Choice, 7> m_choices;
  // The settings sheet as the load that is under way has read it; nothing before the first row that asks.
  std::optional<TapeIndex> m_recorded;
  // The settings sheet could not be read: what is in memory does not tell which places are taken.
  bool m_recordsUnread = false;
};

}  // namespace pellora
