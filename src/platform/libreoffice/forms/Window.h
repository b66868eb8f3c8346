#pragma once

#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XVclWindowPeer.hpp>
#include <com/sun/star/awt/XWindow2.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <utility>

#include "forms/Geometry.h"

namespace pellora::libreoffice {

namespace uno = ::com::sun::star::uno;
namespace awt = ::com::sun::star::awt;
namespace lang = ::com::sun::star::lang;

/// Does what may fail because the office program has taken a window away meanwhile; the failure is passed over.
/// Whoever owned the window hears of its end by itself.
template <class Action>
void WhileThere(Action action) {
  try {
    action();
  } catch (const uno::Exception&) {
    // Gone.
  }
}

/// Owns one window of the toolkit, which goes with it. Everything it does is passed over once the window is gone.
class Window {
 public:
  Window() = default;
  ~Window() { reset(); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  /// Makes a window of a kind the toolkit knows by name, below `parent`. Raises when the toolkit refuses.
  void Make(const uno::Reference<awt::XToolkit>& toolkit, const uno::Reference<awt::XWindowPeer>& parent,
            const char* kind, sal_Int32 attributes, awt::WindowClass windowClass);
  /// Takes over a window made elsewhere.
  void attach(const uno::Reference<awt::XWindowPeer>& peer);
  void reset();
  /// The window is gone already.
  void detach();
  /// Hides the window, a dialog, which goes once the toolkit has done what it has put off until now: a table that goes
  /// earlier, alone or with the window around it, would be called back after its end and crash the program. With the
  /// window that it is over, null for none, it goes at once.
  void Retire(const uno::Reference<uno::XComponentContext>& context, const uno::Reference<awt::XWindowPeer>& over);
  /// The window, a dialog, goes at once, as the one that it is over is about to go and would take it away less gently.
  void Leave();

  explicit operator bool() const { return m_window.is(); }
  const uno::Reference<awt::XWindowPeer>& Peer() const { return m_peer; }
  const uno::Reference<awt::XWindow2>& get() const { return m_window; }

  /// The window by another of its interfaces, or null.
  template <class Interface>
  uno::Reference<Interface> As() const {
    return uno::Reference<Interface>(m_peer, uno::UNO_QUERY);
  }

  void Set(const char* property, const uno::Any& value) const;
  uno::Any Get(const char* property) const;
  void Place(const Rect& bounds) const;
  void Enable(bool enabled) const;
  void Show(bool visible) const;
  void Focus() const;

 private:
  uno::Reference<awt::XWindowPeer> m_peer;
  uno::Reference<awt::XWindow2> m_window;
  uno::Reference<awt::XVclWindowPeer> m_properties;
};

/// Where the inside of a document's window begins on the screen; the screen's corner for no window.
Point OnScreen(const uno::Reference<awt::XWindowPeer>& window);

}  // namespace pellora::libreoffice
