#include "forms/Pages.h"

#include "core/Error.h"
#include "forms/Refusals.h"

namespace pellora {

Page::Page(class Pages& parent, std::string_view name, std::string_view caption)
    : Container(&parent, ControlKind::Page, name) {
  Caption(caption);
}

Pages::Pages(Container& parent, std::string_view name) : Container(&parent, ControlKind::Pages, name) {}

Page& Pages::PageAt(int index) const {
  if (index < 0 || index >= PageCount()) throw Error(errors::InvalidPropertyIndex);
  return static_cast<Page&>(*Children()[static_cast<std::size_t>(index)]);
}

void Pages::CurrentPage(int index) {
  if (index < 0 || index >= PageCount()) throw Error(errors::InvalidPropertyValue);
  if (m_current == index) return;
  m_current = index;
  Tell(Aspect::Page);
  Raise(Switch);
}

void Pages::PeerPage(int index) { CurrentPage(index); }

}  // namespace pellora
