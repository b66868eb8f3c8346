#include "support/mGlobal.h"

#include "core/Error.h"
#include "support/CAppSettings.h"
#include "support/CErrorHandler.h"

namespace pellora::mGlobal {
namespace {

Platform* g_platform = nullptr;

}  // namespace

std::shared_ptr<CErrorHandler> ErrorHandler;
std::shared_ptr<CAppSettings> AppSettings;

Platform& CurrentPlatform() {
  if (!g_platform) throw Error(errors::ObjectNotSet);
  return *g_platform;
}

void InstallPlatform(Platform* platform) { g_platform = platform; }

}  // namespace pellora::mGlobal
