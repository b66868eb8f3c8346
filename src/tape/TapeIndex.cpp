#include "tape/TapeIndex.h"

#include <algorithm>

#include "core/Text.h"
#include "tape/SheetAddress.h"

namespace pellora {
namespace {

using Areas = std::optional<std::vector<Area>>;

// Where a link points on the quote sheet. A link to any other sheet follows no quote.
Areas LinkedAreas(const std::string& link, const TapeIndex::Resolver& resolve, std::map<std::string, Areas>& resolved) {
  const auto [sheet, address] = SplitSheetAddress(link);
  if (!EqualNoCase(UnquotedSheet(Replace(sheet, "=", "")), kQuoteSheet)) return std::nullopt;
  if (const auto plain = ParseArea(address)) return std::vector{*plain};
  const auto [known, isNew] = resolved.try_emplace(address);
  if (isNew && resolve) known->second = resolve(address);
  return known->second;
}

}  // namespace

TapeIndex::TapeIndex(std::vector<TapeRecord> records, const Resolver& resolve) : m_records(std::move(records)) {
  std::erase_if(m_records, [](const TapeRecord& record) { return !record.Present(); });
  std::map<std::string, Areas> resolved;
  for (std::size_t i = 0; i < m_records.size(); ++i) {
    const auto areas = LinkedAreas(m_records[i].link, resolve, resolved);
    for (const auto& area : areas.value_or(std::vector<Area>()))
      (area.top == area.bottom ? m_byRow[area.top] : m_tall).emplace_back(area, i);
  }
}

std::vector<std::size_t> TapeIndex::Following(const Area& quoteRow) const {
  std::vector<std::size_t> found;
  const auto collect = [&](const std::vector<std::pair<Area, std::size_t>>& links) {
    for (const auto& [area, record] : links)
      if (Intersection(area, quoteRow)) found.push_back(record);
  };
  for (auto row = m_byRow.lower_bound(quoteRow.top); row != m_byRow.end() && row->first <= quoteRow.bottom; ++row)
    collect(row->second);
  collect(m_tall);
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

}  // namespace pellora
