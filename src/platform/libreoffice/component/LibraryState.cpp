#include "platform/libreoffice/component/LibraryState.h"

#include <algorithm>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/TerminationVetoException.hpp>
#include <cppuhelper/implbase1.hxx>

#include "support/mGlobal.h"

namespace pellora::libreoffice {
namespace {

namespace uno = com::sun::star::uno;
namespace frame = com::sun::star::frame;
namespace lang = com::sun::star::lang;

/// Passes the program's end on to the state that lives, if one does.
class Watch : public cppu::WeakImplHelper1<frame::XTerminateListener> {
 public:
  explicit Watch(std::weak_ptr<LibraryState> state) : m_state(std::move(state)) {}

  void SAL_CALL queryTermination(const lang::EventObject&) override {
    const auto state = m_state.lock();
    if (state && state->IsRunning())
      throw frame::TerminationVetoException("A dialog is open.", static_cast<cppu::OWeakObject*>(this));
  }
  void SAL_CALL notifyTermination(const lang::EventObject&) override { End(); }
  void SAL_CALL disposing(const lang::EventObject&) override { End(); }

 private:
  void End() noexcept {
    if (const auto state = m_state.lock()) state->OfficeEnds();
  }

  // The program asks on its main thread, while the state may be released on another one.
  const std::weak_ptr<LibraryState> m_state;
};

}  // namespace

std::shared_ptr<LibraryState> LibraryState::Acquire(const Context& context) {
  static std::weak_ptr<LibraryState> current;
  auto state = current.lock();
  if (state) return state;
  state = std::make_shared<LibraryState>(context);
  const uno::Reference<frame::XTerminateListener> watch(new Watch(state));
  frame::Desktop::create(context)->addTerminateListener(watch);
  state->m_watch = watch;
  current = state;
  return state;
}

LibraryState::LibraryState(const Context& context) : m_platform(context), m_context(context) {}

LibraryState::~LibraryState() {
  if (m_ended || !m_watch.is()) return;
  try {
    frame::Desktop::create(m_context)->removeTerminateListener(m_watch);
  } catch (...) {
    // The program has ended already.
  }
}

LibraryState::Membership::Membership(LibraryState* state, PlatformUser& user) : m_state(state), m_user(user) {
  if (!m_state) return;
  const std::lock_guard lock(m_state->m_mutex);
  m_state->m_users.insert(&m_user);
}

void LibraryState::Membership::Leave() {
  if (!m_state) return;
  const std::lock_guard lock(m_state->m_mutex);
  m_state->m_users.erase(&m_user);
  m_state = nullptr;
}

void LibraryState::Bury(std::shared_ptr<LibraryState>& state, std::unique_ptr<cPellora>& object) {
  LibraryState& keeper = *state;
  const std::lock_guard lock(keeper.m_mutex);
  if (object) keeper.m_buried.push_back(std::move(object));
  keeper.m_kept = std::move(state);
}

void LibraryState::LetBuriedGo() {
  // They go when the list is free again, the state after the objects.
  std::shared_ptr<LibraryState> kept;
  std::vector<std::unique_ptr<cPellora>> buried;
  const std::lock_guard lock(m_mutex);
  buried.swap(m_buried);
  kept.swap(m_kept);
}

bool LibraryState::IsRunning() const {
  const std::lock_guard lock(m_mutex);
  return std::any_of(m_users.begin(), m_users.end(), [](const PlatformUser* user) { return user->IsRunning(); });
}

void LibraryState::OfficeEnds() noexcept {
  m_ended = true;
  try {
    const mGlobal::ThreadClaim thisThread;
    // They go when the list is free again, as whatever goes with them may want to enter or leave it.
    std::shared_ptr<LibraryState> kept;
    std::vector<std::unique_ptr<cPellora>> objects;
    const std::lock_guard lock(m_mutex);
    kept.swap(m_kept);
    objects.swap(m_buried);
    for (PlatformUser* const user : m_users) objects.push_back(user->HandOver());
  } catch (...) {
    // A call has begun on another thread, after the program had asked; it comes here when it has ended.
  }
}

}  // namespace pellora::libreoffice
