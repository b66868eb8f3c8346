#include "platform/libreoffice/forms/Form.h"

#include <algorithm>
#include <com/sun/star/awt/WindowAttribute.hpp>
#include <com/sun/star/awt/XLayoutConstrains.hpp>
#include <com/sun/star/awt/XTopWindow.hpp>

#include "core/Error.h"
#include "platform/libreoffice/forms/CommandButton.h"
#include "platform/libreoffice/forms/Modal.h"
#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

sal_Int32 AttributesOf(const pellora::Form& form) {
  namespace Attribute = awt::WindowAttribute;
  const auto sizable = form.BorderStyle() == BorderStyle::Sizable;
  return Attribute::BORDER | Attribute::MOVEABLE | Attribute::CLOSEABLE | (sizable ? Attribute::SIZEABLE : 0);
}

}  // namespace

UnoFormPeer::UnoFormPeer(pellora::Form& form, const uno::Reference<uno::XComponentContext>& context,
                         const uno::Reference<awt::XToolkit>& toolkit)
    : m_form(form),
      m_context(context),
      m_toolkit(toolkit),
      m_ear(new FormEar(*this)),
      m_keyboard(toolkit, uno::UNO_QUERY) {
  MakeWindow();
  m_fonts.emplace(m_window.Peer());
  m_fonts->CheckGlyph(MeasuredCheckGlyph());
  try {
    MakePeers();
  } catch (...) {
    // Peers made so far refer to this one.
    for (auto* control : form.Descendants()) control->AttachPeer(nullptr);
    throw;
  }
  Listen();
  PlaceByDefault();
}

UnoFormPeer::~UnoFormPeer() {
  StopListening();
  m_ear->Detach();
  m_dialog.clear();
  m_window.Retire(m_context, m_over);
}

void UnoFormPeer::MakeWindow() {
  m_over = WindowToBeOver(m_context);
  m_window.Make(m_toolkit, m_over, "dialog", AttributesOf(m_form), awt::WindowClass_TOP);
  m_dialog = m_window.As<awt::XDialog2>();
  if (!m_dialog.is()) throw Error(errors::OutOfMemory);
  CaptionChanged();
}

int UnoFormPeer::MeasuredCheckGlyph() const {
  constexpr auto kText = "Text";
  int glyph = 0;
  WhileThere([&] {
    Window sample;
    sample.Make(m_toolkit, m_window.Peer(), "radiobutton", 0, awt::WindowClass_SIMPLE);
    sample.Set("FontDescriptor", uno::Any(m_fonts->Get(TextStyle::Normal)));
    sample.Set("Label", uno::Any(Wide(kText)));
    const auto least = sample.As<awt::XLayoutConstrains>()->getMinimumSize();
    glyph = static_cast<int>(least.Width) - m_fonts->Measure(kText, TextStyle::Normal).width;
  });
  return glyph;
}

void UnoFormPeer::MakePeers() {
  for (auto* control : m_form.Descendants()) {
    auto peer = MakePeer(*this, *control);
    m_peers.push_back(peer.get());
    control->AttachPeer(std::move(peer));
  }
}

void UnoFormPeer::Listen() {
  WhileThere([&] {
    m_window.get()->addWindowListener(m_ear.get());
    m_window.As<awt::XTopWindow>()->addTopWindowListener(m_ear.get());
    if (m_keyboard.is()) m_keyboard->addKeyHandler(m_ear.get());
    if (m_over.is()) m_over->addEventListener(static_cast<awt::XWindowListener*>(m_ear.get()));
  });
}

void UnoFormPeer::StopListening() {
  if (m_keyboard.is()) WhileThere([&] { m_keyboard->removeKeyHandler(m_ear.get()); });
  if (m_over.is()) WhileThere([&] { m_over->removeEventListener(static_cast<awt::XWindowListener*>(m_ear.get())); });
}

void UnoFormPeer::OnDisposing(const lang::EventObject& source) {
  if (m_window && source.Source == m_window.Peer()) Lost();
  if (source.Source != m_over) return;
  m_over.clear();
  if (!m_window) return;
  // The form's window would follow, its table first.
  m_window.Leave();
  Lost();
}

void UnoFormPeer::Lost() {
  m_up = false;
  m_dialog.clear();
  m_window.detach();
  for (auto* peer : m_peers) peer->Lost();
  m_ended = true;
}

void UnoFormPeer::Forget(UnoControlPeer& peer) {
  std::erase(m_peers, &peer);
  if (m_shownDefault == &peer) m_shownDefault = nullptr;
}

bool UnoFormPeer::IsShown() const {
  bool shown = false;
  if (m_window) WhileThere([&] { shown = m_window.get()->isVisible(); });
  return shown;
}

void UnoFormPeer::CaptionChanged() {
  if (m_dialog.is()) WhileThere([&] { m_dialog->setTitle(Wide(DisplayText(m_form.Caption()))); });
}

void UnoFormPeer::RequestLayout() {
  if (m_layoutAsked || !m_running) return;
  m_layoutAsked = true;
  m_ear->CallBack(m_context);
}

void UnoFormPeer::CatchUp() {
  if (m_running && !m_up && !m_ended) ComeUp();
  if (m_resumes && InnermostForm() == this) Activated();
  if (std::exchange(m_layoutAsked, false) && m_window) FitToContent();
}

void UnoFormPeer::RefreshStates(pellora::Control& changed) {
  const auto concerns = [&](const pellora::Control* control) {
    for (; control; control = control->Parent())
      if (control == &changed) return true;
    return false;
  };
  const auto* active = ActivePeer();
  for (auto* peer : std::vector(m_peers))
    if (concerns(&peer->GetControl())) peer->RefreshState();
  RequestLayout();
  // The keyboard would be left with a window that cannot be used any more.
  if (m_up && ActivePeer() != active) FocusActive();
}

UnoControlPeer* UnoFormPeer::ActivePeer() const {
  const auto* active = m_form.ActiveControl();
  return active ? static_cast<UnoControlPeer*>(active->Peer()) : nullptr;
}

}  // namespace pellora::libreoffice
