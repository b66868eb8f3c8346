#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Error.h"
#include "support/CErrorHandler.h"
#include "support/Platform.h"
#include "support/mGlobal.h"
#include "tests/FormPeerOver.h"
#include "workbook/Host.h"

namespace pellora::protocol {

/// One call out of the library: to the spreadsheet, the registry, the shell, the clock, or the toolkit.
struct OutwardCall {
  std::string member;
  /// True when the call changes something outside; false for a read, which may be made twice.
  bool effect = false;
  /// The routine on top of the call stack.
  std::string routine;
};

/// Hears of every outward call while it is armed, and makes one of them fail, once.
class Outside {
 public:
  /// `failing` counts from 1; 0 for none.
  void Arm(std::size_t failing) { m_armed = true, m_failing = failing; }
  void Disarm() { m_armed = false; }

  /// True when the call is to fail.
  bool Enter(std::string_view member, bool effect) {
    if (!m_armed) return false;
    m_calls.push_back({std::string(member), effect, std::string(mGlobal::ErrorHandler->CallStackTop())});
    if (m_calls.size() != m_failing) return false;
    m_failing = 0;
    return true;
  }
  void EnterOrRaise(std::string_view member, bool effect) {
    if (Enter(member, effect)) throw Error(errors::InvalidCall);
  }

  /// The report of an error reads the clock, then shows its dialog: that is no statement of a routine.
  void ReportBegins() {
    if (m_armed && !m_calls.empty() && m_calls.back().member == "Clock.Now") m_calls.pop_back();
  }

  const std::vector<OutwardCall>& Calls() const { return m_calls; }

 private:
  bool m_armed = false;
  std::size_t m_failing = 0;
  std::vector<OutwardCall> m_calls;
};

class WatchedRegistry : public Registry {
 public:
  WatchedRegistry(Registry& inner, Outside& outside) : m_inner(inner), m_outside(outside) {}
  std::int32_t SetValue(std::int32_t root, std::string_view path, std::string_view name,
                        const RegistryValue& value) override {
    m_outside.EnterOrRaise("Registry.SetValue(" + Section(path) + ")", true);
    return m_inner.SetValue(root, path, name, value);
  }
  std::optional<RegistryValue> QueryValue(std::int32_t root, std::string_view path, std::string_view name) override {
    m_outside.EnterOrRaise("Registry.QueryValue(" + Section(path) + ")", false);
    return m_inner.QueryValue(root, path, name);
  }
  std::int32_t EnumerateValues(std::int32_t root, std::string_view path, std::vector<std::string>& names) override {
    m_outside.EnterOrRaise("Registry.EnumerateValues", false);
    return m_inner.EnumerateValues(root, path, names);
  }
  std::int32_t DeleteKey(std::int32_t root, std::string_view path) override {
    m_outside.EnterOrRaise("Registry.DeleteKey", true);
    return m_inner.DeleteKey(root, path);
  }

 private:
  /// "Settings" or "Windows settings": the first part below the application's key.
  static std::string Section(std::string_view path) {
    constexpr std::string_view kApplication = "Software\\CORVANE\\Vantix\\";
    if (!path.starts_with(kApplication)) return std::string(path);
    path.remove_prefix(kApplication.size());
    return std::string(path.substr(0, path.find('\\')));
  }

  Registry& m_inner;
  Outside& m_outside;
};

class WatchedShell : public ShellApi {
 public:
  WatchedShell(ShellApi& inner, Outside& outside) : m_inner(inner), m_outside(outside) {}
  std::int32_t Execute(std::string_view verb, std::string_view file, std::string_view parameters,
                       std::string_view directory) override {
    m_outside.EnterOrRaise("Shell.Execute", true);
    return m_inner.Execute(verb, file, parameters, directory);
  }
  bool RunAndWait(std::string_view program, std::string_view parameters, std::string_view directory) override {
    m_outside.EnterOrRaise("Shell.RunAndWait", true);
    return m_inner.RunAndWait(program, parameters, directory);
  }
  bool FileExists(std::string_view path) override {
    m_outside.EnterOrRaise("Shell.FileExists", false);
    return m_inner.FileExists(path);
  }
  std::vector<std::string> DocumentVerbs(std::string_view path) override {
    m_outside.EnterOrRaise("Shell.DocumentVerbs", false);
    return m_inner.DocumentVerbs(path);
  }
  std::int32_t ShowProperties(std::string_view path, std::intptr_t owner) override {
    m_outside.EnterOrRaise("Shell.ShowProperties", true);
    return m_inner.ShowProperties(path, owner);
  }

 private:
  ShellApi& m_inner;
  Outside& m_outside;
};

/// The clock is read for every line of the tracing log too: it is under watch only while there is no tracing.
class WatchedClock : public Clock {
 public:
  WatchedClock(Clock& inner, Outside& outside) : m_inner(inner), m_outside(outside) {}
  double Now() override {
    if (!mGlobal::ErrorHandler->TracingEnabled()) m_outside.EnterOrRaise("Clock.Now", false);
    return m_inner.Now();
  }

 private:
  Clock& m_inner;
  Outside& m_outside;
};

/// A form's window. Only what may raise is watched: a placement that the system does not tell or take is no failure,
/// and ending a showing never fails.
class WatchedFormPeer : public tests::FormPeerOver {
 public:
  WatchedFormPeer(std::unique_ptr<FormPeer> inner, Outside& outside)
      : FormPeerOver(std::move(inner)), m_outside(outside) {}
  void ShowModal() override {
    m_outside.EnterOrRaise("Toolkit.ShowModal", false);
    FormPeerOver::ShowModal();
  }

 private:
  Outside& m_outside;
};

class WatchedToolkit : public Toolkit {
 public:
  WatchedToolkit(Toolkit& inner, Outside& outside) : m_inner(inner), m_outside(outside) {}

  /// A window that could not be shown is taken away again, so making it and showing it may be done twice.
  std::unique_ptr<FormPeer> CreatePeer(Form& form) override;

  MessageAnswer ShowMessage(const Message& message) override {
    m_outside.EnterOrRaise("Toolkit.ShowMessage", true);
    return m_inner.ShowMessage(message);
  }
  void Beep() override { m_inner.Beep(); }

 private:
  Toolkit& m_inner;
  Outside& m_outside;
};

/// What is run and yet changes nothing in a workbook.
inline bool IsEffect(std::string_view member, CallKind kind) {
  if (kind == CallKind::Get) return false;
  return member != "Range.Find" && member != "Range.SpecialCells" && member != "Application.Intersect";
}

/// Puts the spreadsheet under watch; its failure is the general refusal.
inline void Watch(workbook::Host& host, Outside& outside) {
  host.fail = [&outside](std::string_view member, CallKind kind, std::uint64_t) {
    return outside.Enter(member, IsEffect(member, kind)) ? 1004 : 0;
  };
}

}  // namespace pellora::protocol
