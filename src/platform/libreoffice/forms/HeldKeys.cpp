#include "platform/libreoffice/forms/HeldKeys.h"

#include <com/sun/star/awt/Key.hpp>
#include <utility>

namespace pellora::libreoffice {
namespace {

namespace awt = com::sun::star::awt;
using Clock = std::chrono::steady_clock;

/// Longer than any keyboard waits before it repeats a key. The release may go to another program; a key that has been
/// silent for so long is not held.
constexpr auto kSilence = std::chrono::seconds(1);

/// The key whose press was the last, of those that answer a window, and whose release has not been heard.
struct Down {
  sal_Int16 key = 0;
  Clock::time_point since;
};

Down& TheDown() {
  static Down down;
  return down;
}

bool Answers(sal_Int16 key) { return key == awt::Key::RETURN || key == awt::Key::ESCAPE; }

}  // namespace

void HeldKeys::Begin() {
  m_last = Clock::now();
  m_held = m_last - TheDown().since < 2 * kSilence ? TheDown().key : 0;
  m_passedOver = 0;
}

bool HeldKeys::Pressed(const awt::KeyEvent& key) {
  const auto now = Clock::now();
  if (Answers(key.KeyCode)) TheDown() = {key.KeyCode, now};
  if (key.KeyCode != m_held || now - std::exchange(m_last, now) >= kSilence) m_held = 0;
  if (m_held != 0 && m_passedOver++ == 0) m_first = key;
  return m_held != 0;
}

std::optional<awt::KeyEvent> HeldKeys::Released(const awt::KeyEvent& key) {
  if (TheDown().key == key.KeyCode) TheDown().key = 0;
  if (key.KeyCode != m_held) return std::nullopt;
  m_held = 0;
  return m_passedOver == 1 ? std::optional(m_first) : std::nullopt;
}

}  // namespace pellora::libreoffice
