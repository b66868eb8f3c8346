#pragma once

#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>

#include "platform/libreoffice/forms/UnoToolkit.h"
#include "platform/libreoffice/services/DesktopShell.h"
#include "platform/libreoffice/services/LocaleTextServices.h"
#include "platform/libreoffice/services/PlainLogFiles.h"
#include "platform/libreoffice/services/SettingsFile.h"
#include "platform/libreoffice/services/SystemClock.h"
#include "platform/libreoffice/services/SystemLog.h"
#include "support/Platform.h"

namespace pellora::libreoffice {

/// All seams in the office program, in one place, installed as the current platform for as long as it lives: its
/// windows, its locale and its way of opening links, and the services of the desktop beneath. One that was installed
/// since stays.
class LibreOfficePlatform {
 public:
  explicit LibreOfficePlatform(const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context);
  ~LibreOfficePlatform();
  LibreOfficePlatform(const LibreOfficePlatform&) = delete;
  LibreOfficePlatform& operator=(const LibreOfficePlatform&) = delete;

 private:
  UnoToolkit m_toolkit;
  SettingsFile m_registry;
  DesktopShell m_shell;
  SystemClock m_clock;
  SystemLog m_eventLog;
  PlainLogFiles m_logFiles;
  LocaleTextServices m_textServices;
  Platform m_platform;
};

}  // namespace pellora::libreoffice
