#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pellora::workbook {

/// Reads an XML text (UTF-8) from begin to end, one piece at a time, as slices of the text. It does not recurse and
/// keeps no tree, so a large sheet costs nothing but its cells, and what is not understood can be kept word for word.
/// Raises 1004 for what is not well-formed, nested too deeply, in another encoding, or has a document type.
class XmlReader {
 public:
  enum class Kind { Open, Close, Text, End };

  explicit XmlReader(std::string_view xml);

  /// Moves on. An element without content is an `Open` and then a `Close`.
  Kind Next();

  Kind kind() const { return m_kind; }
  /// The name of the element opened or closed, its prefix apart.
  std::string_view Name() const { return m_name; }
  /// The prefix of the opened element with its colon; empty for none.
  std::string_view Prefix() const { return m_prefix; }
  /// Everything between the element's name and the end of its tag.
  std::string_view Attributes() const { return m_attributes; }
  /// A text with its references replaced.
  std::string Text() const;
  /// How many elements are open.
  std::size_t Depth() const { return m_open.size(); }
  /// Where the present piece begins, and where the next one does.
  std::size_t Begin() const { return m_begin; }
  std::size_t Position() const { return m_at; }

  /// On an opened element: moves past its end and answers all of it.
  std::string_view Whole();
  /// On an opened element: moves past its end and answers the texts in it, one after the other.
  std::string InnerText();

 private:
  Kind ReadTag();
  Kind ReadText();
  bool SkipMarkup();
  void SkipTo(std::string_view mark);

  std::string_view m_xml;
  std::size_t m_at = 0, m_begin = 0;
  Kind m_kind = Kind::End;
  std::string_view m_name, m_prefix, m_attributes, m_text;
  bool m_selfClosed = false, m_plainText = false;
  std::vector<std::string_view> m_open;
};

/// The value of an attribute by its full name ("r:id") in the text between an element's name and the end of its tag.
std::optional<std::string> Attribute(std::string_view attributes, std::string_view name);
/// The same by the name behind any prefix, for attributes that must have one.
std::optional<std::string> PrefixedAttribute(std::string_view attributes, std::string_view name);
/// A whole number, or `otherwise` when it is missing or none.
int NumberAttribute(std::string_view attributes, std::string_view name, int otherwise);
/// The attributes with one given another value, added, or (with nothing) left out.
std::string WithAttribute(std::string_view attributes, std::string_view name, std::optional<std::string> value);

/// The parts of an XML text: what comes before the root's first child, each child of the root, and the end.
struct XmlParts {
  struct Child {
    std::string name, prefix, attributes;
    /// All of it.
    std::string whole;
  };
  std::string head, prefix, rootAttributes;
  std::vector<Child> children;
  std::string tail;

  static XmlParts Of(std::string_view xml);
  Child* Find(std::string_view name);
  std::string Text() const;
};

/// A text for an element's content or an attribute in quotes.
std::string XmlEscaped(std::string_view text);

}  // namespace pellora::workbook
