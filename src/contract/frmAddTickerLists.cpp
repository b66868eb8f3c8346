// The contract dialog's choice lists: as list text, in the store, in the list editor.

#include <array>

#include "contract/Expiry.h"
#include "contract/SecurityTypes.h"
#include "contract/frmAddTicker.h"
#include "contract/frmModifyList.h"
#include "core/Convert.h"
#include "core/Error.h"
#include "core/Text.h"
#include "support/CAppSettings.h"
#include "support/mGlobal.h"

namespace pellora {
namespace {

constexpr std::string_view kSection = "Settings\\frmSettings";
constexpr std::string_view kCurrencies = "ComCurency";
constexpr std::string_view kCurrency = "ComCurencyText";
constexpr std::string_view kDefaultCurrencies = "USD|EUR|GBP|HKD|AUD|BASE";
constexpr std::string_view kDefaultCurrency = "USD";
constexpr std::string_view kDefaultPrimaryExchange = "SUPERSOES";
constexpr std::string_view kDefaultRights = "PUT|CALL";
constexpr std::string_view kDefaultRight = "PUT";
constexpr std::string_view kDefaultMultiplier = "100";

// The orders in which the store is read.
constexpr std::array kCurrencyOrder = {kCash, kStock, kFutOpt, kFutures, kIndex, kOption};
constexpr std::array kExchangeOrder = {kStock, kOption, kIndex, kFutOpt, kFutures, kCash};

/// The key of the chosen text of a list.
std::string ChoiceKey(const ComboBox& combo) { return combo.Name() + "Text"; }

std::string NextMonthFromNow() { return NextMonth(DateFromDays(mGlobal::CurrentPlatform().clock.Now())); }

}  // namespace

void frmAddTicker::Add_Combobox(ComboBox& combo, std::string_view listText,
                                const std::optional<std::string>& selectText) {
  routine("Add_Combobox", [&](Steps& step) {
    const auto pieces = step([&] { return Split(listText, "|"); });
    step([&] { combo.Clear(); });
    const std::string* match = nullptr;
    for (const auto& piece : pieces) {
      step([&] { combo.AddItem(piece); });
      if (selectText && !match && step([&] { return EqualNoCase(piece, *selectText); })) match = &piece;
    }
    if (pieces.empty()) return;
    step([&] { combo.Text(match ? *match : pieces.front()); });
  });
}

std::string frmAddTicker::ComboBoxToStr(const ComboBox& combo) const {
  return routine<std::string>(
      "ComboBoxToStr", [&](Steps& step, std::string& listText) { step([&] { listText = Join(combo.Items(), "|"); }); });
}

void frmAddTicker::LoadParamert() {
  routine("LoadParamert", [&](Steps& step) {
    const auto currency = step([&] { return Stored(kCurrency, kDefaultCurrency); });
    for (const auto index : kCurrencyOrder) {
      const auto currencies = step([&] { return Stored(kCurrencies, kDefaultCurrencies); });
      step([&] { Add_Combobox(this->*kSecurityTypes[index].currency, currencies, currency); });
    }
    for (const auto index : kExchangeOrder)
      LoadExchanges(step, this->*kSecurityTypes[index].exchange, kSecurityTypes[index].defaultExchanges,
                    kSecurityTypes[index].defaultExchange);
    step([&] { txtPrimaryExchange.Text(Stored(txtPrimaryExchange.Name(), kDefaultPrimaryExchange)); });
    const auto expiry = step([&] { return NextMonthFromNow(); });
    for (auto* box : {&txtOPTExpiry, &txtFUTExpiry, &txtFOPExpiry})
      step([&] { box->Text(Stored(box->Name(), expiry)); });
    for (auto* box : {&txtOPTMultiplier, &txtFUTMultiplier})
      step([&] { box->Text(Stored(box->Name(), kDefaultMultiplier)); });
    for (auto* right : {&ComOPTRight, &ComFOPRight}) {
      const auto list = step([&] { return Stored(right->Name(), kDefaultRights); });
      const auto chosen = step([&] { return Stored(ChoiceKey(*right), kDefaultRight); });
      step([&] { Add_Combobox(*right, list, chosen); });
    }
  });
}

void frmAddTicker::SaveParamert() {
  routine("SaveParamert", [&](Steps& step) {
    const auto* type = step([&] { return SelectedType(); });
    if (!type) return;
    const auto& currency = this->*type->currency;
    step([&] { Store(kCurrency, currency.Text()); });
    step([&] { Store(kCurrencies, ComboBoxToStr(currency)); });
    const auto& exchange = this->*type->exchange;
    step([&] { Store(ChoiceKey(exchange), exchange.Text()); });
    step([&] { Store(exchange.Name(), ComboBoxToStr(exchange)); });
    auto storeBox = [&](TextBox frmAddTicker::*box) {
      if (box) step([&] { Store((this->*box).Name(), (this->*box).Text()); });
    };
    storeBox(type->primaryExchange);
    storeBox(type->expiry);
    if (type->right) step([&] { Store(ChoiceKey(this->*type->right), (this->*type->right).Text()); });
    storeBox(type->multiplier);
  });
}

void frmAddTicker::RunfrmModifyList(ComboBox& combo, std::string_view title) {
  routine("RunfrmModifyList", [&](Steps& step) {
    const auto list = step([&] { return ComboBoxToStr(combo); });
    const auto editor = step([&] { return std::make_unique<frmModifyList>(GetToolkit()); });
    if (!editor) return;
    step([&] { editor->frmAppSettings(m_appSettings); });
    step([&] { editor->InpList(list); });
    step([&] { editor->Caption(title); });
    step([&] { editor->Show(); });
    if (step([&] { return Val(editor->Tag()) == 1; }))
      step([&] { Add_Combobox(combo, editor->InpList(), std::string(combo.Text())); });
    // A hidden editor is unloaded here, so that its placement is kept whichever way it was left.
    step([&] { editor->Unload(); });
    step([&] { editor->frmAppSettings(nullptr); });
  });
}

// Each read is a statement of its own: a choice that cannot be read does not cost its list.
void frmAddTicker::LoadExchanges(Steps& step, ComboBox& combo, std::string_view defaultList,
                                 std::string_view defaultChoice) {
  const auto chosen = step([&] { return Stored(ChoiceKey(combo), defaultChoice); });
  const auto list = step([&] { return Stored(combo.Name(), defaultList); });
  step([&] { Add_Combobox(combo, list, chosen); });
}

CAppSettings& frmAddTicker::Settings() const {
  if (!m_appSettings) throw Error(errors::ObjectNotSet);
  return *m_appSettings;
}

std::string frmAddTicker::Stored(std::string_view key, std::string_view defaultText) const {
  return ToText(Settings().GetSetting(kSection, key, defaultText));
}

void frmAddTicker::Store(std::string_view key, std::string_view text) const {
  Variant setting = text;
  Settings().SaveSetting(kSection, key, setting);
}

}  // namespace pellora
