#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/Variant.h"
#include "tape/KeyedCollection.h"
#include "tape/cLinkAddress.h"

namespace pellora {

/// The recorded tapes of one quote row, keyed by tape header followed by link formula, letter case apart.
class cLinkAddresses {
 public:
  /// The address of the quote row, in the letter case first used.
  const std::string& GroupKey() const { return m_groupKey; }
  void GroupKey(std::string_view text) { m_groupKey = text; }

  /// Adds the member as it is and hands it back; raises 457 when the key is taken.
  std::shared_ptr<cLinkAddress> Add(std::shared_ptr<cLinkAddress> member, const Variant& key);
  /// By index from 1 or by key; raises 9 for an index outside, 5 for an unknown key.
  void Remove(const Variant& indexOrKey);
  /// By index from 1 or by key; raises as `Remove`.
  std::shared_ptr<cLinkAddress> Item(const Variant& indexOrKey) const;
  /// The member of that key, made when there is none yet. A made one remembers the key in its `SborKey`.
  std::shared_ptr<cLinkAddress> ItemADD(const Variant& key);
  std::int32_t Count() const;
  /// The members in the order of adding.
  const std::vector<std::shared_ptr<cLinkAddress>>& NewEnum() const;

 private:
  std::string m_groupKey;
  KeyedCollection<cLinkAddress> m_members;
};

}  // namespace pellora
