#include "platform/windows/server/WindowsPlatform.h"

#include "platform/windows/forms/Dpi.h"
#include "platform/windows/forms/WindowsToolkit.h"
#include "platform/windows/services/VersionResource.h"
#include "support/mGlobal.h"

namespace pellora::windows {
namespace {

constexpr int kManifestResource = 2;

// The host's code runs in the awareness it chose, also while one of the library's dialogs is up.
class HostDpiHook : public ole::CallHook {
 public:
  void Around(const std::function<void()>& call) override {
    const HostDpiScope hostDpi;
    call();
  }
};

}  // namespace

WindowsPlatform::WindowsPlatform(HINSTANCE module)
    : m_toolkit(std::make_unique<WindowsToolkit>(module, kManifestResource)),
      m_callHook(std::make_unique<HostDpiHook>()),
      m_platform{*m_toolkit, m_registry, m_shell, m_clock, m_eventLog, m_logFiles, ReadLibraryInfo(module)} {
  mGlobal::InstallPlatform(&m_platform);
  InstallTextServices(&m_textServices);
  ole::InstallCallHook(m_callHook.get());
}

WindowsPlatform::~WindowsPlatform() {
  ole::InstallCallHook(nullptr);
  InstallTextServices(nullptr);
  mGlobal::InstallPlatform(nullptr);
}

}  // namespace pellora::windows
