#include "platform/libreoffice/forms/Control.h"

#include "forms/Form.h"
#include "platform/libreoffice/forms/Captions.h"
#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {

UnoControlPeer::UnoControlPeer(UnoFormPeer& form, pellora::Control& control)
    : m_form(form), m_control(control), m_ear(new Ear(*this)) {}

UnoControlPeer::~UnoControlPeer() {
  m_ear->Detach();
  m_form.Forget(*this);
}

bool UnoControlPeer::HasKeyboard() const {
  // The window of a combo does not have it, the field inside does; then only the reports tell.
  auto has = m_keyboard;
  if (m_window && !has) WhileThere([&] { has = m_window.get()->hasFocus(); });
  return has;
}

void UnoControlPeer::Lost() {
  m_ear->Detach();
  m_window.detach();
}

void UnoControlPeer::Changed(Aspect aspect) {
  const Silence silence(*this);
  switch (aspect) {
    case Aspect::Bounds: return m_window.Place(m_control.Bounds());
    case Aspect::ToolTip: return m_window.Set("HelpText", uno::Any(Wide(m_control.ToolTip())));
    case Aspect::Enabled:
    case Aspect::Visible:
    case Aspect::Page: WhileThere([&] { Update(aspect); }); return m_form.RefreshStates(m_control);
    default:
      if (m_window) WhileThere([&] { Update(aspect); });
  }
}

void UnoControlPeer::Focus() {
  const Silence silence(*this);
  if (m_form.IsUp()) m_window.Focus();
  // Focus reports are silenced too, so the form hears of it here.
  m_form.FocusMoved(m_control);
}

void UnoControlPeer::Report(Happening happening) {
  if (!m_silent && m_window) OnReport(happening);
}

void UnoControlPeer::ReportFocus(bool gained) {
  m_keyboard = gained;
  // Before it is up, the toolkit gives the focus to the first window it finds.
  if (gained && !m_silent && m_form.IsUp()) m_form.FocusMoved(m_control);
}

void UnoControlPeer::RestoreCaption() {
  const Silence silence(*this);
  if (m_window) WhileThere([&] { SetCaption(); });
}

void UnoControlPeer::RefreshState() {
  if (!m_window) return;
  const Silence silence(*this);
  const auto enabled = m_control.EnabledByAll();
  const auto visible = m_control.ShownByAll();
  WhileThere([&] {
    if ((m_window.get()->isEnabled() != sal_False) != enabled) m_window.Enable(enabled);
    m_window.Show(visible);
  });
}

void UnoControlPeer::Make(const char* kind, sal_Int32 attributes) {
  const Silence silence(*this);
  m_window.Make(m_form.GetToolkit(), m_form.GetWindow().Peer(), kind, attributes, awt::WindowClass_SIMPLE);
  FinishMaking();
}

void UnoControlPeer::Adopt(const uno::Reference<awt::XWindowPeer>& peer) {
  const Silence silence(*this);
  m_window.attach(peer);
  FinishMaking();
}

void UnoControlPeer::FinishMaking() {
  const auto& described = m_form.GetFonts().Get(Style());
  m_window.Set("FontDescriptor", uno::Any(described));
  Changed(Aspect::ToolTip);
  SetAccessibleName();
  // The layout tells of a place only when it is another one, and this window may not be the control's first.
  m_window.Place(m_control.Bounds());
  m_window.Enable(m_control.EnabledByAll());
  m_window.Show(m_control.ShownByAll());
  WhileThere([&] { m_window.get()->addFocusListener(m_ear.get()); });
}

void UnoControlPeer::SetAccessibleName() {
  // A picture or three dots name nothing, and a label may stand elsewhere than in front of its control.
  const auto name = m_control.AccessibleName();
  if (!name.empty() && name != DisplayText(m_control.Caption())) m_window.Set("AccessibleName", uno::Any(Wide(name)));
}

rtl::OUString UnoControlPeer::Caption() const { return NativeCaption(m_control.Caption(), m_control.AccessKey()); }

}  // namespace pellora::libreoffice
