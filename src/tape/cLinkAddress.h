#pragma once

#include <string>
#include <string_view>

namespace pellora {

/// One recorded ticker tape. A record of texts without behaviour; all start empty.
class cLinkAddress {
 public:
  /// The header over the tape's size column; empty for a tape of two columns.
  const std::string& NameSize() const { return m_nameSize; }
  void NameSize(std::string_view text) { m_nameSize = text; }
  /// The key under which the record was made, in the letter case first used.
  const std::string& SborKey() const { return m_sborKey; }
  void SborKey(std::string_view text) { m_sborKey = text; }
  /// Where the tape stands: an area with its sheet.
  const std::string& DataRange() const { return m_dataRange; }
  void DataRange(std::string_view text) { m_dataRange = text; }
  /// The formula that names the quote cell, "=TWS_Quotes!$E$7".
  const std::string& Link() const { return m_link; }
  void Link(std::string_view text) { m_link = text; }
  /// The header over the tape's value column.
  const std::string& Name() const { return m_name; }
  void Name(std::string_view text) { m_name = text; }

 private:
  std::string m_nameSize;
  std::string m_sborKey;
  std::string m_dataRange;
  std::string m_link;
  std::string m_name;
};

}  // namespace pellora
