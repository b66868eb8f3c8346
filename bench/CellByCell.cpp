#include "CellByCell.h"

#include <string>

#include "core/Convert.h"
#include "support/Quietly.h"

namespace pellora::bench {
namespace {

constexpr int kContractColumns = 9;
constexpr int kRowWidth = 19;
constexpr std::string_view kLinkStart = "=TWS_Quotes!";

bool Meets(const excel::Application& excel, const std::string& link, const std::string& row) {
  bool meets = false;
  Quietly([&] { meets = !excel.Intersect(excel.Range(link), excel.Range(row)).Address().empty(); });
  return meets;
}

std::size_t FollowingTapes(const excel::Application& excel, const std::string& row, int tapes) {
  std::size_t found = 0;
  const auto table = excel.Range("Tape_header_for_Ticker");
  for (int k = 2; k <= tapes + 1; ++k) {
    const auto name = ToText(table.Cells(k, 1).Value());
    const auto link = ToText(table.Cells(k, 2).FormulaLocal());
    const auto size = ToText(table.Cells(k, 3).Value());
    const auto location = ToText(table.Cells(k, 4).Value());
    if (!name.empty() && !location.empty() && Meets(excel, link.substr(kLinkStart.size()), row)) ++found;
  }
  return found;
}

}  // namespace

std::size_t ReadCellByCell(const excel::Application& excel, int rows, int tapes) {
  std::size_t found = 0;
  const auto first = excel.Range("TWS_Symbol").Cells(2, 1);
  for (int i = 1; i <= rows; ++i) {
    for (int j = 1; j <= kContractColumns; ++j) ToText(first.Cells(i, j).Value());
    const auto address = first.Cells(i, 1).Resize(1, kRowWidth).Address();
    bool complete = true;
    for (const int j : {1, 2, 7, 9}) complete &= !ToText(first.Cells(i, j).Value()).empty();
    if (complete) found += FollowingTapes(excel, address, tapes);
  }
  return found;
}

}  // namespace pellora::bench
