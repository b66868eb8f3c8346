#include "forms/ListControl.h"

#include "core/Error.h"
#include "forms/Refusals.h"

namespace pellora {

const std::string& ListControl::List(int index) const {
  if (index < 0 || index >= ListCount()) throw Error(errors::InvalidPropertyIndex);
  return m_items[static_cast<std::size_t>(index)];
}

void ListControl::AddItem(std::string_view item, int index) {
  if (index < -1 || index > ListCount()) throw Error(errors::InvalidCall);
  const auto place = index == -1 ? ListCount() : index;
  m_items.emplace(m_items.begin() + place, item);
  const auto moves = m_listIndex >= place;
  if (moves) ++m_listIndex;
  Tell(Aspect::Items);
  if (moves) Tell(Aspect::ListIndex);
}

void ListControl::RemoveItem(int index) {
  if (index < 0 || index >= ListCount()) throw Error(errors::InvalidCall);
  m_items.erase(m_items.begin() + index);
  const auto moves = m_listIndex >= index;
  if (moves) m_listIndex = m_listIndex == index ? -1 : m_listIndex - 1;
  Tell(Aspect::Items);
  if (moves) Tell(Aspect::ListIndex);
}

void ListControl::Clear() {
  if (m_items.empty()) return;
  const auto hadChosen = m_listIndex != -1;
  m_items.clear();
  m_listIndex = -1;
  Tell(Aspect::Items);
  if (hadChosen) Tell(Aspect::ListIndex);
}

void ListControl::ListIndex(int index) {
  if (index < -1 || index >= ListCount()) throw Error(errors::InvalidPropertyValue);
  if (m_listIndex == index) return;
  m_listIndex = index;
  Chosen();
  Tell(Aspect::ListIndex);
  if (index != -1) Raise(Click);
}

void ListControl::PeerListIndex(int index) { ListIndex(index); }

}  // namespace pellora
