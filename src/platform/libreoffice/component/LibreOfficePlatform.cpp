#include "platform/libreoffice/component/LibreOfficePlatform.h"

#include "core/TextServices.h"
#include "platform/libreoffice/component/OfficeServices.h"
#include "support/mGlobal.h"

namespace pellora::libreoffice {

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
  InstallTextServices(nullptr);
  mGlobal::InstallPlatform(nullptr);
}

}  // namespace pellora::libreoffice
