#pragma once

#include <memory>

#include "support/Platform.h"

namespace pellora {

class CAppSettings;
class CErrorHandler;

/// The module-level globals that every form and class reaches. One set a process: the library lives on the host's one
/// user-interface thread.
namespace mGlobal {

/// The shared error handler and settings store: made by `cPellora`'s initialisation, replaced by the next one,
/// released by its termination. The first is null before and after.
extern std::shared_ptr<CErrorHandler> ErrorHandler;
extern std::shared_ptr<CAppSettings> AppSettings;

/// Holds the library to one thread for as long as it lives: the first claim names the thread, a claim on another thread
/// while one lives raises 5 (invalid procedure call).
class ThreadClaim {
 public:
  ThreadClaim();
  ~ThreadClaim();
  ThreadClaim(const ThreadClaim&) = delete;
  ThreadClaim& operator=(const ThreadClaim&) = delete;
};

/// A call of one of the library's methods, for as long as it is carried out. One at a time in the whole process:
/// whoever begins one asks `UnderWay` first. Calls that a call makes itself may be nested in it.
class Call {
 public:
  /// The calling object's services.
  Call(std::shared_ptr<CErrorHandler> errorHandler, std::shared_ptr<CAppSettings> appSettings);
  ~Call();
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  static bool UnderWay();
  /// The services of the object whose call is under way, null when there is none: what another object leaves behind
  /// that is released meanwhile.
  static std::shared_ptr<CErrorHandler> ErrorHandler();
  static std::shared_ptr<CAppSettings> AppSettings();
};

/// The seams in force. Raises 91 when no platform was installed.
Platform& CurrentPlatform();

/// Installs a platform's seams, null to take them away. The caller keeps them alive.
void InstallPlatform(Platform* platform);

}  // namespace mGlobal
}  // namespace pellora
