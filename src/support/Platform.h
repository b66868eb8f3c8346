#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "forms/Peers.h"

namespace pellora {

/// The seams below the services of this folder. A platform implements each; `Platform` hands them over together.
/// Status values are the platform's own codes, 0 for success.

/// A registry value: text or a 32-bit number. Anything else that may be stored is `Unknown`.
struct RegistryUnknown {
  bool operator==(const RegistryUnknown&) const = default;
};
using RegistryValue = std::variant<std::string, std::int32_t, RegistryUnknown>;

/// Roots of the registry, by the platform's numbers.
inline constexpr std::int32_t kCurrentUser = static_cast<std::int32_t>(0x80000001);
inline constexpr std::int32_t kLocalMachine = static_cast<std::int32_t>(0x80000002);

/// The registry's operations that the settings store needs. `path` is the key below the root, parts joined by "\".
/// Key and value names pass through the system's code page.
class Registry {
 public:
  virtual ~Registry() = default;
  /// Creates or opens the key, then writes the value.
  virtual std::int32_t SetValue(std::int32_t root, std::string_view path, std::string_view name,
                                const RegistryValue& value) = 0;
  /// Nothing when key or value are missing or cannot be read. Creates nothing.
  virtual std::optional<RegistryValue> QueryValue(std::int32_t root, std::string_view path, std::string_view name) = 0;
  /// The names of the key's values, in the registry's order.
  virtual std::int32_t EnumerateValues(std::int32_t root, std::string_view path, std::vector<std::string>& names) = 0;
  /// Deletes a key without subkeys, with its values.
  virtual std::int32_t DeleteKey(std::int32_t root, std::string_view path) = 0;
};

/// Starting programs and opening documents.
class ShellApi {
 public:
  virtual ~ShellApi() = default;
  /// Runs `verb` on a file, folder or link, in a normal window. Above 32 is success. Empty texts count as absent.
  virtual std::int32_t Execute(std::string_view verb, std::string_view file, std::string_view parameters,
                               std::string_view directory) = 0;
  /// Starts a program in a normal window and waits for it to end; false when it could not be created.
  virtual bool RunAndWait(std::string_view program, std::string_view parameters, std::string_view directory) = 0;
  virtual bool FileExists(std::string_view path) = 0;
  /// The names of the verbs registered for a file's document type.
  virtual std::vector<std::string> DocumentVerbs(std::string_view path) = 0;
  /// Shows a file's property sheet; the platform's instance result, above 32 on success.
  virtual std::int32_t ShowProperties(std::string_view path, std::intptr_t owner) = 0;
};

/// Local date and time as days since 1899-12-30.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual double Now() = 0;
};

/// The system's application event log.
class EventLog {
 public:
  virtual ~EventLog() = default;
  /// Writes an error entry; false when refused.
  virtual bool WriteError(std::string_view source, std::string_view text) = 0;
  /// True when the system reports the platform that keeps an event log.
  virtual bool Available() = 0;
};

/// Plain text files, by the path as given. Bytes, no conversion.
class LogFiles {
 public:
  virtual ~LogFiles() = default;
  /// Opens for appending, writes, closes; false when any of it fails.
  virtual bool Append(std::string_view path, std::string_view bytes) = 0;
  virtual bool Delete(std::string_view path) = 0;
};

/// What the library says of itself, from its own version resource.
struct LibraryInfo {
  std::string title = "Pellora";
  int major = 1;
  int minor = 0;
  int revision = 0;
};

/// All seams of a platform. The platform owns what the references name and outlives every user.
struct Platform {
  Toolkit& toolkit;
  Registry& registry;
  ShellApi& shell;
  Clock& clock;
  EventLog& eventLog;
  LogFiles& logFiles;
  LibraryInfo library;
  /// True where windows belong to the thread that made them: an object is then used by one thread from its making to
  /// its end. Elsewhere by any, one at a time.
  bool oneThread = true;
};

}  // namespace pellora
