#include "platform/libreoffice/component/LibreOfficePlatform.h"

#include "core/Error.h"
#include "core/TextServices.h"
#include "platform/libreoffice/component/OfficeServices.h"
#include "support/mGlobal.h"

namespace pellora::libreoffice {
namespace {

bool IsInForce(const Platform& platform) noexcept {
  try {
    return &mGlobal::CurrentPlatform() == &platform;
  } catch (const Error&) {
    return false;
  }
}

}  // namespace

LibreOfficePlatform::LibreOfficePlatform(
    const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context)
    : m_toolkit(context),
      m_registry(SettingsFile::DefaultPath()),
      m_shell([context](const std::string& link) { return OpenLink(link, context); }),
      m_textServices(OfficeLocale(context)),
      m_platform{m_toolkit,
                 m_registry,
                 m_shell,
                 m_clock,
                 m_eventLog,
                 m_logFiles,
                 {"Pellora", PELLORA_MAJOR, PELLORA_MINOR, PELLORA_REVISION},
                 false} {
  mGlobal::InstallPlatform(&m_platform);
  InstallTextServices(&m_textServices);
}

LibreOfficePlatform::~LibreOfficePlatform() {
  if (&CurrentTextServices() == &m_textServices) InstallTextServices(nullptr);
  if (IsInForce(m_platform)) mGlobal::InstallPlatform(nullptr);
}

}  // namespace pellora::libreoffice
