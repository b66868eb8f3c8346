#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pellora::libreoffice {

/// A text that is read from the left: what matches is taken, what does not stays.
class TextReader {
 public:
  explicit TextReader(std::string_view text) : m_rest(text) {}

  bool AtEnd() const { return m_rest.empty(); }
  std::string_view Rest() const { return m_rest; }

  /// Takes that text, when it is not empty and comes next.
  bool Take(std::string_view text) {
    if (text.empty() || !m_rest.starts_with(text)) return false;
    m_rest.remove_prefix(text.size());
    return true;
  }
  /// The same without regard to the case of letters.
  bool TakeNoCase(std::string_view text);

  /// Takes one blank: space, tab, line break, or one of the two spaces that do not break.
  bool TakeBlank();
  void TakeBlanks() {
    while (TakeBlank()) continue;
  }

  /// The digits 0 to 9 that come next.
  std::string_view TakeDigits();

 private:
  std::string_view m_rest;
};

}  // namespace pellora::libreoffice
