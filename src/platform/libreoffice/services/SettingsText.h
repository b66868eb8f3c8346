#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/Platform.h"

namespace pellora::libreoffice {

/// The text of a settings file, as lines that are understood and lines that are merely kept.
///
/// A file is UTF-8, one item a line:
///
///     # A comment.
///     [CurrentUser\Software\CORVANE\Vantix\Settings\frmSettings]
///     "ListExchange" = "SMART|GLOBEX"
///     "Rows" = -5
///     "Picture" = ?
///
/// - "[root\path]" begins a key; the values below it are the key's, up to the next "[". The root is CurrentUser,
///   LocalMachine, or another's number as 0x80000003. A key has the keys above it, with or without lines of their own.
/// - "name" = value is a value: a text in quotes, or a 32-bit number in decimal digits. Anything else there is a value
///   of unknown kind; it is kept as it stands, and written as "?".
/// - In names, paths and texts, "%" and two hexadecimal digits are a byte. Control characters, quotes and "%" itself
///   are written so, and every byte of a text that is no UTF-8, so that any text comes back. Another "%" is itself.
/// - Blanks around an item, a carriage return at the end of a line and a byte order mark count for nothing.
/// - Every other line is kept where it is: comments, empty lines, what was damaged or written by a later version. A
///   line that begins with "[" and has no "]" begins a key that nobody asks for.
/// - Keys and names are equal without regard to case. Of two values of one name in a key the first counts.
class SettingsText {
 public:
  explicit SettingsText(std::string_view content);
  std::string Content() const;
  /// Whether a change was made that `Content` has to be stored for.
  bool Changed() const { return m_changed; }

  std::optional<RegistryValue> Value(std::int32_t root, std::string_view path, std::string_view name) const;
  /// The names of the key's values in the order of the lines.
  std::vector<std::string> Names(std::int32_t root, std::string_view path) const;
  /// True for a key with a line of its own or with keys below it.
  bool HasKey(std::int32_t root, std::string_view path) const;
  bool HasKeysBelow(std::int32_t root, std::string_view path) const;

  /// Leaves a value that is the same already, as it stands.
  void SetValue(std::int32_t root, std::string_view path, std::string_view name, const RegistryValue& value);
  /// Removes the key's own lines and its values; the key above stays. Lines that are merely kept are kept.
  void DeleteKey(std::int32_t root, std::string_view path);

 private:
  struct Key {
    std::int32_t root;
    std::string path;
  };
  enum class Kind { Kept, Empty, Key, Value };
  struct Line {
    Kind kind = Kind::Kept;
    std::string raw;
    /// The key that the line begins or stands below; none above the first, and for one that cannot be read.
    std::shared_ptr<const Key> key;
    std::string name;
    RegistryValue value;

    bool IsIn(std::int32_t root, std::string_view path) const;
  };
  static Line Understand(std::string_view raw, const std::shared_ptr<const Key>& key);
  static std::shared_ptr<const Key> ReadKey(std::string_view item);
  static bool ReadValue(std::string_view item, Line& line);
  std::size_t FindValue(std::int32_t root, std::string_view path, std::string_view name) const;
  std::size_t EndOfKey(std::int32_t root, std::string_view path) const;
  void AppendKey(std::int32_t root, std::string_view path);
  void Append(std::string_view raw);

  std::vector<Line> m_lines;
  bool m_changed = false;
};

}  // namespace pellora::libreoffice
