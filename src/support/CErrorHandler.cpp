#include "support/CErrorHandler.h"

#include <algorithm>

#include "core/TextServices.h"
#include "forms/Peers.h"
#include "support/ComponentErrors.h"
#include "support/Quietly.h"
#include "support/frmErrorMessage.h"
#include "support/mGlobal.h"

namespace pellora {
namespace {

constexpr std::uint32_t kInvalidFileName = 0x43F9;
constexpr std::uint32_t kInvalidActions = 0x43FA;
constexpr std::uint32_t kInvalidTracingFlags = 0x43FB;
constexpr std::uint32_t kComponentFailure = 0x43FC;
constexpr ComponentErrors kErrors("Pellora.CErrorHandler", "CErrorHandler component failure", kInvalidFileName,
                                  kComponentFailure);

constexpr std::int32_t kAllActions = 15;
constexpr std::int32_t kAllTracingFlags = 3;
constexpr std::int32_t kTraceToFile = 2;

constexpr std::string_view kEventSource = "Vantix";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kCallStackIndent = 20;

/// A report tells so many entries of the call stack and counts the rest. Aborted routines and the overlap test can
/// leave millions of entries; written out they would not fit into memory, into a text box or into a mail, and the
/// failure would go unreported.
constexpr std::size_t kMostReportedEntries = 20000;

/// While the user looks at an error, the host keeps working and further failures may come up; each is shown on top. So
/// many at once are no work of the user's any more but a failure that showing an error brings about again: the next one
/// is logged, not shown, and answered with abort, which ends the chain.
constexpr int kMostOpenReports = 3;

std::string TimeStamp() {
  const double now = mGlobal::CurrentPlatform().clock.Now();
  const auto& texts = CurrentTextServices();
  return texts.ShortDate(now) + " - " + texts.LongTime(now);
}

void AppendLine(const std::string& path, const std::string& line) {
  const auto bytes = CurrentTextServices().ToSystemCodePage(line + std::string(kLineEnd));
  if (!mGlobal::CurrentPlatform().logFiles.Append(path, bytes)) kErrors.RaiseFailure();
}

void WriteEvent(const std::string& text) {
  if (!mGlobal::CurrentPlatform().eventLog.WriteError(kEventSource, text)) kErrors.RaiseFailure();
}

ErrorAction AskByMessageBox(const std::string& text) {
  const Message message{.text = text, .title = {}, .buttons = MessageButtons::AbortRetryIgnore, .critical = false};
  switch (mGlobal::CurrentPlatform().toolkit.ShowMessage(message)) {
    case MessageAnswer::Retry: return ErrorAction::Retry;
    case MessageAnswer::Ignore: return ErrorAction::Ignore;
    default: return ErrorAction::Abort;
  }
}

/// Any text but the first two is ignore.
ErrorAction ActionFromResult(std::string_view result) {
  if (result == "ABORT") return ErrorAction::Abort;
  return result == "RETRY" ? ErrorAction::Retry : ErrorAction::Ignore;
}

class Counted {
 public:
  explicit Counted(int& count) : m_count(count) { ++m_count; }
  ~Counted() { --m_count; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& m_count;
};

}  // namespace

CErrorHandler::CErrorHandler() {
  // Without an answer from the system there is no event log to write to.
  Quietly([this] { m_runningOnNT = mGlobal::CurrentPlatform().eventLog.Available(); });
}

void CErrorHandler::Init(std::int32_t ErrorHandlerActions, std::string_view ErrorLogFile, bool CallStackEnabled,
                         bool TracingEnabled, std::int32_t TracingFlags, std::string_view TracingLogFile) {
  this->ErrorHandlerActions(ErrorHandlerActions);
  this->ErrorLogFile(ErrorLogFile);
  this->CallStackEnabled(CallStackEnabled);
  this->TracingEnabled(TracingEnabled);
  this->TracingFlags(TracingFlags);
  this->TracingLogFile(TracingLogFile);
}

void CErrorHandler::ErrorHandlerActions(std::int32_t bits) {
  if (bits < 1 || bits > kAllActions) kErrors.Raise(kInvalidActions, "Invalid error handler actions");
  m_actions = bits;
}

void CErrorHandler::ErrorLogFile(std::string_view path) {
  if (path.empty()) kErrors.Raise(kInvalidFileName, "Invalid file name");
  m_errorLogFile = path;
}

void CErrorHandler::TracingFlags(std::int32_t bits) {
  if (bits < 1 || bits > kAllTracingFlags) kErrors.Raise(kInvalidTracingFlags, "Invalid tracing flags");
  m_tracingFlags = bits;
}

void CErrorHandler::TracingLogFile(std::string_view path) {
  if (path.empty()) kErrors.Raise(kInvalidFileName, "Invalid file name");
  m_tracingLogFile = path;
}

// Pushing works whatever `CallStackEnabled` says, clearing does not; the asymmetry is meant.
void CErrorHandler::CallStackClear() {
  if (!m_callStackEnabled) return;
  m_stack.clear();
  m_depth = 0;
}

void CErrorHandler::CallStackPop() {
  if (m_stack.empty()) return;
  kErrors.Guard([this] {
    const std::string procedure = m_tracingEnabled ? m_stack.back().procedure : std::string();
    // The entry goes before the line is written: a log that cannot be written must not leave the stack wrong.
    if (--m_stack.back().count == 0) m_stack.pop_back();
    --m_depth;
    Trace(" --- Exited routine: ", procedure);
  });
}

void CErrorHandler::CallStackPush(std::string_view Procedure, std::string_view Parameters, std::size_t count) {
  if (count == 0) return;
  kErrors.Guard([&] {
    if (!m_stack.empty() && m_stack.back().procedure == Procedure && m_stack.back().parameters == Parameters)
      m_stack.back().count += count;
    else
      m_stack.push_back({std::string(Procedure), std::string(Parameters), count});
    m_depth += count;
    for (std::size_t i = 0; m_tracingEnabled && i < count; ++i) Trace(" --- Entered routine: ", Procedure);
  });
}

void CErrorHandler::Clear(bool ClearLogFile, bool ClearTracingLogFile) {
  const auto remove = [](const std::string& path) {
    Quietly([&] { mGlobal::CurrentPlatform().logFiles.Delete(path); });
  };
  if (ClearLogFile && !m_errorLogFile.empty()) remove(m_errorLogFile);
  if (ClearTracingLogFile && !m_tracingLogFile.empty()) remove(m_tracingLogFile);
}

// The actions run in the order log, event log, message box, dialog, and the first that fails ends the report: with a
// log that cannot be written the user is asked nothing, and the routine is aborted. The configuration in use, the
// dialog alone, writes no log; and a tracing log that cannot be written never gets here (`Routines::Push`).
ErrorAction CErrorHandler::HandleError(std::string_view Procedure, const Error& current, std::int32_t line) {
  return kErrors.Guard([&] {
    m_errorDescription = current.Description();
    m_errorNumber = current.Number();
    m_errorLine = line;
    const auto text = ComposeText(RoutineName(Procedure));
    // The host may set other actions while the user thinks; this report keeps to those it began with.
    const auto wanted = m_actions;
    if (wanted & actions::ErrorLog) AppendLine(m_errorLogFile, text);
    if ((wanted & actions::EventLog) && m_runningOnNT) WriteEvent(text);
    return Ask(wanted, text);
  });
}

ErrorAction CErrorHandler::Ask(std::int32_t wanted, const std::string& text) {
  auto action = ErrorAction::Abort;
  if (m_openReports >= kMostOpenReports) return action;
  const Counted open(m_openReports);
  if (wanted & actions::MessageBox) action = AskByMessageBox(text);
  if (wanted & actions::Dialog) action = ShowDialog(text);
  return action;
}

ErrorAction CErrorHandler::ShowDialog(const std::string& text) {
  frmErrorMessage dialog(mGlobal::CurrentPlatform().toolkit);
  dialog.Load();
  dialog.ErrorMessage(text);
  dialog.SupportMail(m_supportMail);
  dialog.Show();
  const auto action = ActionFromResult(dialog.Tag());
  dialog.Unload();
  return action;
}

std::string CErrorHandler::RoutineName(std::string_view procedure) const {
  if (!procedure.empty()) return std::string(procedure);
  return m_callStackEnabled && !m_stack.empty() ? std::string(CallStackTop()) : "Unknown";
}

std::string CErrorHandler::ComposeText(std::string_view routine) const {
  std::string text = TimeStamp();
  text.append(kLineEnd).append("\tError: ").append(std::to_string(m_errorNumber));
  text.append(", (").append(m_errorDescription).append(")").append(kLineEnd);
  text.append("\tin ").append(routine).append(" at line ").append(std::to_string(m_errorLine)).append(kLineEnd);
  text.append(kLineEnd).append("The call stack is:").append(kLineEnd);
  return text + FormatCallStack(kCallStackIndent, true);
}

std::string CErrorHandler::FormatCallStack(std::size_t indent, bool includeParameters) const {
  const std::string margin(indent, ' ');
  std::string text;
  std::size_t left = kMostReportedEntries;
  for (auto run = m_stack.rbegin(); run != m_stack.rend() && left > 0; ++run) {
    const auto line = margin + run->procedure + (includeParameters ? "(" + run->parameters + ")" : std::string());
    for (std::size_t i = std::min(run->count, left); i > 0; --i, --left) {
      if (!text.empty()) text.append(kLineEnd);
      text.append(line);
    }
  }
  if (m_depth > kMostReportedEntries)
    text.append(kLineEnd).append(margin).append("(" + std::to_string(m_depth - kMostReportedEntries) + " more)");
  return text;
}

void CErrorHandler::Trace(std::string_view what, std::string_view procedure) {
  if (!m_tracingEnabled || !(m_tracingFlags & kAllTracingFlags)) return;
  const auto line = TimeStamp().append(what).append(procedure);
  // The library as delivered has no debug output: flag 1 composes the line and sends it nowhere.
  if (m_tracingFlags & kTraceToFile) AppendLine(m_tracingLogFile, line);
}

}  // namespace pellora
