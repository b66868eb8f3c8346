// The contract dialog's validation.

#include "contract/SecurityTypes.h"
#include "contract/frmAddTicker.h"
#include "core/Convert.h"
#include "core/Text.h"

namespace pellora {
namespace {

constexpr std::string_view kEmptyField = "Please fill in the 'AdditionalInformation1' field ";
constexpr std::string_view kNotANumber = "The value must be a digit.  'AdditionalInformation1'";

/// The caption of the label beside a box, which is also what assistive programs call it.
std::string FieldLabel(const TextBox& box) { return box.AccessibleName(); }

bool Passes(const TextBox& box, FieldRule rule) {
  return rule == FieldRule::NotEmpty ? !box.Text().empty() : IsNumeric(box.Text());
}

std::string Complaint(const TextBox& box, FieldRule rule) {
  return Replace(rule == FieldRule::NotEmpty ? kEmptyField : kNotANumber, "AdditionalInformation1", FieldLabel(box));
}

}  // namespace

bool frmAddTicker::CheckParametr() {
  return routine<bool>("CheckParametr", [&](Steps& step, bool& passed) {
    // Not a step: passed over, it would stand for a type without checks.
    const auto* type = SelectedType();
    for (const auto& check : type ? type->checks : decltype(type->checks){}) {
      if (!check.box) break;
      auto& box = this->*check.box;
      if (step([&] { return Passes(box, check.rule); })) continue;
      step([&] { ShowCritical(Complaint(box, check.rule)); });
      step([&] { box.SetFocus(); });
      step([&] { box.SelectAll(); });
      return;
    }
    passed = true;
  });
}

}  // namespace pellora
