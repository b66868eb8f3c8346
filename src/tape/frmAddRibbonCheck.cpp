#include <string>

#include "core/Text.h"
#include "support/Quietly.h"
#include "tape/SheetAddress.h"
#include "tape/frmAddRibbon.h"

namespace pellora {
namespace {

constexpr std::string_view kFirst = "AdditionalInformation1";
constexpr std::string_view kSecond = "AdditionalInformation2";

std::string FillInMessage(const TextBox& box) {
  return Replace("Please fill in the 'AdditionalInformation1' field ", kFirst, box.ToolTip());
}

// Replacing every "2", those of the location too, is meant: the whole message takes part.
std::string SizeMessage(const TextBox& box, std::int16_t columns) {
  auto message =
      Replace("Error: 'AdditionalInformation1'  = 'AdditionalInformation2'. The range must be row>=3 and Column>=2",
              kFirst, box.ToolTip());
  message = Replace(message, kSecond, box.Text());
  return Replace(message, "2", std::to_string(columns));
}

std::string OverlapMessage(const TextBox& box, std::string_view hit) {
  const auto message = Replace(
      "The ranges of 'AdditionalInformation1' and 'AdditionalInformation2' intersect with each other.", kSecond, hit);
  return Replace(message, kFirst, box.ToolTip());
}

}  // namespace

bool frmAddRibbon::CheckField() {
  return routine<bool>("CheckField", [&](Steps& step, bool& inserted) {
    for (TextBox* box : {&txtName, &txtNameSize, &txtAddress}) {
      const bool wanted = box != &txtNameSize || box->Enabled();
      if (wanted && box->Text().empty()) return Refuse(step, FillInMessage(*box), *box);
    }
    const auto location = txtAddress.Text();
    const auto fault = LocationFault(location);
    if (!fault.empty()) return Refuse(step, fault, txtAddress);
    AddSymbolToSheet();
    txtAddress.Text("");
    inserted = true;
  });
}

std::string frmAddRibbon::LocationFault(const std::string& location) {
  if (Find(location, "!") == std::string::npos) return "You must select Sheet name for the Range";
  if (!CheckAddres(location) || !IsThere(location)) return "Range Address Error";
  if (!ChechAddressRange(location)) return SizeMessage(txtAddress, ReturnColumnsCount());
  const auto hit = CheckAddressIntersect(location);
  return hit.empty() ? std::string() : OverlapMessage(txtAddress, hit);
}

// The writer takes the location apart at the "!", a spreadsheet by rules of its own: " Desk!B3:C9" is a range to one,
// while no sheet is named " Desk". The record would be written before the writer came to the sheet.
bool frmAddRibbon::IsThere(const std::string& location) {
  bool isThere = false;
  Quietly([&] {
    const auto [sheet, address] = SplitSheetAddress(location);
    isThere = static_cast<bool>(TapeArea(sheet, address));
  });
  return isThere;
}

void frmAddRibbon::Refuse(Steps& step, const std::string& message, TextBox& box) {
  step([&] { ShowCritical(message); });
  step([&] { box.SetFocus(); });
}

}  // namespace pellora
