#include <cstdio>
#include <cstdlib>

#include "core/TextServices.h"
#include "platform/headless/Headless.h"
#include "support/mGlobal.h"

namespace pellora::headless {

HeadlessPlatform::HeadlessPlatform() : platform{toolkit, registry, shell, clock, eventLog, logFiles, {}} {
  mGlobal::InstallPlatform(&platform);
  InstallTextServices(&PortableTextServices());
}

HeadlessPlatform::~HeadlessPlatform() {
  mGlobal::ErrorHandler.reset();
  mGlobal::AppSettings.reset();
  mGlobal::InstallPlatform(nullptr);
  InstallTextServices(nullptr);
  if (toolkit.formPeers == 0) return;
  std::fputs("A form outlives the platform that made its peer.\n", stderr);
  std::abort();
}

}  // namespace pellora::headless
