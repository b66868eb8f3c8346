#include "tape/cLinkAddresses.h"

#include <utility>

#include "core/Convert.h"

namespace pellora {

std::shared_ptr<cLinkAddress> cLinkAddresses::Add(std::shared_ptr<cLinkAddress> member, const Variant& key) {
  m_members.Add(member, key);
  return member;
}

void cLinkAddresses::Remove(const Variant& indexOrKey) { m_members.Remove(indexOrKey); }

std::shared_ptr<cLinkAddress> cLinkAddresses::Item(const Variant& indexOrKey) const {
  return m_members.Item(indexOrKey);
}

std::shared_ptr<cLinkAddress> cLinkAddresses::ItemADD(const Variant& key) {
  if (auto found = m_members.Find(key)) return found;
  auto made = std::make_shared<cLinkAddress>();
  made->SborKey(ToText(key));
  return Add(std::move(made), key);
}

std::int32_t cLinkAddresses::Count() const { return m_members.Count(); }

const std::vector<std::shared_ptr<cLinkAddress>>& cLinkAddresses::NewEnum() const { return m_members.Members(); }

}  // namespace pellora
