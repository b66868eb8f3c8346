#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/Error.h"

namespace pellora {

/// Bits of `CErrorHandler::ErrorHandlerActions`.
namespace actions {
inline constexpr std::int32_t MessageBox = 1;
inline constexpr std::int32_t ErrorLog = 2;
inline constexpr std::int32_t EventLog = 4;
inline constexpr std::int32_t Dialog = 8;
}  // namespace actions

/// What a failing routine is told to do.
enum class ErrorAction : std::int32_t { Abort = 0, Retry = 1, Ignore = 2 };

/// The library's one place for failures: it keeps the call stack, writes the logs, tells the user and answers what the
/// failing routine is to do. One instance lives as long as the library's shared state (`mGlobal`).
///
/// Setters reject bad values with an `Error` of source "Pellora.CErrorHandler" and keep the old value: 0x800443FA
/// "Invalid error handler actions" (not 1 to 15), 0x800443F9 "Invalid file name" (empty), 0x800443FB "Invalid tracing
/// flags" (not 1 to 3). Any other failure inside a member is raised as 0x800443FC "CErrorHandler component failure".
class CErrorHandler {
 public:
  CErrorHandler();

  /// Where Send to Support mails to; empty for nowhere.
  const std::string& SupportMail() const { return m_supportMail; }
  void SupportMail(std::string_view address) { m_supportMail = address; }

  /// Sets the six settings in the order of the parameters, each validated.
  void Init(std::int32_t ErrorHandlerActions, std::string_view ErrorLogFile, bool CallStackEnabled, bool TracingEnabled,
            std::int32_t TracingFlags, std::string_view TracingLogFile);

  bool CallStackEnabled() const { return m_callStackEnabled; }
  void CallStackEnabled(bool enabled) { m_callStackEnabled = enabled; }
  const std::string& ErrorDescription() const { return m_errorDescription; }
  void ErrorDescription(std::string_view text) { m_errorDescription = text; }
  std::int32_t ErrorHandlerActions() const { return m_actions; }
  void ErrorHandlerActions(std::int32_t bits);
  std::int32_t ErrorLine() const { return m_errorLine; }
  void ErrorLine(std::int32_t line) { m_errorLine = line; }
  const std::string& ErrorLogFile() const { return m_errorLogFile; }
  void ErrorLogFile(std::string_view path);
  std::int32_t ErrorNumber() const { return m_errorNumber; }
  void ErrorNumber(std::int32_t number) { m_errorNumber = number; }
  /// A note that a host may keep here; the library neither reads nor writes it.
  const std::string& Remark() const { return m_remark; }
  void Remark(std::string_view text) { m_remark = text; }
  bool TracingEnabled() const { return m_tracingEnabled; }
  void TracingEnabled(bool enabled) { m_tracingEnabled = enabled; }
  std::int32_t TracingFlags() const { return m_tracingFlags; }
  void TracingFlags(std::int32_t bits);
  const std::string& TracingLogFile() const { return m_tracingLogFile; }
  void TracingLogFile(std::string_view path);
  bool RunningOnNT() const { return m_runningOnNT; }

  /// Removes every entry, only while `CallStackEnabled` is on.
  void CallStackClear();
  /// Removes the top entry, even when its trace line cannot be written; nothing when empty.
  void CallStackPop();
  /// Adds an entry, whatever `CallStackEnabled` says. `count` adds it so many times, at the cost of one, as long as
  /// tracing is off.
  void CallStackPush(std::string_view Procedure, std::string_view Parameters, std::size_t count = 1);
  /// Deletes the log files asked for; failures are ignored.
  void Clear(bool ClearLogFile, bool ClearTracingLogFile);

  /// Handles a failure that is current in the calling routine: reports it as the actions say, in the order error log,
  /// event log, message box, dialog. `Procedure` empty means the top of the call stack, "Unknown" when that is disabled
  /// or empty. The text tells 20,000 entries of the call stack and counts the rest. Raises 0x800443FC when the
  /// reporting itself fails, and reports no further; that counts as abort. While three reports are being shown, a
  /// further failure is logged, not shown, and answered with abort.
  ErrorAction HandleError(std::string_view Procedure, const Error& current, std::int32_t line);

  /// The routine on top of the call stack; empty when there is none.
  std::string_view CallStackTop() const {
    return m_stack.empty() ? std::string_view() : std::string_view(m_stack.back().procedure);
  }
  /// How many entries the call stack holds, and how many runs of equal entries they are stored as.
  std::size_t CallStackDepth() const { return m_depth; }
  std::size_t CallStackRuns() const { return m_stack.size(); }

 private:
  // Equal entries that follow each other are stored once: some routines leave one entry for every pair of a row and a
  // record behind.
  struct Run {
    std::string procedure;
    std::string parameters;
    std::size_t count;
  };

  std::string RoutineName(std::string_view procedure) const;
  std::string FormatCallStack(std::size_t indent, bool includeParameters) const;
  std::string ComposeText(std::string_view routine) const;
  ErrorAction Ask(std::int32_t wanted, const std::string& text);
  ErrorAction ShowDialog(const std::string& text);
  void Trace(std::string_view what, std::string_view procedure);

  bool m_callStackEnabled = false;
  bool m_tracingEnabled = false;
  std::int32_t m_actions = 1;
  std::int32_t m_tracingFlags = 0;
  std::int32_t m_errorNumber = 0;
  std::int32_t m_errorLine = 0;
  std::string m_errorLogFile = "Error Log.txt";
  std::string m_tracingLogFile = "Tracing Log.txt";
  std::string m_remark;
  std::string m_errorDescription;
  std::string m_supportMail;
  bool m_runningOnNT = false;
  std::vector<Run> m_stack;
  std::size_t m_depth = 0;
  int m_openReports = 0;
};

}  // namespace pellora
