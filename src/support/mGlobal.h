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

/// The seams in force. Raises 91 when no platform was installed.
Platform& CurrentPlatform();

/// Installs a platform's seams, null to take them away. The caller keeps them alive.
void InstallPlatform(Platform* platform);

}  // namespace mGlobal
}  // namespace pellora
