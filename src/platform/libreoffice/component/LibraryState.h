#pragma once

#include <atomic>
#include <com/sun/star/frame/XTerminateListener.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <memory>
#include <mutex>
#include <set>
#include <vector>

#include "automation/cPellora.h"
#include "platform/libreoffice/component/LibreOfficePlatform.h"

namespace pellora::libreoffice {

/// Someone who must let go of the platform before the office program has ended.
class PlatformUser {
 public:
  virtual ~PlatformUser() = default;
  /// True while a call is carried out; the program is asked to stay for as long.
  virtual bool IsRunning() const = 0;
  /// The program ends: answers what was made from the platform, so that it goes now; nothing while a call is carried
  /// out. By the thread that has claimed the library.
  virtual std::unique_ptr<cPellora> HandOver() noexcept = 0;
};

/// What all objects of the library share: the platform, and the watch for the end of the office program, which lets go
/// of Basic's variables only when the windows, and half of the program, are gone. Made with the first object, released
/// with the last.
class LibraryState {
 public:
  using Context = com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>;

  /// The one that lives, or a new one. By the thread that has claimed the library.
  static std::shared_ptr<LibraryState> Acquire(const Context& context);

  /// To be made by `Acquire`, which has it watch for the program's end.
  explicit LibraryState(const Context& context);
  ~LibraryState();
  LibraryState(const LibraryState&) = delete;
  LibraryState& operator=(const LibraryState&) = delete;

  /// A user's entry, for as long as it lives; of no state, it does nothing.
  class Membership {
   public:
    Membership(LibraryState* state, PlatformUser& user);
    ~Membership() { Leave(); }
    Membership(const Membership&) = delete;
    Membership& operator=(const Membership&) = delete;
    /// Ends the entry; the program's end asks nothing of the user any more.
    void Leave();

   private:
    LibraryState* m_state;
    PlatformUser& m_user;
  };

  /// Takes an object whose last reference was dropped while another thread is at work in the library, and with it the
  /// reference to the state, which lives on as long. Both are empty then.
  static void Bury(std::shared_ptr<LibraryState>& state, std::unique_ptr<cPellora>& object);
  /// Lets such objects go. By the thread that has claimed the library and holds a reference to the state.
  void LetBuriedGo();

  bool IsRunning() const;
  /// Lets all objects go that no call is using; to be called again when a call ends after that.
  void OfficeEnds() noexcept;
  bool HasEnded() const { return m_ended; }

 private:
  LibreOfficePlatform m_platform;
  mutable std::mutex m_mutex;
  std::set<PlatformUser*> m_users;
  std::vector<std::unique_ptr<cPellora>> m_buried;
  /// The state itself, as long as it has buried objects: they need the platform.
  std::shared_ptr<LibraryState> m_kept;
  com::sun::star::uno::Reference<com::sun::star::frame::XTerminateListener> m_watch;
  Context m_context;
  std::atomic<bool> m_ended = false;
};

}  // namespace pellora::libreoffice
