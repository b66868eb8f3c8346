#include <algorithm>
#include <array>
#include <com/sun/star/awt/Key.hpp>
#include <com/sun/star/awt/KeyModifier.hpp>

#include "forms/TextBox.h"
#include "platform/libreoffice/forms/CommandButton.h"
#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/forms/Modal.h"

namespace pellora::libreoffice {
namespace {

struct KnownKey {
  sal_Int16 native;
  Key key;
};

constexpr std::array kKnownKeys = {KnownKey{awt::Key::RETURN, Key::Enter}, KnownKey{awt::Key::ESCAPE, Key::Escape},
                                   KnownKey{awt::Key::DELETE, Key::Delete}, KnownKey{awt::Key::UP, Key::Up},
                                   KnownKey{awt::Key::DOWN, Key::Down}};

bool Has(const awt::KeyEvent& key, sal_Int16 modifier) { return (key.Modifiers & modifier) != 0; }

KeyPress PressOf(const awt::KeyEvent& key) {
  const auto found = std::find_if(kKnownKeys.begin(), kKnownKeys.end(),
                                  [&](const KnownKey& known) { return known.native == key.KeyCode; });
  return {found == kKnownKeys.end() ? Key::Other : found->key, Has(key, awt::KeyModifier::MOD1),
          Has(key, awt::KeyModifier::SHIFT), Has(key, awt::KeyModifier::MOD2)};
}

/// The letter or digit on a key, or 0. With Alt held down the character is not reliable, the key is.
char LetterOf(const awt::KeyEvent& key) {
  if (key.KeyCode >= awt::Key::A && key.KeyCode <= awt::Key::Z)
    return static_cast<char>('A' + (key.KeyCode - awt::Key::A));
  if (key.KeyCode >= awt::Key::NUM0 && key.KeyCode <= awt::Key::NUM9)
    return static_cast<char>('0' + (key.KeyCode - awt::Key::NUM0));
  return key.KeyChar > u' ' && key.KeyChar < 0x7F ? static_cast<char>(key.KeyChar) : '\0';
}

bool TakesLineBreaks(const UnoControlPeer* peer) {
  if (!peer || peer->GetControl().Kind() != ControlKind::TextBox) return false;
  const auto& box = static_cast<const pellora::TextBox&>(peer->GetControl());
  return box.MultiLine() && !box.ReadOnly();
}

}  // namespace

bool UnoFormPeer::OnKey(const awt::KeyEvent& key) {
  if (!HearsKeys()) return false;
  const auto held = m_heldKeys.Pressed(key);
  return (held && !TakesLineBreaks(ActivePeer())) || Translate(key);
}

// Keys are reported for all windows of the program.
bool UnoFormPeer::HearsKeys() const { return m_up && m_active && InnermostForm() == this; }

void UnoFormPeer::OnKeyReleased(const awt::KeyEvent& key) {
  const auto missed = m_heldKeys.Released(key);
  if (auto* peer = m_up ? ActivePeer() : nullptr) peer->KeyReleased();
  if (missed && HearsKeys()) Translate(*missed);
}

bool UnoFormPeer::Translate(const awt::KeyEvent& key) {
  auto* peer = ActivePeer();
  if (peer && peer->Use(key) == UnoControlPeer::KeyUse::Native) return false;
  if (Has(key, awt::KeyModifier::MOD2) && !Has(key, awt::KeyModifier::MOD1)) return TranslateAltKey(key);
  return TranslateKey(key, peer);
}

bool UnoFormPeer::TranslateKey(const awt::KeyEvent& key, UnoControlPeer* peer) {
  if (key.KeyCode == awt::Key::TAB)
    return !Has(key, awt::KeyModifier::MOD1) && MoveByTab(Has(key, awt::KeyModifier::SHIFT));
  const auto press = PressOf(key);
  if (press.key != Key::Other && m_form.PeerKey(press)) return true;
  if (!m_up) return true;
  if (press.key == Key::Escape) {
    if (!m_form.CancelButton()) m_form.PeerClose();
    return true;
  }
  if (press.key == Key::Enter) return !TakesLineBreaks(peer);
  return peer && peer == ActivePeer() && peer->Act(key);
}

bool UnoFormPeer::TranslateAltKey(const awt::KeyEvent& key) {
  const auto press = PressOf(key);
  if (press.key == Key::Up || press.key == Key::Down) return m_form.PeerKey(press);
  const auto letter = press.key == Key::Other ? LetterOf(key) : '\0';
  return letter && m_form.PeerAccessKey(letter);
}

bool UnoFormPeer::MoveByTab(bool backwards) {
  auto order = m_form.TabOrder();
  if (order.empty()) return true;
  if (backwards) std::reverse(order.begin(), order.end());
  const auto now = std::find(order.begin(), order.end(), m_form.ActiveControl());
  auto& next = now == order.end() || std::next(now) == order.end() ? *order.front() : **std::next(now);
  next.SetFocus();
  if (auto* peer = static_cast<UnoControlPeer*>(next.Peer())) peer->TabbedTo();
  return true;
}

void UnoFormPeer::FocusActive() {
  auto* peer = m_window ? ActivePeer() : nullptr;
  if (peer) peer->Focus();
}

void UnoFormPeer::FocusMoved(pellora::Control& control) {
  m_form.ActiveControl(&control);
  ShowDefault(&control);
}

void UnoFormPeer::ShowDefault(pellora::Control* focused) {
  const auto onButton = focused && focused->Kind() == ControlKind::CommandButton;
  auto* button = onButton ? static_cast<pellora::CommandButton*>(focused) : m_form.DefaultButton();
  auto* peer = button ? static_cast<CommandButtonPeer*>(button->Peer()) : nullptr;
  if (peer == m_shownDefault) return;
  if (m_shownDefault) m_shownDefault->ShowAsDefault(false);
  m_shownDefault = peer;
  if (peer) peer->ShowAsDefault(true);
}

}  // namespace pellora::libreoffice
