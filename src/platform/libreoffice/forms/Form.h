#pragma once

#include <com/sun/star/awt/KeyEvent.hpp>
#include <com/sun/star/awt/XDialog2.hpp>
#include <com/sun/star/awt/XExtendedToolkit.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/lang/EventObject.hpp>
#include <optional>
#include <rtl/ref.hxx>
#include <vector>

#include "forms/Form.h"
#include "platform/libreoffice/forms/Control.h"
#include "platform/libreoffice/forms/Fonts.h"
#include "platform/libreoffice/forms/FormEar.h"
#include "platform/libreoffice/forms/HeldKeys.h"
#include "platform/libreoffice/forms/Window.h"

namespace pellora::libreoffice {

class CommandButtonPeer;

/// The dialog of a form: every control is a direct child of it, in the order of making. Owns the dialog and its fonts;
/// the peers of the controls belong to their controls.
///
/// Before it is placed a form is centred over the window it belongs to: at its least size, or somewhat larger when it
/// is sizable and has something that shows more when it is larger. The toolkit does not let a dialog fill the screen by
/// itself: a maximised form gets the room the desktop offers, and one that has been given all of it counts as
/// maximised. The office program takes a dialog away together with the document window it belongs to; then the peer
/// lives on without a window, and a modal showing ends as if the user had closed the form.
class UnoFormPeer : public FormPeer {
 public:
  UnoFormPeer(pellora::Form& form, const uno::Reference<uno::XComponentContext>& context,
              const uno::Reference<awt::XToolkit>& toolkit);
  ~UnoFormPeer() override;
  UnoFormPeer(const UnoFormPeer&) = delete;
  UnoFormPeer& operator=(const UnoFormPeer&) = delete;

  void ShowModal() override;
  void EndModal() override;
  void CaptionChanged() override;
  std::optional<Placement> GetPlacement() override;
  bool SetPlacement(const Placement& placement) override;
  Rect Desktop() override;
  Size OuterSize() override;
  void BringToFront() override;

  // For the peers of the controls.
  const Window& GetWindow() const { return m_window; }
  /// Where the inside of the window begins on the screen.
  Point Corner() const;
  uno::Reference<awt::XToolkit> GetToolkit() const { return m_toolkit; }
  const uno::Reference<uno::XComponentContext>& GetContext() const { return m_context; }
  const Fonts& GetFonts() const { return *m_fonts; }
  /// The window is on the screen.
  bool IsShown() const;
  /// The form has come up and works with the keyboard.
  bool IsUp() const { return m_up; }
  /// Lays out again before the next event, because a text has changed its length.
  void RequestLayout();
  /// A control, or a container around others, can be used or not any more.
  void RefreshStates(pellora::Control& changed);
  void FocusMoved(pellora::Control& control);
  void Forget(UnoControlPeer& peer);

  // For the ear.
  void OnClosing();
  void OnActivate(bool active);
  void OnMoved();
  bool OnKey(const awt::KeyEvent& key);
  void OnKeyReleased(const awt::KeyEvent& key);
  void OnDisposing(const lang::EventObject& source);
  /// Does what had to wait until the toolkit had finished with an event.
  void CatchUp();
  /// What was over the form is gone: it becomes the active window again.
  void Resume();

 private:
  // Life
  void MakeWindow();
  int MeasuredCheckGlyph() const;
  void MakePeers();
  void Listen();
  void StopListening();
  void Lost();

  // Place
  Size LeastClient() const;
  Size Client() const;
  Size FrameSize() const;
  Size OuterOf(Size client) const;
  Rect OuterPlace() const;
  void MoveTo(Point outer);
  void Resize(Size client);
  void AskForPlace(sal_Int16 parts);
  void LayOut();
  bool GainsByRoom() const;
  Rect PlaceOver() const;
  Rect WorkArea() const;
  void PlaceByDefault();
  void FitToContent();
  Rect Reachable(const Rect& outer) const;
  bool WantsMaximised() const;
  bool FillsDesktop(const Rect& outer) const;
  void RememberState();

  // Modal showing
  void Run();
  bool Execute();
  void ComeUp();
  void Activated();

  // Keyboard
  // The form decides about keys, not the toolkit: the order of tabs, access keys on pages and frames and what hears a
  // key first are the same on every platform.
  bool HearsKeys() const;
  bool Translate(const awt::KeyEvent& key);
  bool TranslateKey(const awt::KeyEvent& key, UnoControlPeer* peer);
  bool TranslateAltKey(const awt::KeyEvent& key);
  bool MoveByTab(bool backwards);
  void FocusActive();
  void ShowDefault(pellora::Control* focused);
  UnoControlPeer* ActivePeer() const;

  pellora::Form& m_form;
  uno::Reference<uno::XComponentContext> m_context;
  uno::Reference<awt::XToolkit> m_toolkit;
  rtl::Reference<FormEar> m_ear;
  uno::Reference<awt::XWindowPeer> m_over;
  Window m_window;
  uno::Reference<awt::XDialog2> m_dialog;
  uno::Reference<awt::XExtendedToolkit> m_keyboard;
  std::optional<Fonts> m_fonts;
  std::vector<UnoControlPeer*> m_peers;
  CommandButtonPeer* m_shownDefault = nullptr;
  Placement m_placement;
  HeldKeys m_heldKeys;
  Size m_client;
  Size m_laidOut;
  Point m_outer;
  Point m_asked;
  bool m_placed = false;
  bool m_ended = false;
  bool m_running = false;
  bool m_up = false;
  bool m_active = false;
  bool m_closeRefused = false;
  bool m_resumes = false;
  bool m_layoutAsked = false;
};

}  // namespace pellora::libreoffice
