#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/Convert.h"
#include "core/Error.h"
#include "core/TextServices.h"
#include "core/Variant.h"

namespace pellora {

/// Members in the order of adding, found by index from 1 or by key. Keys compare without regard to letter case.
/// A text is a key, a number an index.
template <class Member>
class KeyedCollection {
 public:
  using MemberPtr = std::shared_ptr<Member>;

  /// Adds a member under a key; raises 457 when the key is taken.
  void Add(MemberPtr member, const Variant& key) {
    std::string upper = Upper(key);
    if (!m_places.try_emplace(upper, m_members.size()).second) throw Error(kKeyTaken);
    m_members.push_back(std::move(member));
    m_keys.push_back(std::move(upper));
  }

  /// Raises 9 for an index outside, 5 for an unknown key.
  void Remove(const Variant& indexOrKey) {
    const auto place = Place(indexOrKey);
    m_members.erase(m_members.begin() + static_cast<std::ptrdiff_t>(place));
    m_keys.erase(m_keys.begin() + static_cast<std::ptrdiff_t>(place));
    m_places.clear();
    for (std::size_t i = 0; i < m_keys.size(); ++i) m_places[m_keys[i]] = i;
  }

  /// Raises as `Remove`.
  const MemberPtr& Item(const Variant& indexOrKey) const { return m_members[Place(indexOrKey)]; }

  /// The member of that key, or nothing.
  MemberPtr Find(const Variant& key) const {
    const auto found = m_places.find(Upper(key));
    return found == m_places.end() ? nullptr : m_members[found->second];
  }

  std::int32_t Count() const { return static_cast<std::int32_t>(m_members.size()); }

  const std::vector<MemberPtr>& Members() const { return m_members; }

 private:
  static constexpr std::int32_t kKeyTaken = 457;

  static std::string Upper(const Variant& key) { return CurrentTextServices().Upper(ToText(key)); }

  std::size_t Place(const Variant& indexOrKey) const {
    if (indexOrKey.Is(Variant::Type::String)) {
      const auto found = m_places.find(Upper(indexOrKey));
      if (found == m_places.end()) throw Error(errors::InvalidCall);
      return found->second;
    }
    const auto index = ToLong(indexOrKey);
    if (index < 1 || index > Count()) throw Error(errors::SubscriptOutOfRange);
    return static_cast<std::size_t>(index - 1);
  }

  std::vector<MemberPtr> m_members;
  std::vector<std::string> m_keys;
  std::unordered_map<std::string, std::size_t> m_places;
};

}  // namespace pellora
