#include "support/mGlobal.h"

#include <mutex>
#include <thread>

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

Platform& CurrentPlatform() {
  if (!g_platform) throw Error(errors::ObjectNotSet);
  return *g_platform;
}

void InstallPlatform(Platform* platform) { g_platform = platform; }

}  // namespace pellora::mGlobal
