#include "support/mGlobal.h"

#include <mutex>
#include <thread>
#include <utility>

#include "core/Error.h"
#include "support/CAppSettings.h"
#include "support/CErrorHandler.h"

namespace pellora::mGlobal {
namespace {

Platform* g_platform = nullptr;

// Claims may come from two threads at once: that is what they are for.
std::mutex g_claimMutex;
std::thread::id g_claimedBy;
int g_claims = 0;

// The outermost call's.
int g_calls = 0;
std::shared_ptr<CErrorHandler> g_errorHandler;
std::shared_ptr<CAppSettings> g_appSettings;

}  // namespace

std::shared_ptr<CErrorHandler> ErrorHandler;
std::shared_ptr<CAppSettings> AppSettings;

ThreadClaim::ThreadClaim() {
  const std::lock_guard lock(g_claimMutex);
  if (g_claims > 0 && g_claimedBy != std::this_thread::get_id()) throw Error(errors::InvalidCall);
  g_claimedBy = std::this_thread::get_id();
  ++g_claims;
}

ThreadClaim::~ThreadClaim() {
  const std::lock_guard lock(g_claimMutex);
  --g_claims;
}

Call::Call(std::shared_ptr<CErrorHandler> errorHandler, std::shared_ptr<CAppSettings> appSettings) {
  if (g_calls++ > 0) return;
  g_errorHandler = std::move(errorHandler);
  g_appSettings = std::move(appSettings);
}

Call::~Call() {
  if (--g_calls > 0) return;
  g_errorHandler.reset();
  g_appSettings.reset();
}

bool Call::UnderWay() { return g_calls > 0; }
std::shared_ptr<CErrorHandler> Call::ErrorHandler() { return g_errorHandler; }
std::shared_ptr<CAppSettings> Call::AppSettings() { return g_appSettings; }

Platform& CurrentPlatform() {
  if (!g_platform) throw Error(errors::ObjectNotSet);
  return *g_platform;
}

void InstallPlatform(Platform* platform) { g_platform = platform; }

}  // namespace pellora::mGlobal
