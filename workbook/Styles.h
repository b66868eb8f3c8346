#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbook/Document.h"
#include "workbook/Xml.h"

namespace pellora::workbook {

/// The styles of a file: what each looks like as far as it is modelled, and new ones added beside those that are
/// there. Nothing that it held is lost.
class StyleBook {
 public:
  /// Reads a styles part; one that lacks its lists is replaced by the standard one.
  explicit StyleBook(std::string_view xml);
  /// The least that a file needs.
  static std::string_view Standard();

  /// The look of a style, the default one for a number that is none.
  CellFormat LookOf(int style) const;
  /// True when the style shows its number as a date.
  bool ShowsDates(int style) const;

  /// The number of a style with this look, made from the one the cell came with when there is none yet.
  int StyleFor(const CellFormat& look, bool date);

  std::string Text() const;

 private:
  struct List {
    XmlParts xml;
    std::string Text() const;
  };

  bool Read(std::string_view xml);
  void ReadLists();
  int Color(std::string_view attributes) const;
  int ReadFill(const std::string& xml) const;
  void ReadBorder(const std::string& xml, CellFormat& look) const;
  int Add(List& list, std::string item);
  std::string BorderText(const CellFormat& look) const;
  std::string FillText(int color) const;

  XmlParts m_parts;
  List m_fills, m_borders, m_styles;
  std::vector<std::string> m_palette;
  std::vector<CellFormat> m_looks;
  std::vector<bool> m_dates;
  std::vector<std::pair<std::pair<CellFormat, bool>, int>> m_made;
};

/// An element with other attributes, its content as it was.
std::string WithAttributes(std::string_view element, std::string_view attributes);

}  // namespace pellora::workbook
