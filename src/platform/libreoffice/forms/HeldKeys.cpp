#include "platform/libreoffice/forms/HeldKeys.h"

#include <chrono>
#include <com/sun/star/awt/Key.hpp>

namespace pellora::libreoffice {
namespace {

namespace awt = com::sun::star::awt;
using Clock = std::chrono::steady_clock;

/// A key that is held repeats many times meanwhile, on the slowest machine too; of another only the release was lost.
constexpr auto kSilence = std::chrono::seconds(10);

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
  m_held = Clock::now() - TheDown().since < kSilence ? TheDown().key : 0;
  m_passedOver = 0;
}

bool HeldKeys::Pressed(const awt::KeyEvent& key) {
  if (Answers(key.KeyCode)) TheDown() = {key.KeyCode, Clock::now()};
  if (key.KeyCode != m_held) m_held = 0;
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
