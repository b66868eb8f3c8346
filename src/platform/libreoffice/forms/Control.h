#pragma once

#include <com/sun/star/awt/KeyEvent.hpp>
#include <memory>
#include <rtl/ref.hxx>

#include "forms/Control.h"
#include "platform/libreoffice/forms/Ear.h"
#include "platform/libreoffice/forms/Window.h"

namespace pellora::libreoffice {

class UnoFormPeer;

/// What the user has done at a control's window.
enum class Happening { Action, Choice, Text };

/// The toolkit's half of one control: a child window of the form's window, or none for a mere container. The peer owns
/// the child, and forgets it when the form's window is lost. What a peer causes itself, by setting a text or a state,
/// is not reported to the control.
class UnoControlPeer : public ControlPeer {
 public:
  UnoControlPeer(UnoFormPeer& form, pellora::Control& control);
  ~UnoControlPeer() override;
  UnoControlPeer(const UnoControlPeer&) = delete;
  UnoControlPeer& operator=(const UnoControlPeer&) = delete;

  void Changed(Aspect aspect) override;
  void Focus() override;

  pellora::Control& GetControl() const { return m_control; }
  const Window& GetWindow() const { return m_window; }
  /// The child has the keyboard.
  bool HasKeyboard() const;
  /// The form's window is gone, and the child with it.
  void Lost();

  /// The ear passes on what the child reports; silent while the peer itself makes changes.
  void Report(Happening happening);
  void ReportFocus(bool gained);

  /// What becomes of a key on its way to the child.
  enum class KeyUse {
    Form,   ///< the form looks at it first, as with most keys
    Native  ///< goes straight to the child
  };
  virtual KeyUse Use(const awt::KeyEvent&) { return KeyUse::Form; }
  /// A key that the form has had no use for; true when it is used up and the child is not to have it.
  virtual bool Act(const awt::KeyEvent&) { return false; }
  virtual void KeyReleased() {}
  /// Tab has moved the focus here.
  virtual void TabbedTo() {}
  /// The layout has given every control its place.
  virtual void Placed() {}
  /// Sets the window's caption again: the toolkit underlines letters of its own choice in captions without an access
  /// key whenever a dialog comes up.
  void RestoreCaption();
  /// Enables and shows the child as the control and everything around it say.
  void RefreshState();

 protected:
  /// Makes the child and gives it the form's font. Raises when the toolkit refuses.
  void Make(const char* kind, sal_Int32 attributes = 0);
  void Adopt(const uno::Reference<awt::XWindowPeer>& peer);
  virtual void Update(Aspect) {}
  virtual void OnReport(Happening) {}
  /// Gives the window the control's caption; nothing for a window without one.
  virtual void SetCaption() {}
  virtual TextStyle Style() const { return TextStyle::Normal; }
  rtl::OUString Caption() const;
  bool IsSilent() const { return m_silent > 0; }
  Ear* Listener() const { return m_ear.get(); }

  /// Keeps the peer silent as long as it lives.
  class Silence {
   public:
    explicit Silence(UnoControlPeer& peer) : m_peer(peer) { ++m_peer.m_silent; }
    ~Silence() { --m_peer.m_silent; }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

   private:
    UnoControlPeer& m_peer;
  };

  UnoFormPeer& m_form;
  Window m_window;

 private:
  void FinishMaking();
  void SetAccessibleName();

  pellora::Control& m_control;
  rtl::Reference<Ear> m_ear;
  int m_silent = 0;
  bool m_keyboard = false;
};

/// The peer of a kind that has a class of its own: gives the control by its type.
template <class T>
class PeerOf : public UnoControlPeer {
 protected:
  PeerOf(UnoFormPeer& form, T& control) : UnoControlPeer(form, control), m_typed(control) {}
  T& Self() const { return m_typed; }

 private:
  T& m_typed;
};

/// The right peer for a control.
std::unique_ptr<UnoControlPeer> MakePeer(UnoFormPeer& form, pellora::Control& control);

}  // namespace pellora::libreoffice
