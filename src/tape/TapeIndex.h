#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tape/Area.h"

namespace pellora {

/// A tape as the settings sheet records it.
struct TapeRecord {
  std::string name;
  std::string link;
  std::string nameSize;
  std::string location;

  /// A record counts when it has a name, a link and a location.
  bool Present() const { return !name.empty() && !link.empty() && !location.empty(); }
};

/// The recorded tapes, found by the quote row they follow, so that a row's tapes cost what they are and not what all
/// tapes are.
class TapeIndex {
 public:
  /// Turns an address that is not plain into areas of plain ones; nothing when it cannot.
  using Resolver = std::function<std::optional<std::vector<Area>>(const std::string& address)>;

  TapeIndex() = default;
  /// Records that are not present are left out. `resolve` is asked once for each different text.
  TapeIndex(std::vector<TapeRecord> records, const Resolver& resolve);

  const std::vector<TapeRecord>& Records() const { return m_records; }

  /// The records whose link meets the quote row, as positions in `Records()`, in their order.
  std::vector<std::size_t> Following(const Area& quoteRow) const;

 private:
  std::vector<TapeRecord> m_records;
  // Links of one row by that row; all others one by one.
  std::map<int, std::vector<std::pair<Area, std::size_t>>> m_byRow;
  std::vector<std::pair<Area, std::size_t>> m_tall;
};

}  // namespace pellora
