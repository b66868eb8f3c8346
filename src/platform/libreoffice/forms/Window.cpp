#include "platform/libreoffice/forms/Window.h"

#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/accessibility/XAccessibleComponent.hpp>
#include <com/sun/star/awt/AsyncCallback.hpp>
#include <com/sun/star/awt/PosSize.hpp>
#include <com/sun/star/awt/WindowDescriptor.hpp>
#include <com/sun/star/awt/XCallback.hpp>
#include <cppuhelper/implbase2.hxx>
#include <rtl/ref.hxx>
#include <vector>

#include "core/Error.h"

namespace pellora::libreoffice {

namespace accessibility = com::sun::star::accessibility;

namespace {

/// What assistive programs are shown of the windows in a dialog, held for as long as this lives.
std::vector<uno::Reference<accessibility::XAccessible>> ShownOf(const uno::Reference<awt::XWindowPeer>& dialog) {
  std::vector<uno::Reference<accessibility::XAccessible>> shown;
  WhileThere([&] {
    const uno::Reference<accessibility::XAccessible> whole(dialog, uno::UNO_QUERY);
    const auto inside = whole.is() ? whole->getAccessibleContext() : nullptr;
    for (sal_Int32 i = 0; inside.is() && i < inside->getAccessibleChildCount(); ++i)
      shown.push_back(inside->getAccessibleChild(i));
  });
  return shown;
}

// Once an assistive program has looked at a table, its window frees what that saw and goes on to use it: the program's
// memory would be damaged, and it would crash soon after.
void TakeAway(const uno::Reference<awt::XWindowPeer>& dialog) {
  const auto shown = ShownOf(dialog);
  WhileThere([&] { dialog->dispose(); });
}

/// Takes a dialog away when the toolkit's events have come to it, as they come in the order in which they were put off;
/// earlier when the window that it is over goes before.
class Farewell : public cppu::WeakImplHelper2<awt::XCallback, lang::XEventListener> {
 public:
  Farewell(const uno::Reference<awt::XWindowPeer>& dialog, const uno::Reference<awt::XWindowPeer>& over)
      : m_dialog(dialog), m_over(over) {}
  void Await(const uno::Reference<uno::XComponentContext>& context) {
    awt::AsyncCallback::create(context)->addCallback(this, uno::Any());
    if (m_over.is()) m_over->addEventListener(this);
  }
  void SAL_CALL notify(const uno::Any&) override {
    const rtl::Reference<Farewell> self(this);
    const auto over = std::exchange(m_over, {});
    if (over.is()) WhileThere([&] { over->removeEventListener(this); });
    Say();
  }
  void SAL_CALL disposing(const lang::EventObject&) override {
    m_over.clear();
    Say();
  }

 private:
  void Say() {
    const auto dialog = std::exchange(m_dialog, {});
    if (dialog.is()) TakeAway(dialog);
  }

  uno::Reference<awt::XWindowPeer> m_dialog;
  uno::Reference<awt::XWindowPeer> m_over;
};

}  // namespace

void Window::Make(const uno::Reference<awt::XToolkit>& toolkit, const uno::Reference<awt::XWindowPeer>& parent,
                  const char* kind, sal_Int32 attributes, awt::WindowClass windowClass) {
  awt::WindowDescriptor wanted;
  wanted.Type = windowClass;
  wanted.WindowServiceName = rtl::OUString::createFromAscii(kind);
  wanted.Parent = parent;
  wanted.ParentIndex = -1;
  wanted.WindowAttributes = attributes;
  uno::Reference<awt::XWindowPeer> made;
  WhileThere([&] { made = toolkit->createWindow(wanted); });
  if (!made.is()) throw Error(errors::OutOfMemory);
  attach(made);
}

void Window::attach(const uno::Reference<awt::XWindowPeer>& peer) {
  reset();
  m_peer = peer;
  m_window.set(peer, uno::UNO_QUERY);
  m_properties.set(peer, uno::UNO_QUERY);
}

void Window::reset() {
  const auto peer = m_peer;
  detach();
  if (peer.is()) WhileThere([&] { peer->dispose(); });
}

void Window::Retire(const uno::Reference<uno::XComponentContext>& context,
                    const uno::Reference<awt::XWindowPeer>& over) {
  if (!m_peer.is()) return;
  Show(false);
  WhileThere([&] {
    const rtl::Reference<Farewell> farewell(new Farewell(m_peer, over));
    farewell->Await(context);
    detach();
  });
  reset();
}

void Window::Leave() {
  const auto peer = m_peer;
  detach();
  if (peer.is()) TakeAway(peer);
}

void Window::detach() {
  m_peer.clear();
  m_window.clear();
  m_properties.clear();
}

void Window::Set(const char* property, const uno::Any& value) const {
  if (m_properties.is())
    WhileThere([&] { m_properties->setProperty(rtl::OUString::createFromAscii(property), value); });
}

uno::Any Window::Get(const char* property) const {
  uno::Any value;
  if (m_properties.is())
    WhileThere([&] { value = m_properties->getProperty(rtl::OUString::createFromAscii(property)); });
  return value;
}

void Window::Place(const Rect& bounds) const {
  if (!m_window.is()) return;
  WhileThere(
      [&] { m_window->setPosSize(bounds.left, bounds.top, bounds.Width(), bounds.Height(), awt::PosSize::POSSIZE); });
}

void Window::Enable(bool enabled) const {
  if (m_window.is()) WhileThere([&] { m_window->setEnable(enabled); });
}

void Window::Show(bool visible) const {
  if (m_window.is()) WhileThere([&] { m_window->setVisible(visible); });
}

void Window::Focus() const {
  if (m_window.is()) WhileThere([&] { m_window->setFocus(); });
}

Point OnScreen(const uno::Reference<awt::XWindowPeer>& window) {
  Point place;
  WhileThere([&] {
    const uno::Reference<accessibility::XAccessible> accessible(window, uno::UNO_QUERY);
    if (!accessible.is()) return;
    const uno::Reference<accessibility::XAccessibleComponent> shown(accessible->getAccessibleContext(),
                                                                    uno::UNO_QUERY_THROW);
    const auto location = shown->getLocationOnScreen();
    place = {static_cast<int>(location.X), static_cast<int>(location.Y)};
  });
  return place;
}

}  // namespace pellora::libreoffice
