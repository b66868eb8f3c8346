#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "forms/ComboBox.h"
#include "forms/CommandButton.h"
#include "forms/Form.h"
#include "forms/Frame.h"
#include "forms/Label.h"
#include "forms/Pages.h"
#include "forms/TextBox.h"
#include "support/CFormRestore.h"
#include "support/Routine.h"

namespace pellora {

class CAppSettings;
struct ListButton;
struct SecurityType;

/// The dialog that describes one instrument: a security type, and on that type's page its contract fields. What the
/// types are, and which control holds which of their fields, is one table (SecurityTypes.h).
///
/// Only the selected type's page is checked, stored and meant for the caller, who reads it from the controls after the
/// form has hidden itself. The outcome is in `Tag`: "1" for Insert, "4" for Insert & new, "2" for Cancel, empty when
/// the window was closed. The form lives for one request. It opens with the keyboard in the type's ticker box.
class frmAddTicker : public Form, private Routines {
 public:
  explicit frmAddTicker(Toolkit& toolkit);

  /// The security type to begin with, from 0; negative for the first. Set before the form is shown.
  std::int16_t ComTypeListIndex() const { return m_comTypeListIndex; }
  void ComTypeListIndex(std::int16_t index) { m_comTypeListIndex = index; }
  /// The store of choices and placement: handed in before the form is shown, taken back (null) afterwards.
  const std::shared_ptr<CAppSettings>& frmAppSettings() const { return m_appSettings; }
  void frmAppSettings(std::shared_ptr<CAppSettings> settings) { m_appSettings = std::move(settings); }

  /// True when the selected type's fields pass. Otherwise the user has been told of the first fault and the keyboard
  /// is in the faulty box, its text selected; nothing else has changed.
  bool CheckParametr();
  /// Fills lists and boxes of all pages from the store, or with their defaults. Symbols are never stored.
  void LoadParamert();
  /// Stores the choices and lists of the selected type, all as text. The currency list and choice are every type's;
  /// the lists of rights are never written.
  void SaveParamert();
  /// Fills a combo from a list text, items separated by "|", and chooses the first that equals `selectText` without
  /// regard to case, else the first. An empty list text leaves the combo empty and is no error: a user who deletes
  /// the last entry has asked for it, and the text stays free to type.
  void Add_Combobox(ComboBox& combo, std::string_view listText, const std::optional<std::string>& selectText = {});
  /// A combo's items as list text.
  std::string ComboBoxToStr(const ComboBox& combo) const;
  /// Lets the user edit a combo's list; after Save refills it, keeping the choice when it is still there.
  void RunfrmModifyList(ComboBox& combo, std::string_view title);

  /// The controls, in tab order.
  Label lblType{*this, "lblType", "Type"};
  ComboBox ComType{*this, "ComType", ComboStyle::DropDownList};
  /// One page for each type, in step with `ComType` by index. Its tabs are hidden: the type list is the way to switch.
  Pages CIndexType{*this, "CIndexType"};

  Page pagSTK{CIndexType, "pagSTK", "Stock"};
  Panel C1ESTK{pagSTK, "C1ESTK"};
  Label lblSTKSymbol{C1ESTK, "lblSTKSymbol", "Ticker"};
  TextBox txtSTKSymbol{C1ESTK, "txtSTKSymbol"};
  Label lblSTKExchange{C1ESTK, "lblSTKExchange", "Exchange"};
  ComboBox ComSTKExchange{C1ESTK, "ComSTKExchange", ComboStyle::DropDown};
  CommandButton ButSTKExchange{C1ESTK, "ButSTKExchange", "..."};
  Label lblSTKCurency{C1ESTK, "lblSTKCurency", "Currency"};
  ComboBox ComSTKCurency{C1ESTK, "ComSTKCurency", ComboStyle::DropDown};
  CommandButton ButSTKCurency{C1ESTK, "ButSTKCurency", "..."};
  Label lblPrimaryExchange{C1ESTK, "lblPrimaryExchange", "Primary Exchange"};
  TextBox txtPrimaryExchange{C1ESTK, "txtPrimaryExchange"};

  Page pagOPT{CIndexType, "pagOPT", "Option"};
  Panel C1EOPT{pagOPT, "C1EOPT"};
  Label lblOPTSymbol{C1EOPT, "lblOPTSymbol", "Ticker"};
  TextBox txtOPTSymbol{C1EOPT, "txtOPTSymbol"};
  Label lblOPTExchange{C1EOPT, "lblOPTExchange", "Exchange"};
  ComboBox ComOPTExchange{C1EOPT, "ComOPTExchange", ComboStyle::DropDown};
  CommandButton ButOPTExchange{C1EOPT, "ButOPTExchange", "..."};
  Label lblOPTCurency{C1EOPT, "lblOPTCurency", "Currency"};
  ComboBox ComOPTCurency{C1EOPT, "ComOPTCurency", ComboStyle::DropDown};
  CommandButton ButOPTCurency{C1EOPT, "ButOPTCurency", "..."};
  Label lblOPTExpiry{C1EOPT, "lblOPTExpiry", "Expiry"};
  TextBox txtOPTExpiry{C1EOPT, "txtOPTExpiry"};
  Label lblOPTRight{C1EOPT, "lblOPTRight", "Right"};
  ComboBox ComOPTRight{C1EOPT, "ComOPTRight", ComboStyle::DropDown};
  Label lblOPTMultiplier{C1EOPT, "lblOPTMultiplier", "Multiplier"};
  TextBox txtOPTMultiplier{C1EOPT, "txtOPTMultiplier"};

  Page pagFUT{CIndexType, "pagFUT", "Futures"};
  Panel C1EFUT{pagFUT, "C1EFUT"};
  Label lblFUTSymbol{C1EFUT, "lblFUTSymbol", "Ticker"};
  TextBox txtFUTSymbol{C1EFUT, "txtFUTSymbol"};
  Label lblFUTExchange{C1EFUT, "lblFUTExchange", "Exchange"};
  ComboBox ComFUTExchange{C1EFUT, "ComFUTExchange", ComboStyle::DropDown};
  CommandButton ButFUTExchange{C1EFUT, "ButFUTExchange", "..."};
  Label lblFUTCurency{C1EFUT, "lblFUTCurency", "Currency"};
  ComboBox ComFUTCurency{C1EFUT, "ComFUTCurency", ComboStyle::DropDown};
  CommandButton ButFUTCurency{C1EFUT, "ButFUTCurency", "..."};
  Label lblFUTExpiry{C1EFUT, "lblFUTExpiry", "Expiry"};
  TextBox txtFUTExpiry{C1EFUT, "txtFUTExpiry"};
  Label lblFUTMultiplier{C1EFUT, "lblFUTMultiplier", "Multiplier"};
  TextBox txtFUTMultiplier{C1EFUT, "txtFUTMultiplier"};

  Page pagIND{CIndexType, "pagIND", "Index"};
  Panel C1EIND{pagIND, "C1EIND"};
  Label lblINDSymbol{C1EIND, "lblINDSymbol", "Ticker"};
  TextBox txtINDSymbol{C1EIND, "txtINDSymbol"};
  Label lblINDExchange{C1EIND, "lblINDExchange", "Exchange"};
  ComboBox ComINDExchange{C1EIND, "ComINDExchange", ComboStyle::DropDown};
  CommandButton ButINDExchange{C1EIND, "ButINDExchange", "..."};
  Label lblIndCurency{C1EIND, "lblIndCurency", "Currency"};
  ComboBox ComIndCurency{C1EIND, "ComIndCurency", ComboStyle::DropDown};
  CommandButton ButINDCurency{C1EIND, "ButINDCurency", "..."};

  Page pagFOP{CIndexType, "pagFOP", "FutOpt"};
  Panel C1EFOP{pagFOP, "C1EFOP"};
  Label lblFOPSymbol{C1EFOP, "lblFOPSymbol", "Ticker"};
  TextBox txtFOPSymbol{C1EFOP, "txtFOPSymbol"};
  Label lblFOPExchange{C1EFOP, "lblFOPExchange", "Exchange"};
  ComboBox ComFOPExchange{C1EFOP, "ComFOPExchange", ComboStyle::DropDown};
  CommandButton ButFOPExchange{C1EFOP, "ButFOPExchange", "..."};
  Label lblFOPCurency{C1EFOP, "lblFOPCurency", "Currency"};
  ComboBox ComFOPCurency{C1EFOP, "ComFOPCurency", ComboStyle::DropDown};
  CommandButton ButFOPCurency{C1EFOP, "ButFOPCurency", "..."};
  Label lblFOPExpiry{C1EFOP, "lblFOPExpiry", "Expiry"};
  TextBox txtFOPExpiry{C1EFOP, "txtFOPExpiry"};
  Label lblFOPRight{C1EFOP, "lblFOPRight", "Right"};
  ComboBox ComFOPRight{C1EFOP, "ComFOPRight", ComboStyle::DropDown};

  Page pagCASH{CIndexType, "pagCASH", "Cash"};
  Panel C1ECash{pagCASH, "C1ECash"};
  Label lblCASHSymbol{C1ECash, "lblCASHSymbol", "Ticker"};
  TextBox txtCASHSymbol{C1ECash, "txtCASHSymbol"};
  Label lblCASHExchange{C1ECash, "lblCASHExchange", "Exchange"};
  ComboBox ComCASHExchange{C1ECash, "ComCASHExchange", ComboStyle::DropDown};
  CommandButton ButCASHExchange{C1ECash, "ButCASHExchange", "..."};
  Label lblCASHCurency{C1ECash, "lblCASHCurency", "Currency"};
  ComboBox ComCASHCurency{C1ECash, "ComCASHCurency", ComboStyle::DropDown};
  CommandButton ButCASHCurency{C1ECash, "ButCASHCurency", "..."};

  CommandButton ButInsert{*this, "ButInsert", "Insert >>"};
  CommandButton ButInsertNew{*this, "ButInsertNew", "Insert && new"};
  CommandButton ButCancel{*this, "ButCancel", "Cancel"};

 protected:
  void OnLoad() override { Form_Load(); }

 private:
  void Form_Load();
  void ComType_Click();
  void ButInsert_Click();
  void ButInsertNew_Click();
  void ButCancel_Click();
  /// The twelve "..." buttons; the table of types names their routines, "ButSTKExchange_Click" and so on.
  void EditExchanges(const ListButton& button);
  void EditCurrencies(const ListButton& button);

  void Insert(std::string_view routineName, std::string_view tag);
  const SecurityType* SelectedType() const;
  CAppSettings& Settings() const;
  std::string Stored(std::string_view key, std::string_view defaultText) const;
  void Store(std::string_view key, std::string_view text) const;
  void LoadExchanges(Steps& step, ComboBox& combo, std::string_view defaultList, std::string_view defaultChoice);

  void ConnectHandlers();
  void NameKeys();
  void ArrangeControls();

  std::int16_t m_comTypeListIndex = 0;
  std::shared_ptr<CAppSettings> m_appSettings;
  std::unique_ptr<CFormRestore> m_formRestore;
};

}  // namespace pellora
