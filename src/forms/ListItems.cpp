#include "forms/ListItems.h"

#include <algorithm>

namespace pellora {

bool ListItems::Follow(const std::vector<std::string>& wanted, const Remove& remove, const Insert& insert) {
  const auto [shownMiddle, wantedMiddle] = std::mismatch(m_shown.begin(), m_shown.end(), wanted.begin(), wanted.end());
  const auto first = static_cast<int>(shownMiddle - m_shown.begin());
  const auto [shownTail, wantedTail] = std::mismatch(m_shown.rbegin(), std::make_reverse_iterator(shownMiddle),
                                                     wanted.rbegin(), std::make_reverse_iterator(wantedMiddle));
  const auto shownEnd = static_cast<int>(shownTail.base() - m_shown.begin());
  const auto wantedEnd = static_cast<int>(wantedTail.base() - wanted.begin());
  for (int i = shownEnd; i-- > first;) remove(i);
  for (int i = first; i < wantedEnd; ++i) insert(i, wanted[static_cast<std::size_t>(i)]);
  const auto changed = first < shownEnd || first < wantedEnd;
  if (changed) m_shown = wanted;
  return changed;
}

}  // namespace pellora
