#pragma once

#include <optional>
#include <vector>

#include "forms/Form.h"
#include "platform/windows/forms/AccessibleNames.h"
#include "platform/windows/forms/Control.h"
#include "platform/windows/forms/Fonts.h"
#include "platform/windows/forms/Manifest.h"
#include "platform/windows/forms/Owners.h"

namespace pellora::windows {

class CommandButtonPeer;

/// What the windows of a form are made with.
struct Surroundings {
  HINSTANCE module;
  const Manifest& manifest;
  /// 0 follows the display.
  int forcedDpi;
};

/// The native window of a form: an empty dialog with every control as a direct child, in the order of making. Owns the
/// window, its fonts and its tool tips; the peers of the controls belong to their controls.
///
/// Before it is placed a form is centred over the window it belongs to: at its least size, or somewhat larger when it
/// is sizable and has something that shows more when it is larger. When a showing ends, what the user has made of the
/// window, maximised or not, becomes the form's window state and show command. The system destroys a dialog together
/// with the window it belongs to; then the peer lives on without a window, and a modal showing ends as if the user had
/// closed the form.
class WindowsFormPeer : public FormPeer {
 public:
  WindowsFormPeer(pellora::Form& form, const Surroundings& surroundings);
  ~WindowsFormPeer() override;
  WindowsFormPeer(const WindowsFormPeer&) = delete;
  WindowsFormPeer& operator=(const WindowsFormPeer&) = delete;

  void ShowModal() override;
  void EndModal() override;
  void CaptionChanged() override;
  std::optional<Placement> GetPlacement() override;
  bool SetPlacement(const Placement& placement) override;
  Rect Desktop() override;
  Size OuterSize() override;
  void BringToFront() override;

  // For the peers of the controls.
  HWND Window() const { return m_window.get(); }
  HWND Tips() const { return m_tips; }
  HINSTANCE Module() const { return m_surroundings.module; }
  AccessibleNames& Names() { return m_names; }
  const Fonts& GetFonts() const { return *m_fonts; }
  bool IsShown() const;
  /// The id of the next child, as the platform's maker of windows takes it.
  HMENU NewId();
  void Place(HWND child, const Rect& bounds);
  /// Lays out again before the next message, because a text has changed its length.
  void RequestLayout();
  /// A control, or a container around others, can be used or not any more.
  void RefreshStates(pellora::Control& changed);
  void FocusMoved(pellora::Control& control);
  /// A text has changed that may name another control to assistive programs.
  void RefreshNames();
  void Forget(WindowsControlPeer& peer);

 private:
  // Life
  void MakeWindow();
  void MakeTips();
  void FollowTipsFont();
  void MakePeers();
  void SetFonts(int dpi);
  int DisplayDpi() const;
  void Lost();

  // Place
  Size LeastClient() const;
  Size OuterOf(Size client) const;
  Rect OuterPlace() const;
  void LayOut();
  void PlaceByDefault();
  void FitToContent();
  Rect Reachable(const Rect& outer) const;
  UINT ShowCommand() const;
  void RememberState();

  // Modal showing
  void Run();
  static int NextMessage(MSG& message);
  static void Dispatch(const MSG& message);
  void Raise();
  void Leave(HWND owner);

  // Keyboard
  // The form decides about keys, not the platform's dialog manager: the order of tabs, access keys on pages and frames
  // and what hears a key first are the same on every platform.
  bool Translate(const MSG& message);
  bool TranslateKey(const MSG& message, WindowsControlPeer* peer);
  bool TranslateAltKey(const MSG& message);
  bool TranslateAccessKey(const MSG& message);
  bool MoveByTab(bool backwards);
  void FocusActive();
  void ShowCues(WORD cues);
  void ShowDefault(pellora::Control* focused);
  WindowsControlPeer* PeerAt(HWND window) const;

  // Messages
  static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wide, LPARAM low) noexcept;
  INT_PTR OnMessage(UINT message, WPARAM wide, LPARAM low);
  INT_PTR OnBackground(HDC surface, const WindowsControlPeer* peer) const;
  void OnActivate(bool active);
  void OnMinMaxInfo(MINMAXINFO& info) const;
  void OnDpiChanged(int dpi, const RECT& suggested);
  void OnColoursChanged();
  INT_PTR OnNotify(const NMHDR& header);

  pellora::Form& m_form;
  Surroundings m_surroundings;
  AccessibleNames m_names;
  std::optional<Fonts> m_fonts;
  WindowOwner m_window;
  HWND m_tips = nullptr;
  std::vector<WindowsControlPeer*> m_peers;
  CommandButtonPeer* m_shownDefault = nullptr;
  HDWP m_moves = nullptr;
  int m_lastId = 100;
  int m_showCommand = SW_SHOWNORMAL;
  bool m_placed = false;
  bool m_ended = false;
  bool m_activated = false;
  bool m_toFront = false;
  bool m_layoutAsked = false;
};

}  // namespace pellora::windows
