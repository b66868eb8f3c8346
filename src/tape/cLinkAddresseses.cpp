#include "tape/cLinkAddresseses.h"

#include <utility>

#include "core/Convert.h"

namespace pellora {

std::shared_ptr<cLinkAddresses> cLinkAddresseses::Add(std::shared_ptr<cLinkAddresses> member, const Variant& key) {
  m_members.Add(member, key);
  return member;
}

void cLinkAddresseses::Remove(const Variant& indexOrKey) { m_members.Remove(indexOrKey); }

std::shared_ptr<cLinkAddresses> cLinkAddresseses::Item(const Variant& indexOrKey) const {
  return m_members.Item(indexOrKey);
}

std::shared_ptr<cLinkAddresses> cLinkAddresseses::ItemADD(const Variant& key) {
  if (auto found = m_members.Find(key)) return found;
  auto made = std::make_shared<cLinkAddresses>();
  made->GroupKey(ToText(key));
  return Add(std::move(made), key);
}

std::int32_t cLinkAddresseses::Count() const { return m_members.Count(); }

const std::vector<std::shared_ptr<cLinkAddresses>>& cLinkAddresseses::NewEnum() const { return m_members.Members(); }

}  // namespace pellora
