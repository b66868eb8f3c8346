#include "core/Convert.h"
#include "core/Text.h"
#include "support/Quietly.h"
#include "tape/RowData.h"
#include "tape/SheetAddress.h"
#include "tape/TypedText.h"
#include "tape/frmAddRibbon.h"

namespace pellora {
namespace {

// A tape needs a header line and room for quotes; where the area given is lower, it gets this many rows.
constexpr std::int32_t kLeastRows = 3;
constexpr std::int32_t kUsualRows = 20;

}  // namespace

void frmAddRibbon::ReturnNameSheetAndAddress(std::string& NameSheet, std::string& Address,
                                             std::string_view FullAddress) {
  routine("ReturnNameSheetAndAddress", [&](Steps&) {
    auto split = SplitSheetAddress(FullAddress);
    NameSheet = std::move(split.sheet);
    Address = std::move(split.address);
  });
}

std::string frmAddRibbon::myIntersect(std::string_view Sheet1, std::string_view Address1, std::string_view Sheet2,
                                      std::string_view Address2) {
  Push("myIntersect");
  std::string common;
  Quietly([&] {
    if (EqualNoCase(Sheet2, Sheet1)) common = CommonArea(Address1, Address2);
  });
  return common;
}

std::string frmAddRibbon::CommonArea(std::string_view address1, std::string_view address2) const {
  const auto one = ParseArea(address1);
  const auto other = ParseArea(address2);
  if (!one || !other) return IntersectThroughExcel(address1, address2);
  const auto common = Intersection(*one, *other);
  return common ? AbsoluteAddress(*common) : std::string();
}

std::string frmAddRibbon::IntersectThroughExcel(std::string_view address1, std::string_view address2) const {
  const auto excel = Excel();
  return excel.Intersect(excel.Range(address1), excel.Range(address2)).Address();
}

std::string frmAddRibbon::ColumnAddress(std::string_view Name) {
  return routine<std::string>("ColumnAddress", [&](Steps& step, std::string& address) {
    const auto excel = step([&] { return Excel(); });
    const auto field = step([&] { return excel.Range(Name); });
    const auto column = step([&] { return field.Column(); });
    address = step([&] { return excel.Columns(column).Address(); });
  });
}

std::string frmAddRibbon::GivMyLink(std::string& RowAddress) {
  return routine<std::string>("GivMyLink", [&](Steps& step, std::string& link) {
    const auto data = ParseRowData(step([&] { return VSFExcel.RowData(VSFExcel.Row()); }));
    RowAddress = data ? data->address : std::string();
    for (const Field field : {BidPrice, AskPrice, LastPrice, High, Low, Volume, Close}) {
      if (!Chosen(field)) continue;
      link = myIntersect(kQuoteSheet, RowAddress, kQuoteSheet, ColumnAddress(m_choices[field].name));
      return;
    }
  });
}

std::int16_t frmAddRibbon::ReturnColumnsCount() {
  return routine<std::int16_t>("ReturnColumnsCount", [&](Steps&, std::int16_t& count) { count = WithSize() ? 3 : 2; });
}

std::string frmAddRibbon::modifyAddress() {
  return routine<std::string>("modifyAddress", [&](Steps& step, std::string& address) {
    const auto columns = ReturnColumnsCount();
    const auto& text = txtAddress.Text();
    if (text.empty() || !CheckAddres(text)) return;
    const auto mark = Find(text, "!");
    const auto prefix = mark == std::string::npos ? std::string() : text.substr(0, mark + 1);
    const auto area = step([&] { return Excel().Range(text); });
    auto rows = step([&] { return area.Rows().Count(); });
    if (rows < kLeastRows) rows = kUsualRows;
    address = prefix + step([&] { return area.Resize(rows, columns).Address(false); });
  });
}

bool frmAddRibbon::ChechAddressRange(std::string_view Address) {
  return routine<bool>("ChechAddressRange", [&](Steps& step, bool& isLargeEnough) {
    const auto columns = ReturnColumnsCount();
    const auto area = step([&] { return Excel().Range(Address); });
    const auto areaColumns = step([&] { return area.Columns().Count(); });
    const auto areaRows = step([&] { return area.Rows().Count(); });
    isLargeEnough = areaColumns >= columns && areaRows >= kLeastRows;
  });
}

std::string frmAddRibbon::CheckAddressIntersect(std::string_view Address) {
  return routine<std::string>("CheckAddressIntersect", [&](Steps& step, std::string& hit) {
    if (m_recordsUnread) ReadUnreadRecords(step);
    if (!m_linkAddresses) return;
    std::string newSheet, newArea, sheet, area;
    ReturnNameSheetAndAddress(newSheet, newArea, Address);
    for (const auto& group : m_linkAddresses->NewEnum())
      for (const auto& tape : group->NewEnum()) {
        ReturnNameSheetAndAddress(sheet, area, tape->DataRange());
        // A sheet is the same with and without the apostrophes around its name.
        if (myIntersect(UnquotedSheet(sheet), area, UnquotedSheet(newSheet), newArea).empty()) continue;
        hit = "'Name'=" + tape->Name() + "  'Data Range'=" + tape->DataRange();
        return;
      }
  });
}

std::string frmAddRibbon::remove_bad_symbols(const Variant& Text, std::string_view Symbols) {
  return routine<std::string>("remove_bad_symbols", [&](Steps& step, std::string& clean) {
    clean = step([&] { return ReplaceEach(ToText(Text), Symbols, "_"); });
  });
}

}  // namespace pellora
