#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/Variant.h"
#include "tape/KeyedCollection.h"
#include "tape/cLinkAddresses.h"

namespace pellora {

/// All recorded tapes, grouped by the quote row they follow: keyed by the row's address, letter case apart.
class cLinkAddresseses {
 public:
  /// Adds the member as it is and hands it back; raises 457 when the key is taken.
  std::shared_ptr<cLinkAddresses> Add(std::shared_ptr<cLinkAddresses> member, const Variant& key);
  /// By index from 1 or by key; raises 9 for an index outside, 5 for an unknown key.
  void Remove(const Variant& indexOrKey);
  /// By index from 1 or by key; raises as `Remove`.
  std::shared_ptr<cLinkAddresses> Item(const Variant& indexOrKey) const;
  /// The member of that key, made when there is none yet. A made one remembers the key in its `GroupKey`.
  std::shared_ptr<cLinkAddresses> ItemADD(const Variant& key);
  std::int32_t Count() const;
  /// The members in the order of adding.
  const std::vector<std::shared_ptr<cLinkAddresses>>& NewEnum() const;

 private:
  KeyedCollection<cLinkAddresses> m_members;
};

}  // namespace pellora
