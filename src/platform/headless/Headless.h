#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/Control.h"
#include "forms/Form.h"
#include "forms/Peers.h"
#include "support/Platform.h"

namespace pellora::headless {

/// Measures without fonts: every character takes 6 by 13 pixels at 96 dpi, in headings 8 by 17.
class HeadlessMeasurer : public TextMeasurer {
 public:
  explicit HeadlessMeasurer(int dpi = 96) : m_dpi(dpi) {}
  Size Measure(std::string_view text, TextStyle style) const override;
  int Dpi() const override { return m_dpi; }

 private:
  int m_dpi;
};

/// A user at one form that is shown: finds controls by name and uses them as hands would. Every action first checks
/// that the control can be used (on a shown page, visible, enabled) and raises `std::logic_error` when it cannot.
class UserAtForm {
 public:
  explicit UserAtForm(Form& form) : m_form(form) {}

  Form& form() const { return m_form; }
  /// The control of that name; raises `std::logic_error` for none, or one of another class.
  template <class T>
  T& Get(std::string_view name) const {
    auto* found = dynamic_cast<T*>(m_form.FindControl(name));
    if (!found) Missing(name);
    return *found;
  }

  /// Clicks a button, check box or option button; gives it the focus first.
  void Click(std::string_view name) const;
  /// Focuses a text box or editable combo and replaces its text, as if typed.
  void Type(std::string_view name, std::string_view text) const;
  /// Chooses an item of a list or combo by its text; raises when it has none.
  void Choose(std::string_view name, std::string_view item) const;
  /// Makes a grid row current by mouse.
  void SelectRow(std::string_view name, int row, int column = 0) const;

  /// Keys, as they reach the control with the focus. Enter and Escape press the form's buttons when the control does
  /// not use them; Tab moves the focus; Space clicks; arrows move in lists, grids and option groups.
  void PressTab(bool backwards = false) const;
  void PressEnter() const;
  void PressEscape() const;
  void PressSpace() const;
  void PressKey(const KeyPress& press) const;
  /// Types into the control with the focus, over the text it has, as after Tab; a drop-down list chooses the first item
  /// that begins so.
  void TypeHere(std::string_view text) const;
  /// Alt and a letter: clicks the button with that access key, focuses or clicks another control with it.
  void PressAccessKey(char letter) const;
  /// The title bar's close box.
  void CloseBox() const;
  /// Makes the client area of a sizable form that size, or its least size, and lays out again.
  void Resize(Size client) const;

  /// The name of the control with the focus, "" for none.
  std::string FocusedName() const;

 private:
  [[noreturn]] void Missing(std::string_view name) const;
  Control& Ready(std::string_view name) const;
  Control& Focused() const;
  void CheckShown() const;
  Form& m_form;
};

/// Answers every dialog and message of a test, by expectation, in order. A dialog that is not expected next, or one
/// that is still shown after its part was played, is noted as a fault and closed; `Verify` tells the first fault, or
/// the first expectation that was not met; "" when all went as expected.
class ScriptedUser {
 public:
  /// Expects the form of that name and plays `part` while it is shown. The part has to end with the form hidden.
  void ExpectForm(std::string_view name, std::function<void(UserAtForm&)> part);
  /// Expects a message box with exactly that text and answers it.
  void ExpectMessage(std::string_view text, MessageAnswer answer = MessageAnswer::Ok);
  /// Expects the error dialog `frmErrorMessage` and answers it by the button of that name ("btnAbort", ...).
  void ExpectErrorDialog(std::string_view button);
  /// From now on answers every error dialog that is not expected next in that way; "" ends that. `ErrorTexts` counts
  /// them. More than a thousand in a row are a fault and are then closed, so that a retry cannot go on for ever.
  void AnswerErrorDialogs(std::string_view button);

  std::string Verify() const;
  /// All messages shown so far.
  const std::vector<Message>& Messages() const { return m_messages; }
  /// The texts of all error dialogs shown so far, as shown.
  const std::vector<std::string>& ErrorTexts() const { return m_errorTexts; }
  int Beeps() const { return m_beeps; }

 private:
  friend class HeadlessToolkit;
  friend class HeadlessFormPeer;
  struct Expectation {
    std::string what;
    bool isMessage = false;
    std::function<void(UserAtForm&)> part;
    MessageAnswer answer = MessageAnswer::Ok;
  };
  void Play(Form& form);
  void CountBeep() { ++m_beeps; }
  void PlayPart(Form& form, const std::function<void(UserAtForm&)>& part);
  std::function<void(UserAtForm&)> NextPart(const Form& form);
  MessageAnswer AnswerMessage(const Message& message);
  void Fault(std::string text) { m_faults.push_back(std::move(text)); }
  std::string NextExpected() const;

  std::vector<Expectation> m_expected;
  std::size_t m_next = 0;
  std::vector<std::string> m_faults;
  std::vector<Message> m_messages;
  std::vector<std::string> m_errorTexts;
  std::string m_errorAnswer;
  int m_answeredErrors = 0;
  int m_beeps = 0;
};

/// A registry in memory. Keys compare without regard to case and are listed in the order of writing.
class MemoryRegistry : public Registry {
 public:
  std::int32_t SetValue(std::int32_t root, std::string_view path, std::string_view name,
                        const RegistryValue& value) override;
  std::optional<RegistryValue> QueryValue(std::int32_t root, std::string_view path, std::string_view name) override;
  std::int32_t EnumerateValues(std::int32_t root, std::string_view path, std::vector<std::string>& names) override;
  std::int32_t DeleteKey(std::int32_t root, std::string_view path) override;

  /// Every value below the current user, as "path\name" with its value, sorted: for comparing with a literal table.
  std::map<std::string, RegistryValue> Dump() const;
  bool HasKey(std::int32_t root, std::string_view path) const;
  /// While not 0, every writing operation answers this status.
  std::int32_t refuseWrites = 0;

 private:
  struct Key {
    std::int32_t root;
    std::string path;
    std::vector<std::pair<std::string, RegistryValue>> values;
  };
  Key& Create(std::int32_t root, std::string_view path);
  Key* Find(std::int32_t root, std::string_view path);
  const Key* Find(std::int32_t root, std::string_view path) const;
  std::vector<Key> m_keys;
};

/// A shell that only records, and answers what it is told.
class RecordingShell : public ShellApi {
 public:
  std::int32_t Execute(std::string_view verb, std::string_view file, std::string_view parameters,
                       std::string_view directory) override;
  bool RunAndWait(std::string_view program, std::string_view parameters, std::string_view directory) override;
  bool FileExists(std::string_view path) override;
  std::vector<std::string> DocumentVerbs(std::string_view path) override;
  std::int32_t ShowProperties(std::string_view path, std::intptr_t owner) override;

  /// "verb|file|parameters|directory" of each call, in order ("run", "properties" for the other two).
  std::vector<std::string> calls;
  std::int32_t result = 42;
  bool canRun = true;
  bool filesExist = true;
  std::vector<std::string> verbs;
};

class FakeClock : public Clock {
 public:
  double Now() override { return now; }
  /// 2007-12-18 09:30:00.
  double now = 39434.395833333336;
};

class MemoryEventLog : public EventLog {
 public:
  bool WriteError(std::string_view source, std::string_view text) override;
  bool Available() override { return available; }
  /// "source|text" of each entry.
  std::vector<std::string> entries;
  bool available = true;
  bool refuses = false;
};

class MemoryLogFiles : public LogFiles {
 public:
  bool Append(std::string_view path, std::string_view bytes) override;
  bool Delete(std::string_view path) override;
  std::map<std::string, std::string> files;
  bool refuses = false;
};

/// Makes peers that lay out and keep the focus, without a screen, at any scale.
class HeadlessToolkit : public Toolkit {
 public:
  std::unique_ptr<FormPeer> CreatePeer(Form& form) override;
  MessageAnswer ShowMessage(const Message& message) override;
  void Beep() override;

  ScriptedUser user;
  int dpi = 96;
  Rect desktop{0, 0, 1920, 1080};
  /// While true, no form tells or takes a placement.
  bool refusesPlacement = false;
  /// While not 0, making a form's peer raises this error number.
  std::int32_t refusesPeer = 0;
  /// How many forms are being shown now, and how many peers of forms exist.
  int shown = 0;
  int formPeers = 0;
  /// The forms that asked to be brought to the foreground, in order.
  std::vector<std::string> broughtToFront;

 private:
  friend class HeadlessFormPeer;
};

/// All seams without a screen, in one place, installed as the current platform for as long as it lives. Each test has
/// its own: in the end it takes itself, the text services and the module-level globals away again, and ends the program
/// with a message when a form still has its peer, which would outlive its toolkit.
class HeadlessPlatform {
 public:
  HeadlessPlatform();
  ~HeadlessPlatform();
  HeadlessPlatform(const HeadlessPlatform&) = delete;
  HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

  ScriptedUser& user() { return toolkit.user; }

  HeadlessToolkit toolkit;
  MemoryRegistry registry;
  RecordingShell shell;
  FakeClock clock;
  MemoryEventLog eventLog;
  MemoryLogFiles logFiles;
  Platform platform;
};

}  // namespace pellora::headless
