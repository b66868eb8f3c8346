#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "Outside.h"
#include "contract/SecurityTypes.h"
#include "contract/frmAddTicker.h"
#include "contract/frmModifyList.h"
#include "platform/headless/Headless.h"
#include "project/frmNewProject.h"
#include "support/CAppSettings.h"
#include "tests/tape/OpenRibbon.h"
#include "tests/tape/WorkbookBuilder.h"
#include "workbook/Document.h"

namespace pellora::protocol {

/// The dialogs with their protected members in reach.
class OpenTicker : public frmAddTicker {
 public:
  using frmAddTicker::frmAddTicker;
  using frmAddTicker::OnLoad;
};

class OpenEditor : public frmModifyList {
 public:
  using frmModifyList::frmModifyList;
  using frmModifyList::OnActivate;
  using frmModifyList::OnLoad;
  using frmModifyList::OnUnload;
};

using test::OpenRibbon;

/// Everything a routine can reach, new for every run: a platform without a screen and an embedded workbook, both under
/// watch, the shared services, and one dialog, made by whoever asks for it first.
class World : public TapeOwner {
 public:
  World();
  ~World() override;

  OpenRibbon& Ribbon();
  OpenTicker& Ticker();
  OpenEditor& Editor();
  frmNewProject& Project();

  DispatchPtr ExcelApplication() override { return m_application; }
  headless::ScriptedUser& user() { return m_headless.user(); }
  workbook::Host& host() { return m_host; }
  Outside& outside() { return m_outside; }

  /// What the routine under test answered, and what it wrote by reference.
  std::string answer;
  std::string outputs;

  /// All that a user, a workbook or the next call could notice, as one text: the workbook's content and state, the
  /// registry, the dialog's controls, its outcome, its tapes, the messages shown, answer and outputs.
  std::string Picture();
  std::string TracingLog() { return m_headless.logFiles.files["Tracing Log.txt"]; }

 private:
  Outside m_outside;
  headless::HeadlessPlatform m_headless;
  WatchedToolkit m_toolkit{m_headless.toolkit, m_outside};
  WatchedRegistry m_registry{m_headless.registry, m_outside};
  WatchedShell m_shell{m_headless.shell, m_outside};
  WatchedClock m_clock{m_headless.clock, m_outside};
  Platform m_platform{m_toolkit, m_registry, m_shell, m_clock, m_headless.eventLog, m_headless.logFiles, {}};
  workbook::Host m_host;
  DispatchPtr m_application = m_host.Application();
  std::unique_ptr<OpenRibbon> m_ribbon;
  std::unique_ptr<OpenTicker> m_ticker;
  std::unique_ptr<OpenEditor> m_editor;
  std::unique_ptr<frmNewProject> m_project;
};

}  // namespace pellora::protocol
