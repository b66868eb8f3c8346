#pragma once

#include <memory>
#include <string>

#include "forms/Control.h"
#include "platform/windows/Windows.h"
// After the platform's header, which it builds on.
#include <commctrl.h>

namespace pellora::windows {

class WindowsFormPeer;

/// The native half of one control: a child window of the form's window, or none for a mere container. The form's
/// window owns the child; the peer destroys it when it goes first, and forgets it when the form's window is lost.
/// Notifications that a peer causes itself, by setting a text or a state, are not reported to the control.
class WindowsControlPeer : public ControlPeer {
 public:
  WindowsControlPeer(WindowsFormPeer& form, pellora::Control& control);
  ~WindowsControlPeer() override;
  WindowsControlPeer(const WindowsControlPeer&) = delete;
  WindowsControlPeer& operator=(const WindowsControlPeer&) = delete;

  void Changed(Aspect aspect) override;
  void Focus() override;

  pellora::Control& GetControl() const { return m_control; }
  HWND Window() const { return m_window; }
  /// The form's window is gone, and the child with it.
  void Lost() { m_window = m_inner = nullptr; }

  /// The form's window passes on what the child reports; silent while the peer itself makes changes.
  void Report(WORD code);
  LRESULT Report(const NMHDR& header);
  /// What becomes of a key or character on its way to the child.
  enum class KeyUse {
    Form,    ///< the form looks at it first, as with most keys
    Native,  ///< goes straight to the child
    Done     ///< the peer has used it
  };
  virtual KeyUse Use(const MSG&) { return KeyUse::Form; }
  /// Tab has moved the focus here.
  virtual void TabbedTo() {}
  /// The layout has given every control its place.
  virtual void Placed() {}
  /// The form has new fonts.
  virtual void FontChanged();
  /// The system has new colours.
  virtual void ColoursChanged();
  /// Tells assistive programs the control's name as it is now.
  void RefreshName();
  /// Enables and shows the child as the control and everything around it say.
  void RefreshState();

 protected:
  /// Makes the child; `text` may be empty. Raises when the platform refuses.
  void Make(const wchar_t* windowClass, DWORD style, DWORD exStyle = 0);
  virtual void Update(Aspect) {}
  virtual void OnCommand(WORD) {}
  virtual LRESULT OnNotify(const NMHDR&) { return 0; }
  virtual HFONT Font() const;
  /// The window inside the child that takes the keyboard and the mouse in its place: the edit in a combo box. Asked for
  /// once, when the child has been made.
  virtual HWND InnerWindow() const { return nullptr; }

  LRESULT Send(UINT message, WPARAM wide = 0, LPARAM low = 0) const;
  void SetWindowCaption();
  void FocusReported();
  bool IsSilent() const { return m_silent > 0; }

  /// Keeps the peer silent as long as it lives.
  class Silence {
   public:
    explicit Silence(WindowsControlPeer& peer) : m_peer(peer) { ++m_peer.m_silent; }
    ~Silence() { --m_peer.m_silent; }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

   private:
    WindowsControlPeer& m_peer;
  };

  WindowsFormPeer& m_form;

 private:
  void Move();
  /// To the child and the window inside it; an empty name takes back the one before.
  void TellName(const std::string& name);
  void UpdateToolTip();
  void UpdateToolTip(HWND window, const std::wstring& text);

  pellora::Control& m_control;
  HWND m_window = nullptr, m_inner = nullptr;
  /// The name told to assistive programs because the window's own text is another; may be empty.
  std::string m_toldName;
  int m_silent = 0;
};

/// The peer of a kind that has a class of its own: gives the control by its type.
template <class T>
class PeerOf : public WindowsControlPeer {
 protected:
  PeerOf(WindowsFormPeer& form, T& control) : WindowsControlPeer(form, control), m_typed(control) {}
  T& Self() const { return m_typed; }

 private:
  T& m_typed;
};

/// The right peer for a control.
std::unique_ptr<WindowsControlPeer> MakePeer(WindowsFormPeer& form, pellora::Control& control);

}  // namespace pellora::windows
